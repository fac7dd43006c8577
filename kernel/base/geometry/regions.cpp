// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/regions.h"

#include "kex/vertex_area.h"
#include "kex/vertex_place.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <utility>
#include <vector>

namespace KEX {
namespace {

/// Free ends of curves in cells of the joining distance.
class FreeEnds
{
public:
    struct End
    {
        int curve;
        bool atEnd;
        CKexPoint3d at;
    };

    explicit FreeEnds(double tolJoin) : tol_(tolJoin), cell_(std::max(tolJoin, 1e-9)) {}

    void add(int curve, const CKexVertexArray& list)
    {
        for (const End& end : {End{curve, false, list.first().startPoint()},
                               End{curve, true, list.last().endPoint()}}) {
            cells_[cellOf(end.at.x, end.at.y)].push_back(end);
        }
    }
    void remove(int curve, const CKexVertexArray& list)
    {
        for (const CKexPoint3d& p : {list.first().startPoint(), list.last().endPoint()}) {
            std::erase_if(cells_[cellOf(p.x, p.y)],
                          [curve](const End& end) { return end.curve == curve; });
        }
    }
    /// The nearest end to p, the first of equals; null when none is near enough.
    const End* nearest(const CKexPoint3d& p) const
    {
        const End* best = nullptr;
        double least = tol_;
        for (int dx = -1; dx <= 1; ++dx) {
            for (int dy = -1; dy <= 1; ++dy) {
                const auto found = cells_.find(cellOf(p.x + dx * cell_, p.y + dy * cell_));
                if (found == cells_.end()) continue;
                for (const End& end : found->second) {
                    const double distance = end.at.distanceTo(p);
                    const bool first = best == nullptr || end.curve < best->curve;
                    if (distance < least || (distance == least && first)) {
                        best = &end;
                        least = distance;
                    }
                }
            }
        }
        return best;
    }

private:
    std::pair<double, double> cellOf(double x, double y) const
    {
        return {std::floor(x / cell_), std::floor(y / cell_)};
    }
    double tol_, cell_;
    std::map<std::pair<double, double>, std::vector<End>> cells_;
};

CKexPoint3d between(const CKexPoint3d& a, const CKexPoint3d& b) { return a + (b - a) * 0.5; }

bool hasArea(const CKexVertexArray& loop)
{
    return std::abs(vl_area(loop)) > CKexPoint3d::tol * CKexPoint3d::tol;
}

/// The loop in a sense, from its lowest, then leftmost corner.
CKexVertexArray arranged(const CKexVertexArray& given, bool counterClockwise)
{
    const CKexVertexArray loop =
        (vl_area(given) > 0.0) == counterClockwise ? given : vl_reversed(given);
    double lowest = std::numeric_limits<double>::infinity();
    for (const CKexVertex& vertex : loop) lowest = std::min(lowest, vertex.startPoint().y);
    int first = -1;
    for (int i = 0; i < loop.length(); ++i) {
        const CKexPoint3d& p = loop[i].startPoint();
        if (p.y > lowest + CKexPoint3d::tol) continue;
        if (first < 0 || p.x < loop[first].startPoint().x) first = i;
    }
    CKexVertexArray result;
    for (int i = 0; i < loop.length(); ++i) result.append(loop[(first + i) % loop.length()]);
    return result;
}

struct Loop
{
    const CKexVertexArray* list;
    Box box;
    double area; // never negative
    std::vector<int> around;
};

/// Whether a loop that does not cross the other lies within it: some point of it that is not on the
/// other's edge tells.
bool liesIn(const Loop& inner, const Loop& outer)
{
    const Box &a = inner.box, &b = outer.box;
    const double tol = CKexPoint3d::tol;
    if (inner.area > outer.area || a.min.x < b.min.x - tol || a.max.x > b.max.x + tol ||
        a.min.y < b.min.y - tol || a.max.y > b.max.y + tol) {
        return false;
    }
    for (const CKexVertex& vertex : *inner.list) {
        for (const double share : {0.5, 0.0}) {
            const int side = vl_inside(*outer.list, vx_point(vertex, share));
            if (side != 0) return side > 0;
        }
    }
    return false;
}

std::vector<Loop> nested(const CKexArrayTempl<CKexVertexArray>& lists)
{
    std::vector<Loop> loops;
    for (const CKexVertexArray& list : lists) {
        Box box = vx_box(list.first());
        for (const CKexVertex& vertex : list) box.add(vx_box(vertex));
        loops.push_back({&list, box, std::abs(vl_area(list)), {}});
    }
    for (Loop& inner : loops) {
        for (int i = 0; i < static_cast<int>(loops.size()); ++i) {
            const Loop& outer = loops[static_cast<std::size_t>(i)];
            if (&outer != &inner && liesIn(inner, outer)) inner.around.push_back(i);
        }
    }
    return loops;
}

} // namespace

CKexArrayTempl<CKexVertexArray> vl_loops(const CKexArrayTempl<CKexVertexArray>& curves,
                                         double tolJoin)
{
    CKexArrayTempl<CKexVertexArray> loops;
    FreeEnds ends(tolJoin);
    std::vector<bool> used(static_cast<std::size_t>(curves.length()), true);
    const auto isUsed = [&](int i) { return used[static_cast<std::size_t>(i)]; };
    for (int i = 0; i < curves.length(); ++i) {
        if (curves[i].isEmpty()) continue;
        if (curves[i].isClosed()) {
            if (hasArea(curves[i])) loops.append(curves[i]);
            continue;
        }
        used[static_cast<std::size_t>(i)] = false;
        ends.add(i, curves[i]);
    }
    for (int i = 0; i < curves.length(); ++i) {
        if (isUsed(i)) continue;
        CKexVertexArray path = curves[i];
        const auto use = [&](int curve) {
            used[static_cast<std::size_t>(curve)] = true;
            ends.remove(curve, curves[curve]);
        };
        use(i);
        // A path that leads nowhere takes its curves along: they are no part of another loop then.
        while (true) {
            CKexVertex& last = path.last();
            const FreeEnds::End* const next = ends.nearest(last.endPoint());
            const double home = path.length() > 1 || !last.isStraight()
                                    ? last.endPoint().distanceTo(path.first().startPoint())
                                    : std::numeric_limits<double>::infinity();
            if (home <= tolJoin &&
                (next == nullptr || home <= next->at.distanceTo(last.endPoint()))) {
                const CKexPoint3d middle = between(last.endPoint(), path.first().startPoint());
                last.setEndPoint(middle);
                path.first().setStartPoint(middle);
                if (hasArea(path)) loops.append(path);
                break;
            }
            if (next == nullptr) break;
            const int curve = next->curve;
            CKexVertexArray piece = next->atEnd ? vl_reversed(curves[curve]) : curves[curve];
            const CKexPoint3d middle = between(last.endPoint(), piece.first().startPoint());
            last.setEndPoint(middle);
            piece.first().setStartPoint(middle);
            use(curve);
            path.append(piece);
        }
    }
    return loops;
}

CKexArrayTempl<Region> g_regions(const CKexArrayTempl<CKexVertexArray>& lists)
{
    const std::vector<Loop> loops = nested(lists);
    struct Found
    {
        double area;
        Region region;
    };
    std::vector<Found> found;
    std::map<const Loop*, std::size_t> placeOf;
    for (const Loop& loop : loops) {
        if (loop.around.size() % 2 != 0) continue;
        placeOf[&loop] = found.size();
        Found one{loop.area, {}};
        one.region.append(arranged(*loop.list, true));
        found.push_back(std::move(one));
    }
    for (const Loop& hole : loops) {
        if (hole.around.size() % 2 == 0) continue;
        // The one around it that has itself one around it less.
        for (const int i : hole.around) {
            const Loop& outer = loops[static_cast<std::size_t>(i)];
            if (outer.around.size() + 1 != hole.around.size()) continue;
            found[placeOf[&outer]].region.append(arranged(*hole.list, false));
            break;
        }
    }
    std::ranges::stable_sort(found, std::ranges::greater(), &Found::area);
    CKexArrayTempl<Region> regions;
    for (Found& one : found) regions.append(std::move(one.region));
    return regions;
}

} // namespace KEX
