// SPDX-License-Identifier: LicenseRef-ORVALD
// Selection sets as AutoLISP has them. The sets live in the host, because applications share them;
// a LISP value holds a set's number and gives the set back when the value is garbage.
#include "coordinate_systems.h"
#include "document.h"
#include "drawing/selection.h"
#include "drawing_functions.h"
#include "entity_list.h"
#include "host.h"
#include "registries.h"
#include "screen_picking.h"
#include "select_objects.h"
#include "text/letters.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace orvald {
namespace {

using drawing::ObjectId;
using lisp::Args;
using lisp::Kind;
using lisp::Value;
using lisp::World;

SelectionSet& setArgument(World& world, Args args, int index)
{
    const Value value = args.at(index);
    SelectionSet* set = nullptr;
    if (value.kind() == Kind::pickset) {
        set = Host::instance().selectionSets().find(world.picksetNumber(value));
    }
    if (set == nullptr) world.badArgument("lselsetp", value);
    return *set;
}

/// A value for a new set; unreachable sets are collected when there is no room. Nothing that is not
/// rooted may be held across this call.
Value newSet(World& world)
{
    SelectionSets& sets = Host::instance().selectionSets();
    std::optional<std::int32_t> number = sets.create();
    if (!number) {
        world.collectGarbage();
        number = sets.create();
    }
    if (!number) world.raise(u"exceeded maximum number of selection sets");
    return picksetValue(world, *number);
}

/// A set of these entities, which become the previous selection; nil without any.
Value setOf(World& world, std::vector<std::uint64_t> entities)
{
    if (entities.empty()) return Value::nil();
    const Value value = newSet(world);
    SelectionSet& set = *Host::instance().selectionSets().find(world.picksetNumber(value));
    for (const std::uint64_t entity : entities) set.add(entity);
    Document::of(world).user().previous = std::move(entities);
    return value;
}

bool isPoint(Value value)
{
    return value.isCons() && value.asCons()->car.isNumber() && value.asCons()->cdr.isCons();
}

drawing::Point pointOf(const Args::Point& point) { return {point.x, point.y, point.z}; }

/// Frozen layers and those of other spaces are out of a user's reach.
bool isReachable(const drawing::Drawing& drawing, drawing::Index entity)
{
    if (drawing.blockOf(entity) != drawing.currentSpace()) return false;
    constexpr std::int64_t kFrozen = 1;
    const drawing::Index layer =
        drawing.findRecord(drawing::TableId::layer, drawing.at(entity).layer());
    return layer == drawing::kNone || (drawing.at(layer).tags.integer(70) & kFrozen) == 0;
}

/// Ways of selecting by points.
struct Shape
{
    std::u16string_view method;
    drawing::Border border;
    std::size_t least, most; // points
};

const Shape* shapeOf(std::u16string_view method)
{
    constexpr std::size_t kMany = std::numeric_limits<std::size_t>::max();
    static constexpr Shape kShapes[] = {
        {u"W", drawing::Border::window, 2, 2},      {u"C", drawing::Border::crossing, 2, 2},
        {u"WP", drawing::Border::window, 3, kMany}, {u"CP", drawing::Border::crossing, 3, kMany},
        {u"F", drawing::Border::fence, 2, kMany},
    };
    const auto shape = std::ranges::find(kShapes, method, &Shape::method);
    return shape == std::end(kShapes) ? nullptr : &*shape;
}

/// What ssget is asked for.
struct Request
{
    std::u16string method; // upper case, without "_" and what follows a colon; empty: the user
    bool unlockedOnly = false;
    bool single = false; // the user's first answer that selects is the last
    std::vector<drawing::Point> points;
    Chain filter;
};

Request readRequest(World& world, Args args)
{
    Request request;
    int next = 0;
    if (args.at(0).isString()) {
        const std::u16string mode = text::upperText(args.string(next++));
        const std::size_t colon = std::min(mode.find(u':'), mode.size());
        const std::size_t start = mode.starts_with(u'_') ? 1 : 0;
        request.method = mode.substr(start, std::max(colon, start) - start);
        request.unlockedOnly = mode.find(u":L", colon) != std::u16string::npos;
        request.single = mode.find(u":S", colon) != std::u16string::npos;
    }
    // A group with a point looks like a list of points: only these ways begin with one.
    const bool byPoints = shapeOf(request.method) != nullptr;
    for (; next < args.size(); ++next) {
        const Value value = args[next];
        if (isPoint(value)) {
            request.points.push_back(pointOf(args.point(next)));
        } else if (byPoints && request.points.empty() && isPoint(lisp::car(value))) {
            for (Value rest = value; rest.isCons(); rest = rest.asCons()->cdr)
                request.points.push_back(pointOf(Args(world, &rest.asCons()->car, 1).point(0)));
        } else if (value.isCons() && next + 1 == args.size()) {
            request.filter = groupsFromList(world, value);
        } else if (!value.isNil()) {
            world.raise(u"bad SSGET list");
        }
    }
    return request;
}

/// Entities of the whole drawing that satisfy the filter, newest first.
std::vector<ObjectId> allOf(World& world, const resbuf* filter)
{
    std::vector<ObjectId> found;
    if (!drawing::selectAll(Document::of(world).drawing(), filter, found)) {
        world.raise(u"bad SSGET list");
    }
    return found;
}

/// The candidates that satisfy the filter and are still there.
std::vector<ObjectId> filtered(World& world, std::vector<ObjectId> candidates, const resbuf* filter)
{
    const drawing::Drawing& drawing = Document::of(world).drawing();
    std::erase_if(candidates, [&](ObjectId id) {
        const drawing::Index index = drawing.indexOf(id);
        return index == drawing::kNone || drawing.isGone(index) ||
               (filter != nullptr && !drawing::satisfies(drawing, id, filter));
    });
    return candidates;
}

std::vector<ObjectId> idsOf(const std::vector<std::uint64_t>& entities)
{
    std::vector<ObjectId> ids;
    ids.reserve(entities.size());
    for (const std::uint64_t entity : entities) ids.push_back({entity});
    return ids;
}

std::vector<ObjectId> select(World& world, const Request& request)
{
    Document& document = Document::of(world);
    const drawing::Drawing& drawing = document.drawing();
    const resbuf* filter = request.filter.get();
    if (request.method == u"X") return allOf(world, filter);
    if (request.method == u"A") {
        std::vector<ObjectId> found = allOf(world, filter);
        std::erase_if(found,
                      [&](ObjectId id) { return !isReachable(drawing, drawing.indexOf(id)); });
        return found;
    }
    if (request.method == u"L") {
        const ObjectId last = document.entities().entLast();
        if (last.isNull()) return {};
        return filtered(world, {last}, filter);
    }
    if (request.method == u"P") return filtered(world, idsOf(document.user().previous), filter);
    if (request.method == u"I") return filtered(world, idsOf(document.user().picked), filter);
    if (const Shape* shape = shapeOf(request.method)) {
        const std::size_t given = request.points.size();
        if (given < shape->least || given > shape->most) world.raise(u"bad SSGET list");
        return filtered(world, objectsIn(document, shape->border, request.points), filter);
    }
    constexpr std::u16string_view kSigns = u".+"; // how the user's picks count
    if (request.method.find_first_not_of(kSigns) != std::u16string::npos) {
        world.raise(u"bad SSGET mode string");
    }
    if (!request.points.empty()) {
        const auto hit = objectAt(document, request.points.front());
        if (!hit) return {};
        return filtered(world, {drawing.idOf(hit->entity)}, filter);
    }
    return askObjects(
        world,
        [&](ObjectId id) {
            const drawing::Index index = drawing.indexOf(id);
            return index != drawing::kNone && !drawing.isGone(index) &&
                   drawing.at(index).isMainEntity() && isReachable(drawing, index) &&
                   (filter == nullptr || drawing::satisfies(drawing, id, filter)) &&
                   (!request.unlockedOnly || !drawing.isLayerLocked(drawing.at(index).layer()));
        },
        request.single);
}

// (ssget [mode] [points] [filter]) -> set or nil
Value ssget(World& world, Args args)
{
    const Request request = readRequest(world, args);
    std::vector<ObjectId> found = select(world, request);
    const drawing::Drawing& drawing = Document::of(world).drawing();
    std::vector<std::uint64_t> entities;
    entities.reserve(found.size());
    for (const ObjectId id : found) {
        const drawing::Record* record = drawing.find(id);
        if (request.unlockedOnly && drawing.isLayerLocked(record->layer())) continue;
        entities.push_back(id.value);
    }
    return setOf(world, std::move(entities));
}

// (ssadd [ename [set]]) -> the set, changed in place, or a new one
Value ssadd(World& world, Args args)
{
    if (args.size() < 2) {
        const std::optional<std::uint64_t> entity =
            args.size() == 0 ? std::nullopt : std::optional(args.entity(0));
        const Value value = newSet(world);
        SelectionSet& set = *Host::instance().selectionSets().find(world.picksetNumber(value));
        if (entity) set.add(*entity);
        return value;
    }
    setArgument(world, args, 1).add(args.entity(0));
    return args[1];
}

// (ssdel ename set) -> the set, nil when the entity was not in
Value ssdel(World& world, Args args)
{
    return setArgument(world, args, 1).remove(args.entity(0)) ? args[1] : Value::nil();
}

// (ssmemb ename set) -> ename or nil
Value ssmemb(World& world, Args args)
{
    return setArgument(world, args, 1).has(args.entity(0)) ? args[0] : Value::nil();
}

// (sslength set) -> count
Value sslength(World& world, Args args)
{
    return Value::integer(static_cast<std::int32_t>(setArgument(world, args, 0).entities().size()));
}

/// The member at the place that the argument names, from 0; 0 when there is none.
std::uint64_t memberAt(World& world, Args args, int index)
{
    const std::span<const std::uint64_t> members = setArgument(world, args, 0).entities();
    const double place = std::trunc(args.number(index));
    if (!(place >= 0.0 && place < static_cast<double>(members.size()))) return 0;
    return members[static_cast<std::size_t>(place)];
}

// (ssname set index) -> ename or nil
Value ssname(World& world, Args args) { return nameValue({memberAt(world, args, 1)}); }

/// How a member came into its set; without a user always "not by a pick".
Value selectedBy(World& world, std::uint64_t entity)
{
    return world.makeList({Value::integer(0), Value::entity(entity), Value::integer(0)});
}

// (ssnamex set [index]) -> ((0 ename 0) ...)
Value ssnamex(World& world, Args args)
{
    if (args.size() > 1) {
        const std::uint64_t entity = memberAt(world, args, 1);
        return entity == 0 ? Value::nil() : world.makeList({selectedBy(world, entity)});
    }
    lisp::ListBuilder list(world);
    for (const std::uint64_t entity : setArgument(world, args, 0).entities()) {
        list.add(selectedBy(world, entity));
    }
    return list.list();
}

// (sssetfirst nil [set]) -> (nil set)
Value sssetfirst(World& world, Args args)
{
    std::vector<std::uint64_t>& picked = Document::of(world).user().picked;
    if (args.at(1).isNil()) {
        picked.clear();
    } else {
        const auto members = setArgument(world, args, 1).entities();
        picked.assign(members.begin(), members.end());
    }
    return world.makeList({Value::nil(), args.at(1)});
}

// (ssgetfirst) -> (nil set): what sssetfirst picked
Value ssgetfirst(World& world, Args)
{
    const std::vector<std::uint64_t>& picked = Document::of(world).user().picked;
    if (picked.empty()) return world.makeList({Value::nil(), Value::nil()});
    const Value value = newSet(world);
    SelectionSet& set = *Host::instance().selectionSets().find(world.picksetNumber(value));
    for (const std::uint64_t entity : picked) set.add(entity);
    return world.makeList({Value::nil(), value});
}

constexpr lisp::Builtin kTable[] = {
    {"ssadd", ssadd, 0, 2},           {"ssdel", ssdel, 2, 2},
    {"ssget", ssget, 0, 5},           {"ssgetfirst", ssgetfirst, 0, 0},
    {"sslength", sslength, 1, 1},     {"ssmemb", ssmemb, 2, 2},
    {"ssname", ssname, 2, 2},         {"ssnamex", ssnamex, 1, 2},
    {"sssetfirst", sssetfirst, 1, 2},
};

} // namespace

std::span<const lisp::Builtin> selectionFunctions() { return kTable; }

} // namespace orvald
