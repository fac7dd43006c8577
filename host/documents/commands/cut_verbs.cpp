// SPDX-License-Identifier: LicenseRef-ORVALD
// BREAK, TRIM, EXTEND: cutting lines, arcs, circles and polylines, and making them longer.
#include "commands/flat_curve.h"
#include "commands/selecting.h"
#include "commands/verbs.h"
#include "document.h"
#include "drawing/selection.h"
#include "screen_picking.h"

#include <algorithm>
#include <cmath>

namespace orvald {
namespace {

using drawing::Index;
using drawing::Point;

FlatCurve curveOf(Command& command, Index entity)
{
    std::optional<FlatCurve> curve = FlatCurve::of(command, entity);
    if (!curve) command.refuse(u"objects of this kind are not changed in this host");
    return *std::move(curve);
}

// BREAK object [First p] p; the object's picked point is the first one else
Task<> breakObject(Command& command)
{
    const Answer<Picked> picked = co_await command.entity(u"Select object: ");
    if (!picked) co_return;
    std::optional<Point> first = picked->at;
    Answer<Point> second =
        co_await command.point(u"Specify second break point or [First point]: ", u"First");
    if (second.is(u"First")) {
        const Answer<Point> from = co_await command.point(u"Specify first break point: ");
        first = from.value;
        second = co_await command.point(u"Specify second break point: ");
    }
    if (!second) co_return;
    if (!first) command.refuse(u"a first point is wanted");
    const FlatCurve curve = curveOf(command, picked->entity);
    double a = curve.nearest(*first), b = curve.nearest(*second);
    std::vector<FlatCurve> pieces;
    if (curve.closed) {
        // Circles are cut counter-clockwise from the first point, polylines along their vertices.
        if (a == b) command.refuse(u"a closed object is broken at two points");
        const bool backward =
            command.drawing().at(picked->entity).kind() == drawing::Kind::circle &&
            curve.vertices.front().bulge < 0.0;
        pieces.push_back(backward ? curve.part(a, b) : curve.part(b, a));
    } else {
        if (a > b) std::swap(a, b);
        pieces = {curve.part(0.0, a), curve.part(b, curve.end())};
    }
    reshape(command, picked->entity, pieces);
}

// -- TRIM and EXTEND

/// Edges to cut at: the selected ones, or all that there are.
std::vector<std::pair<Index, FlatCurve>> edgesOf(Command& command, std::vector<Index> chosen)
{
    if (chosen.empty()) {
        std::vector<drawing::ObjectId> all;
        drawing::selectAll(command.drawing(), nullptr, all);
        for (const drawing::ObjectId id : all) {
            const Index index = command.drawing().indexOf(id);
            if (command.drawing().blockOf(index) == command.drawing().currentSpace()) {
                chosen.push_back(index);
            }
        }
    }
    std::vector<std::pair<Index, FlatCurve>> edges;
    for (const Index entity : chosen)
        if (auto curve = FlatCurve::of(command, entity)) edges.emplace_back(entity, *curve);
    return edges;
}

/// Takes away the part about the place, up to the edges next to it; false when there are none.
bool trimAt(Command& command, Index entity, Point place,
            const std::vector<std::pair<Index, FlatCurve>>& edges)
{
    const FlatCurve curve = curveOf(command, entity);
    const double here = curve.nearest(place);
    std::vector<double> cuts;
    for (const auto& [edge, shape] : edges) {
        if (edge == entity) continue;
        const std::vector<double> met = curve.meets(shape);
        for (const double cut : met) {
            // What ends at an edge is not cut there.
            constexpr double kEnd = 1e-9;
            const bool inside = cut > kEnd && cut < curve.end() - kEnd;
            if (inside || curve.closed) cuts.push_back(cut);
        }
    }
    std::ranges::sort(cuts);
    const auto behind = std::ranges::upper_bound(cuts, here);
    if (curve.closed) {
        if (cuts.size() < 2) return false;
        const double low = behind == cuts.begin() ? cuts.back() : *std::prev(behind);
        const double high = behind == cuts.end() ? cuts.front() : *behind;
        if (low == high) return false;
        reshape(command, entity, {curve.part(high, low)});
        return true;
    }
    std::vector<FlatCurve> pieces;
    if (behind != cuts.begin()) pieces.push_back(curve.part(0.0, *std::prev(behind)));
    if (behind != cuts.end()) pieces.push_back(curve.part(*behind, curve.end()));
    if (pieces.empty()) return false;
    reshape(command, entity, pieces);
    return true;
}

/// Makes the end next to the place longer, up to the next edge; false when there is none.
bool extendAt(Command& command, Index entity, Point place,
              const std::vector<std::pair<Index, FlatCurve>>& edges)
{
    FlatCurve curve = curveOf(command, entity);
    if (curve.closed) return false;
    const Point start = curve.vertices.front().at, end = curve.vertices.back().at;
    const bool atStart = length(place - start) < length(place - end);
    if (atStart) curve.reverse();
    const Segment last = curve.segment(curve.segmentCount() - 1);
    constexpr double kBeyond = 1.0 + 1e-9;
    double nearest = INFINITY;
    for (const auto& [edge, shape] : edges) {
        if (edge == entity) continue;
        for (std::size_t i = 0; i < shape.segmentCount(); ++i)
            for (const double part : last.meets(shape.segment(i), true))
                if (part > kBeyond) nearest = std::min(nearest, part);
    }
    if (!std::isfinite(nearest)) return false;
    drawing::PolylineVertex& before = curve.vertices[curve.vertices.size() - 2];
    curve.vertices.back().at = last.at(nearest);
    if (last.isRound()) before.bulge = std::tan(0.25 * nearest * last.sweep());
    if (atStart) curve.reverse();
    reshape(command, entity, {curve});
    return true;
}

using CutAt = bool (*)(Command&, Index, Point, const std::vector<std::pair<Index, FlatCurve>>&);

/// Cuts everything that a fence crosses, where it crosses.
void cutAlong(Command& command, CutAt cut, const std::vector<Point>& fence,
              const std::vector<std::pair<Index, FlatCurve>>& edges)
{
    if (fence.size() < 2) return;
    FlatCurve line;
    for (const Point point : fence) line.vertices.push_back({point});
    drawing::Drawing& drawing = command.drawing();
    for (const drawing::ObjectId id :
         objectsIn(command.document(), drawing::Border::fence, fence)) {
        const Index entity = drawing.indexOf(id);
        const auto curve = FlatCurve::of(command, entity);
        if (!curve || drawing.isLayerLocked(drawing.at(entity).layer())) continue;
        const std::vector<double> met = curve->meets(line);
        if (!met.empty()) cut(command, entity, curve->at(met.front()), edges);
    }
}

// TRIM|EXTEND edges, then objects where they are picked, Fence p p ... Enter, up to Enter
Task<> cutObjects(Command& command, CutAt cut)
{
    const std::vector<Index> chosen = co_await command.selection();
    const std::vector<std::pair<Index, FlatCurve>> edges = edgesOf(command, chosen);
    for (;;) {
        const Answer<Picked> picked =
            co_await command.entity(u"Select object or [Fence/Crossing/Project/Edge/Undo]: ",
                                    u"Fence Crossing Project Edge Undo eRase");
        if (picked.isEnter()) co_return;
        if (picked.is(u"Fence")) {
            std::vector<Point> fence;
            for (;;) {
                const Answer<Point> next = co_await command.point(u"Specify fence point: ");
                if (!next) break;
                fence.push_back(*next);
            }
            cutAlong(command, cut, fence, edges);
            continue;
        }
        if (!picked) command.refuse(u"this option is not available in this host");
        if (command.drawing().isLayerLocked(command.drawing().at(picked->entity).layer())) {
            command.print(u"1 on a locked layer.");
            continue;
        }
        if (!picked->at) command.refuse(u"the object is wanted with a point");
        if (!cut(command, picked->entity, *picked->at, edges)) {
            command.print(u"The object meets no edge.");
        }
    }
}

Task<> trim(Command& command) { return cutObjects(command, trimAt); }
Task<> extend(Command& command) { return cutObjects(command, extendAt); }

constexpr Verb kTable[] = {{u"BREAK", breakObject}, {u"EXTEND", extend}, {u"TRIM", trim}};

} // namespace

std::span<const Verb> cutVerbs() { return kTable; }

} // namespace orvald
