// SPDX-License-Identifier: LicenseRef-ORVALD
// TEXT: one line of text.
#include "commands/making.h"
#include "commands/verbs.h"
#include "document.h"
#include "drawing/text.h"

#include <cmath>
#include <numbers>

namespace orvald {
namespace {

using drawing::Index;
using drawing::Point;

struct Justification
{
    std::u16string_view keyword;
    int horizontal, vertical; // groups 72 and 73
};
constexpr Justification kJustifications[] = {
    {u"Left", 0, 0}, {u"Center", 1, 0}, {u"Right", 2, 0}, {u"Align", 3, 0}, {u"Middle", 4, 0},
    {u"Fit", 5, 0},  {u"TL", 0, 3},     {u"TC", 1, 3},    {u"TR", 2, 3},    {u"ML", 0, 2},
    {u"MC", 1, 2},   {u"MR", 2, 2},     {u"BL", 0, 1},    {u"BC", 1, 1},    {u"BR", 2, 1},
};
constexpr std::u16string_view kStartWords =
    u"Justify Style Left Center Right Align Middle Fit TL TC TR ML MC MR BL BC BR";
constexpr std::u16string_view kJustifyWords =
    u"Left Center Right Align Middle Fit TL TC TR ML MC MR BL BC BR";

/// Groups of the current text style.
const drawing::TagList& currentStyle(Command& command)
{
    static const drawing::TagList none;
    const drawing::Drawing& drawing = command.drawing();
    const Index style =
        drawing.findRecord(drawing::TableId::style, drawing.header.text("$TEXTSTYLE", "Standard"));
    return style == drawing::kNone ? none : drawing.at(style).tags;
}

// TEXT [Style name] [Justify] [justification] point [point] [height] [angle] text
Task<> text(Command& command)
{
    Justification how = kJustifications[0];
    Answer<Point> start;
    for (;;) {
        start = co_await command.point(u"Specify start point of text or [Justify/Style]: ",
                                       kStartWords);
        std::u16string word = start.keyword;
        if (word == u"Style") {
            const std::u16string name = co_await command.text(u"Enter style name: ");
            if (!name.empty() && !command.setText(u"TEXTSTYLE", name)) {
                command.refuse(u"there is no text style " + name);
            }
            continue;
        }
        if (word == u"Justify") {
            const Answer<NoValue> option =
                co_await command.option(u"Enter an option: ", kJustifyWords);
            word = option.keyword;
        }
        if (word.empty()) break;
        for (const Justification& one : kJustifications)
            if (one.keyword == word) how = one;
        start = co_await command.point(u"Specify point of text: ");
        break;
    }
    if (!start) co_return;
    const bool aligned = how.horizontal == 3, between = aligned || how.horizontal == 5;
    Answer<Point> second;
    if (between) {
        second = co_await command.point(u"Specify second endpoint of text baseline: ");
        if (!second) co_return;
    }
    const double fixedHeight = currentStyle(command).real(40);
    double height =
        fixedHeight > 0.0 ? fixedHeight : command.document().variables().real(u"TEXTSIZE");
    if (!(fixedHeight > 0.0) && !aligned) {
        const Answer<double> size = co_await command.distance(u"Specify height: ", {}, *start);
        if (size && !(*size > 0.0)) command.refuse(u"a height is greater than 0");
        if (size) command.setReal(u"TEXTSIZE", height = *size);
    }
    double rotation = 0.0;
    if (between) {
        rotation = std::atan2(second->y - start->y, second->x - start->x);
    } else {
        const Answer<double> turn =
            co_await command.direction(u"Specify rotation angle of text: ", {}, *start);
        rotation = turn.value.value_or(0.0);
    }
    const std::u16string words = co_await command.text(u"Enter text: ");
    if (words.empty()) co_return;
    if (aligned) {
        // Height from the length of the line: capitals about as wide as high.
        const double along = std::hypot(second->x - start->x, second->y - start->y);
        height = along / static_cast<double>(words.size());
        if (!(height > 0.0)) command.refuse(u"the two points are one");
    }
    const UserPlane plane(command.drawing());
    const drawing::TagList& style = currentStyle(command);
    Groups entity = newEntity(u"TEXT", u"AcDbText");
    const double thickness = command.document().variables().real(u"THICKNESS");
    if (thickness != 0.0) entity.real(39, thickness);
    entity.point(10, plane.entity(*start)).real(40, height).text(1, words);
    entity.real(50, plane.entityAngle(rotation)).real(41, style.real(41, 1.0));
    entity.real(51, style.real(50) * std::numbers::pi / 180.0);
    entity.integer(71, static_cast<int>(style.integer(71)) & 6).integer(72, how.horizontal);
    const bool placed = how.horizontal != 0 || how.vertical != 0;
    if (placed) entity.point(11, plane.entity(between ? *second : *start));
    if (plane.normal() != Point{0.0, 0.0, 1.0}) entity.point(210, plane.normal());
    entity.text(100, u"AcDbText").integer(73, how.vertical);
    entity.make(command);
}

constexpr Verb kTable[] = {{u"DTEXT", text}, {u"TEXT", text}};

} // namespace

std::span<const Verb> textVerbs() { return kTable; }

} // namespace orvald
