// SPDX-License-Identifier: LicenseRef-ORVALD
// ZOOM, PAN, REGEN, REDRAW: the display of the model. Views are boxes in display coordinates.
#include "commands/selecting.h"
#include "commands/verbs.h"
#include "coordinate_systems.h"
#include "document.h"
#include "drawing/views.h"
#include "lisp/units.h"
#include "text/letters.h"
#include "typed_values.h"

#include <cmath>

namespace orvald {
namespace {

using drawing::Box;
using drawing::Index;
using drawing::Point;

constexpr double kMargin = 1.02; // around what shall be seen whole

/// The model's view port; none while a sheet is shown.
Index viewport(Command& command)
{
    return command.drawing().header.integer("$TILEMODE", 1) == 0
               ? drawing::kNone
               : activeViewport(command.drawing());
}

View viewOf(Command& command, Index port)
{
    const drawing::TagList& tags = command.drawing().at(port).tags;
    return {tags.point(12), tags.real(40, 1.0)};
}

void store(Command& command, const View& view)
{
    const Index port = viewport(command);
    if (port == drawing::kNone || !(view.height > 0.0) || !std::isfinite(view.height)) return;
    drawing::TagList& tags = command.drawing().edit(port).tags;
    drawing::TagList centre, height;
    centre.addPoint(12, view.centre, true);
    height.addReal(40, view.height);
    if (const auto at = tags.find(12); at != tags.end()) tags.replace(at, centre);
    if (const auto at = tags.find(40); at != tags.end()) tags.replace(at, height);
}

void show(Command& command, const View& view)
{
    constexpr std::size_t kMost = 10; // views that Previous goes back to
    const Index port = viewport(command);
    if (port == drawing::kNone) return;
    std::vector<View>& before = command.document().user().views;
    if (before.size() == kMost) before.erase(before.begin());
    before.push_back(viewOf(command, port));
    store(command, view);
}

/// The view that shows a box of the display whole.
View viewOfBox(Command& command, Point low, Point high, double margin)
{
    const Index port = viewport(command);
    const double aspect =
        port == drawing::kNone ? 1.0 : command.drawing().at(port).tags.real(41, 1.5);
    const double width = std::abs(high.x - low.x), height = std::abs(high.y - low.y);
    return {0.5 * (low + high), margin * std::max(height, width / std::max(aspect, 1e-6))};
}

void showBox(Command& command, const Box& world)
{
    if (world.empty()) return;
    const drawing::Transform toDisplay = inverseRigid(displayToWorld(command.drawing()));
    Box box;
    for (const double x : {world.min().x, world.max().x})
        for (const double y : {world.min().y, world.max().y})
            for (const double z : {world.min().z, world.max().z}) box.add(toDisplay({x, y, z}));
    show(command, viewOfBox(command, box.min(), box.max(), kMargin));
}

Point toDisplay(Command& command, Point user)
{
    const drawing::Transform map =
        inverseRigid(displayToWorld(command.drawing())).after(userToWorld(command.drawing()));
    const Point display = map(user);
    return {display.x, display.y};
}

/// "2X" by the present view, "2XP" by the paper, "2" by the limits; false for other text.
bool showScale(Command& command, const Token& token)
{
    std::u16string text = text::upperText(trimmed(token.text));
    const bool paper = text.ends_with(u"XP"), relative = text.ends_with(u"X");
    if (paper) text.resize(text.size() - 2);
    else if (relative) text.resize(text.size() - 1);
    constexpr int kDecimal = 2;
    const std::optional<double> factor = lisp::readDistance(text, kDecimal);
    if (!factor || !(*factor > 0.0)) return false;
    const Index port = viewport(command);
    if (port == drawing::kNone) return true;
    View view = viewOf(command, port);
    const SystemVariables& variables = command.document().variables();
    const double whole = variables.point(u"LIMMAX").y - variables.point(u"LIMMIN").y;
    view.height = (relative || paper ? view.height : whole) / *factor;
    show(command, view);
    return true;
}

Task<> window(Command& command, Point first)
{
    const Answer<Point> second = co_await command.point(u"Specify opposite corner: ");
    if (!second) co_return;
    show(command, viewOfBox(command, toDisplay(command, first), toDisplay(command, *second), 1.0));
}

// ... Center point height|factor"X"
Task<> centre(Command& command)
{
    const Answer<Point> at = co_await command.point(u"Specify center point: ");
    const Token size = co_await command.token(u"Enter magnification or height: ");
    const Index port = viewport(command);
    if (port == drawing::kNone) co_return;
    View view = viewOf(command, port);
    if (at) view.centre = toDisplay(command, *at);
    if (const auto height = command.numberOf(size); height && *height > 0.0) {
        view.height = *height;
    } else if (text::upperText(size.text).ends_with(u"X")) {
        store(command, view);
        showScale(command, size);
        co_return;
    }
    show(command, view);
}

Box extentsOf(Command& command, const std::vector<Index>& objects)
{
    Box box;
    for (const Index object : objects) box.add(drawing::extents(command.drawing(), object));
    return box;
}

// ZOOM All|Center|Extents|Previous|Scale x|Window p p|Object objects|p p|factor
Task<> zoom(Command& command)
{
    static const Keywords words(
        u"All Center Dynamic Extents Left Previous Scale Vmax Window Object");
    const Token token = co_await command.token(
        u"Specify corner of window, enter a scale factor (nX or nXP), or [All/Center/Dynamic/"
        u"Extents/Previous/Scale/Window/Object]: ");
    if (token.isEnter()) co_return;
    const std::u16string word =
        token.kind == Token::Kind::text ? words.match(token.text).value_or(u"") : std::u16string();
    SystemVariables& variables = command.document().variables();
    if (word == u"All" || word == u"Extents") {
        Box box = variables.extents();
        if (word == u"All") {
            box.add(variables.point(u"LIMMIN"));
            box.add(variables.point(u"LIMMAX"));
        }
        showBox(command, box);
    } else if (word == u"Center") {
        co_await centre(command);
    } else if (word == u"Previous") {
        std::vector<View>& before = command.document().user().views;
        if (before.empty()) co_return;
        store(command, before.back());
        before.pop_back();
    } else if (word == u"Scale") {
        const Token scale = co_await command.token(u"Enter a scale factor (nX or nXP): ");
        if (!showScale(command, scale)) command.refuse(u"a scale is a number, \"2X\" or \"2XP\"");
    } else if (word == u"Window") {
        const Answer<Point> first = co_await command.point(u"Specify first corner: ");
        if (first) co_await window(command, *first);
    } else if (word == u"Object") {
        showBox(command, extentsOf(command, co_await command.selection()));
    } else if (!word.empty()) {
        command.refuse(u"the option " + word + u" is not available in this host");
    } else if (!showScale(command, token)) {
        const std::optional<Point> first = command.pointOf(token);
        if (!first) command.refuse(u"a point, a scale or an option is wanted");
        co_await window(command, *first);
    }
}

// PAN displacement|point point
Task<> pan(Command& command)
{
    const Answer<Point> from = co_await command.point(u"Specify base point or displacement: ");
    const Answer<Point> to = co_await command.point(u"Specify second point: ");
    const Index port = viewport(command);
    if (!from || port == drawing::kNone) co_return;
    const Point origin = toDisplay(command, {});
    const Point by = to ? toDisplay(command, *to) - toDisplay(command, *from)
                        : toDisplay(command, *from) - origin;
    View view = viewOf(command, port);
    view.centre = view.centre - by;
    show(command, view);
}

// REGEN, REGENALL, REDRAW, REDRAWALL: the temporary graphics go
Task<> redraw(Command& command)
{
    command.document().graphics().clear();
    co_return;
}

// What changes nothing without a screen: GRAPHSCR, TEXTSCR, ...
Task<> nothing(Command&) { co_return; }

// VSLIDE file
Task<> slide(Command& command) { co_await command.text(u"Enter name of slide file: "); }

constexpr Verb kTable[] = {
    {u"GRAPHSCR", nothing, true},
    {u"PAN", pan},
    {u"REDRAW", redraw, true},
    {u"REDRAWALL", redraw, true},
    {u"REGEN", redraw, true},
    {u"REGENALL", redraw, true},
    {u"TEXTSCR", nothing, true},
    {u"VSLIDE", slide, true},
    {u"ZOOM", zoom},
};

} // namespace

std::span<const Verb> viewVerbs() { return kTable; }

} // namespace orvald
