// SPDX-License-Identifier: LicenseRef-ORVALD
// Temporary vectors, coordinate systems, and the screen functions that have nothing to do without a
// screen.
#include "coordinate_systems.h"
#include "document.h"
#include "drawing/text.h"
#include "drawing/views.h"
#include "drawing_functions.h"
#include "entity_list.h"
#include "resbuf/groups.h"

#include <cstdlib>
#include <optional>

namespace orvald {
namespace {

using drawing::Point;
using drawing::Transform;
using lisp::Args;
using lisp::Value;
using lisp::World;

Point pointArgument(Args args, int index)
{
    const Args::Point point = args.point(index);
    return {point.x, point.y, point.z};
}

/// Reads a list of `count` numbers; false when it is none.
template <std::size_t count>
bool readNumbers(Value list, double (&numbers)[count])
{
    for (double& number : numbers) {
        if (!lisp::car(list).isNumber()) return false;
        number = lisp::car(list).asNumber();
        list = lisp::cdr(list);
    }
    return list.isNil();
}

void drawVector(Document& document, const Transform& toWorld, Point from, Point to, int colour,
                bool dashed)
{
    const Point a = toWorld(from), b = toWorld(to);
    const double first[] = {a.x, a.y, a.z}, second[] = {b.x, b.y, b.z};
    document.graphics().draw(first, second, colour, dashed);
}

// (grdraw from to colour [highlight]) -> nil; points in the user's coordinates
Value grdraw(World& world, Args args)
{
    Document& document = Document::of(world);
    const bool dashed = !args.at(3).isNil() && args.integer(3) != 0;
    drawVector(document, userToWorld(document.drawing()), pointArgument(args, 0),
               pointArgument(args, 1), args.integer(2), dashed);
    return Value::nil();
}

/// The 4 x 4 matrix of a grvecs call as a map; nothing when it is none.
std::optional<Transform> readMatrix(Value matrix)
{
    double rows[3][4], last[4];
    for (double(&row)[4] : rows) {
        if (!readNumbers(lisp::car(matrix), row)) return std::nullopt;
        matrix = lisp::cdr(matrix);
    }
    if (!readNumbers(lisp::car(matrix), last) || !lisp::cdr(matrix).isNil()) return std::nullopt;
    const auto column = [&](int at) { return Point{rows[0][at], rows[1][at], rows[2][at]}; };
    return Transform{column(0), column(1), column(2), column(3)};
}

std::optional<Point> readPoint(Value list)
{
    double space[3];
    if (readNumbers(list, space)) return Point{space[0], space[1], space[2]};
    double plane[2];
    if (readNumbers(list, plane)) return Point{plane[0], plane[1], 0.0};
    return std::nullopt;
}

// (grvecs ([colour] from to ...) [matrix]) -> nil; a negative colour is dashed
Value grvecs(World& world, Args args)
{
    Document& document = Document::of(world);
    Transform toWorld = userToWorld(document.drawing());
    if (!args.at(1).isNil()) {
        const std::optional<Transform> matrix = readMatrix(args.list(1));
        if (!matrix) world.raise(u"bad grvecs matrix: " + world.prin1(args[1]));
        toWorld = toWorld.after(*matrix);
    }
    constexpr int kWhite = 7, kComplement = 255;
    int colour = kWhite;
    Value rest = args.list(0);
    while (rest.isCons()) {
        if (const Value first = rest.asCons()->car; first.isInteger()) {
            colour = first.asInteger();
            rest = rest.asCons()->cdr;
        }
        const std::optional<Point> from = readPoint(lisp::car(rest));
        const std::optional<Point> to = readPoint(lisp::car(lisp::cdr(rest)));
        if (!from || !to) world.raise(u"bad grvecs list: " + world.prin1(rest));
        rest = lisp::cdr(lisp::cdr(rest));
        const int shade = colour == kComplement ? -1 : std::abs(colour);
        drawVector(document, toWorld, *from, *to, shade, colour < 0);
    }
    return Value::nil();
}

// (redraw [ename [mode]]) -> nil; without an entity the temporary vectors go
Value redraw(World& world, Args args)
{
    if (args.at(0).isNil()) Document::of(world).graphics().clear();
    else args.entity(0);
    return Value::nil();
}

// (grtext [box text [highlight]]) -> text: there is no line to show it in
Value grtext(World&, Args args) { return args.at(1); }

/// The coordinate system that an argument of trans names.
Transform systemArgument(World& world, Args args, int index)
{
    const drawing::Drawing& drawing = Document::of(world).drawing();
    if (args[index].isEntity()) {
        const drawing::Record* record = drawing.find({args[index].asEntity()});
        if (record == nullptr) world.badArgument("lentityp", args[index]);
        return entityToWorld(*record);
    }
    if (args[index].isCons()) return drawing::entityToWorld(pointArgument(args, index));
    constexpr int kWorld = 0, kUser = 1, kDisplay = 2;
    switch (args.integer(index)) {
    case kWorld: return {};
    case kUser: return userToWorld(drawing);
    case kDisplay: return displayToWorld(drawing);
    default: world.raise(u"invalid coordinate system: " + world.prin1(args[index]));
    }
}

// (trans point from to [displacement]) -> point
Value trans(World& world, Args args)
{
    const Transform from = systemArgument(world, args, 1);
    const Transform to = inverseRigid(systemArgument(world, args, 2));
    const Point point = pointArgument(args, 0);
    const bool displacement = !args.at(3).isNil();
    return pointValue(world, displacement ? to.direction(from.direction(point)) : to(from(point)));
}

/// First node of a chain with that group code; null when there is none.
const resbuf* findGroup(const resbuf* chain, int code)
{
    while (chain != nullptr && chain->restype != code) chain = chain->rbnext;
    return chain;
}

/// A text entity at the origin with the properties that steer its size: the given ones, else those
/// of its style; nothing without a text.
std::optional<drawing::Record> unplacedText(Document& document, const resbuf* groups)
{
    const resbuf* text = findGroup(groups, 1);
    if (text == nullptr) return std::nullopt;
    const drawing::Drawing& drawing = document.drawing();
    const resbuf* styleName = findGroup(groups, 7);
    const drawing::Index style =
        drawing.findRecord(drawing::TableId::style,
                           styleName == nullptr ? drawing.header.text("$TEXTSTYLE")
                                                : drawing::fileForm(styleName->resval.rstring));
    const auto ofStyle = [&](int code, double none) {
        const double value = style == drawing::kNone ? 0.0 : drawing.at(style).tags.real(code);
        return value > 0.0 ? value : none;
    };
    const auto given = [&](int code, double none) {
        const resbuf* node = findGroup(groups, code);
        return node == nullptr ? none : node->resval.rreal;
    };
    drawing::Record record(drawing::Kind::text, drawing::Family::entity);
    record.tags.addPoint(10, {});
    record.tags.addReal(40, given(40, ofStyle(40, document.variables().real(u"TEXTSIZE"))));
    record.tags.addText(1, drawing::fileForm(text->resval.rstring));
    record.tags.addReal(41, given(41, ofStyle(41, 1.0)));
    return record;
}

// (textbox list) -> two corners of the box of a text at the origin, not turned; nil without a text
Value textbox(World& world, Args args)
{
    const Chain groups = groupsFromList(world, args.list(0));
    std::optional<drawing::Record> text = unplacedText(Document::of(world), groups.get());
    if (!text) return Value::nil();
    drawing::Drawing paper;
    const drawing::Box box = drawing::extents(paper, paper.add(std::move(*text)));
    if (box.empty()) return Value::nil();
    return world.makeList({pointValue(world, box.min()), pointValue(world, box.max())});
}

Value nothing(World&, Args) { return Value::nil(); }

constexpr lisp::Builtin kTable[] = {
    {"graphscr", nothing, 0, 0}, {"grclear", nothing, 0, 0}, {"grdraw", grdraw, 3, 4},
    {"grtext", grtext, 0, 3},    {"grvecs", grvecs, 1, 2},   {"redraw", redraw, 0, 2},
    {"textpage", nothing, 0, 0}, {"textscr", nothing, 0, 0}, {"textbox", textbox, 1, 1},
    {"trans", trans, 3, 4},
};

} // namespace

std::span<const lisp::Builtin> graphicsFunctions() { return kTable; }

} // namespace orvald
