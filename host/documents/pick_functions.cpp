// SPDX-License-Identifier: LicenseRef-ORVALD
// entsel, nentsel, nentselp: one entity, or its part, by name or by a place.
#include "coordinate_systems.h"
#include "document.h"
#include "drawing/curve.h"
#include "drawing_functions.h"
#include "entity_list.h"
#include "prompt.h"
#include "screen_picking.h"
#include "text/letters.h"
#include "typed_points.h"

#include <algorithm>

namespace orvald {
namespace {

using drawing::ObjectId;
using drawing::Point;
using lisp::Args;
using lisp::Value;
using lisp::World;

/// Where a user would have picked an entity: at its first point.
Point firstPoint(const drawing::Drawing& drawing, const drawing::Record& entity)
{
    const Point world = entityToWorld(entity)(entity.tags.point(10));
    return inverseRigid(userToWorld(drawing))(world);
}

/// What an entity is picked for: itself, or the part of it that was hit, with the way to world
/// coordinates as the one or the other function tells it.
enum class Part
{
    whole,
    rows,   // nentsel: four rows of three
    columns // nentselp: 4 by 4
};

Value matrixValue(World& world, const drawing::Transform& map, Part part)
{
    if (part == Part::rows)
        return world.makeList({pointValue(world, map.x), pointValue(world, map.y),
                               pointValue(world, map.z), pointValue(world, map.origin)});
    const auto row = [&](double Point::*axis, double last) {
        return world.makeList({Value::real(map.x.*axis), Value::real(map.y.*axis),
                               Value::real(map.z.*axis), Value::real(last)});
    };
    const Value zero = Value::real(0.0);
    return world.makeList({row(&Point::x, map.origin.x), row(&Point::y, map.origin.y),
                           row(&Point::z, map.origin.z),
                           world.makeList({zero, zero, zero, Value::real(1.0)})});
}

/// The vertex at which the segment of a polyline begins that is nearest to a place.
drawing::Index vertexBefore(const drawing::Drawing& drawing, drawing::Index polyline, Point place)
{
    const auto curve = drawing::Curve::of(drawing, polyline);
    const auto parameter = curve ? curve->parameterOf(curve->nearest(place, false)) : std::nullopt;
    drawing::Index vertex = drawing.firstChild(polyline);
    for (double left = parameter.value_or(0.0); left >= 1.0; left -= 1.0) {
        const drawing::Index next = drawing.next(vertex);
        if (next == drawing::kNone || drawing.at(next).kind() != drawing::Kind::vertex) break;
        vertex = next;
    }
    return vertex == drawing::kNone ? polyline : vertex;
}

/// (ename point [matrix (insert ...)]) of what stands at a place of the user's; nil, with ERRNO,
/// for nothing.
Value pickedAt(World& world, Point place, Part part)
{
    Document& document = Document::of(world);
    const drawing::Drawing& drawing = document.drawing();
    const std::optional<drawing::Hit> hit = objectAt(document, place);
    if (!hit) {
        constexpr int kNothingThere = 7;
        document.variables().setErrno(kNothingThere);
        return Value::nil();
    }
    const auto nameOf = [&](drawing::Index index) { return nameValue(drawing.idOf(index)); };
    const Value at = pointValue(world, place);
    if (part == Part::whole) return world.makeList({nameOf(hit->entity), at});
    if (hit->inserts.empty()) {
        const bool old = drawing.at(hit->part).kind() == drawing::Kind::polyline;
        const Point inWorld = userToWorld(drawing)(place);
        return world.makeList(
            {nameOf(old ? vertexBefore(drawing, hit->part, inWorld) : hit->part), at});
    }
    lisp::ListBuilder inserts(world);
    for (const drawing::Index insert : hit->inserts) inserts.add(nameOf(insert));
    return world.makeList(
        {nameOf(hit->part), at, matrixValue(world, hit->toWorld, part), inserts.list()});
}

/// The entity that a text names: "L" for the last one, "'" and a handle, with the picked point
/// behind a blank; or what stands at a point.
std::optional<Value> pickedBy(World& world, std::u16string_view text, Part part)
{
    Document& document = Document::of(world);
    const std::size_t blank = std::min(text.find(u' '), text.size());
    const std::u16string name = text::upperText(text.substr(0, blank));
    ObjectId id;
    if (name == u"L" || name == u"_L" || name == u"LAST" || name == u"_LAST") {
        id = document.entities().entLast();
    } else if (name.starts_with(u'\'')) {
        document.entities().handEnt(std::u16string_view(name).substr(1), id);
    } else if (const auto place = pointFrom(document, text, std::nullopt)) {
        return pickedAt(world, *place, part);
    }
    const drawing::Drawing& drawing = document.drawing();
    const drawing::Index index = drawing.indexOf(id);
    if (index == drawing::kNone || !drawing.at(index).isEntity() || drawing.isGone(index)) {
        return std::nullopt;
    }
    Point at = firstPoint(drawing, drawing.at(index));
    if (blank < text.size()) {
        const auto typed = pointFrom(document, text.substr(blank), std::nullopt);
        if (!typed) return std::nullopt;
        at = *typed;
    }
    return world.makeList({nameValue(id), pointValue(world, at)});
}

/// (ename point), keyword or nil.
Value pick(World& world, Value prompt, Part part = Part::whole)
{
    Question question(world, prompt, u"Select object: ", 0);
    bool missed = false;
    const Value result = question.ask([&](std::u16string_view text, std::u16string& complaint) {
        complaint = u"No such object: an answer is 'HANDLE or L.";
        const std::optional<Value> picked = pickedBy(world, text, part);
        missed = picked && picked->isNil();
        return picked;
    });
    if (result.isNil() && !missed) {
        constexpr int kEnter = 52;
        Document::of(world).variables().setErrno(kEnter);
    }
    return result;
}

// (entsel [prompt]) -> (ename point), keyword or nil
Value entsel(World& world, Args args) { return pick(world, promptOf(args)); }

// (nentsel [prompt]) -> (ename point [matrix (insert ...)]), keyword or nil
Value nentsel(World& world, Args args) { return pick(world, promptOf(args), Part::rows); }

// (nentselp [prompt] [point]) -> as nentsel; a given point is not asked for
Value nentselp(World& world, Args args)
{
    const Prompted prompted = readPrompted(args);
    if (!prompted.base) return pick(world, prompted.prompt, Part::columns);
    Document::of(world).user().nextInput = {};
    return pickedAt(world, *prompted.base, Part::columns);
}

constexpr lisp::Builtin kTable[] = {
    {"entsel", entsel, 0, 1},
    {"nentsel", nentsel, 0, 1},
    {"nentselp", nentselp, 0, 2},
};

} // namespace

std::span<const lisp::Builtin> pickFunctions() { return kTable; }

} // namespace orvald
