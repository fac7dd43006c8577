// SPDX-License-Identifier: LicenseRef-ORVALD
#include "geom/entity_inters.h"

#include "curve_inters.h"
#include "geom/entity_place.h"
#include "kex/intersection.h"

#include <algorithm>
#include <cmath>

namespace KEX {
namespace {

/// The points in their order, without those that are one with an earlier one.
CKexPoint3dArray distinct(const std::vector<CurvePoint>& points)
{
    CKexPoint3dArray kept;
    for (const CurvePoint& one : points) {
        const bool known =
            std::ranges::any_of(kept, [&](const CKexPoint3d& p) { return p.isEqualTo(one.point); });
        if (!known) kept.append(one.point);
    }
    return kept;
}

/// Points by X, Y and Z, each once: those that are one are neighbours in X.
CKexPoint3dArray sortedOnce(std::vector<CurvePoint> points)
{
    const auto before = [](const CKexPoint3d& a, const CKexPoint3d& b) {
        return a.x != b.x ? a.x < b.x : a.y != b.y ? a.y < b.y : a.z < b.z;
    };
    std::ranges::sort(points, before, &CurvePoint::point);
    CKexPoint3dArray kept;
    for (const CurvePoint& one : points) {
        bool known = false;
        for (int i = kept.length() - 1; i >= 0 && !known; --i) {
            if (kept[i].x < one.point.x - CKexPoint3d::tol) break;
            known = kept[i].isEqualTo(one.point);
        }
        if (!known) kept.append(one.point);
    }
    return kept;
}

struct Member
{
    EntityCurve curve;
    Box box;
};

std::vector<Member> membersOf(const CKexEnameArray& list)
{
    std::vector<Member> members;
    for (const CKexEname& name : list) {
        auto curve = EntityCurve::of(name);
        if (!curve) continue;
        const Box box = curveBox(*curve);
        members.push_back({std::move(*curve), box});
    }
    return members;
}

/// A box in XY.
struct Window
{
    CKexPoint3d min, max;

    bool holds(const Box& box) const
    {
        return box.min.x >= min.x && box.max.x <= max.x && box.min.y >= min.y && box.max.y <= max.y;
    }
    bool holds(const CKexPoint3d& p) const { return holds(Box{p, p}); }
    bool touches(const Box& box) const
    {
        return box.min.x <= max.x && box.max.x >= min.x && box.min.y <= max.y && box.max.y >= min.y;
    }
};

/// Liang and Barsky: some part of the way from p to q is within all four sides.
bool passes(const CKexPoint3d& p, const CKexPoint3d& q, const Window& window)
{
    double from = 0.0, to = 1.0;
    const auto clip = [&](double start, double way, double least, double most) {
        if (way == 0.0) return start >= least && start <= most;
        const auto [near, far] = std::minmax({(least - start) / way, (most - start) / way});
        from = std::max(from, near);
        to = std::min(to, far);
        return from <= to;
    };
    return clip(p.x, q.x - p.x, window.min.x, window.max.x) &&
           clip(p.y, q.y - p.y, window.min.y, window.max.y);
}

/// An arc that runs parallel to XY begins in the window or crosses one of its sides.
bool arcPasses(const CKexVertex& arc, const Window& window)
{
    if (window.holds(arc.startPoint())) return true;
    const CKexPoint3d corners[] = {
        window.min, {window.max.x, window.min.y}, window.max, {window.min.x, window.max.y}};
    const double tol = CKexPoint3d::tol;
    const Window wider{window.min - CKexVector3d(tol, tol), window.max + CKexVector3d(tol, tol)};
    for (int side = 0; side < 4; ++side) {
        for (const CKexPoint3d& p :
             g_cli(arc.center(), arc.radius(), corners[side], corners[(side + 1) % 4])) {
            const CKexPoint3d foot = vx_point(arc, vx_nearest(arc, p));
            if (wider.holds(p) && (foot - p).lengthXY() <= tol) return true;
        }
    }
    return false;
}

/// Some part of a segment is in the window, as seen along Z.
bool enters(const CKexVertex& vertex, const EntityCurve& curve, const Window& window)
{
    if (!vertex.isStraight() && !curve.isTilted()) return arcPasses(vertex, window);
    // A tilted arc is seen as part of an ellipse; chords stand for it.
    constexpr int kChords = 256;
    const int count = vertex.isStraight() ? 1 : kChords;
    CKexPoint3d p = curve.toWorld(vertex.startPoint());
    for (int i = 1; i <= count; ++i) {
        const CKexPoint3d q = curve.toWorld(vx_point(vertex, static_cast<double>(i) / count));
        if (passes(p, q, window)) return true;
        p = q;
    }
    return false;
}

bool enters(const CKexEname& name, const Window& window, const Box& box)
{
    if (!window.touches(box)) return false;
    const auto curve = EntityCurve::of(name);
    if (!curve) return true;
    return std::ranges::any_of(
        curve->list(), [&](const CKexVertex& vertex) { return enters(vertex, *curve, window); });
}

} // namespace

CKexPoint3dArray e_inters(const CAdsName& a, const CAdsName& b, Extend extend)
{
    const auto first = EntityCurve::of(a), second = EntityCurve::of(b);
    if (!first || !second) return {};
    const auto goesOn = [extend](Extend one) {
        return (static_cast<int>(extend) & static_cast<int>(one)) != 0;
    };
    std::vector<CurvePoint> points;
    curveInters(*first, *second, goesOn(Extend::first), goesOn(Extend::second), points);
    std::ranges::stable_sort(points, {}, &CurvePoint::place);
    return distinct(points);
}

CKexPoint3dArray el_int(const CKexEnameArray& list, bool self)
{
    std::vector<Member> members = membersOf(list);
    std::ranges::sort(members, {}, [](const Member& member) { return member.box.min.x; });
    std::vector<CurvePoint> points;
    for (std::size_t i = 0; i < members.size(); ++i) {
        const Member& member = members[i];
        if (self) curveSelfInters(member.curve, points);
        for (std::size_t k = i + 1; k < members.size(); ++k) {
            if (members[k].box.min.x > member.box.max.x + CKexPoint3d::tol) break;
            curveInters(member.curve, members[k].curve, false, false, points);
        }
    }
    return sortedOnce(std::move(points));
}

CKexEnameArray el_win(const CKexEnameArray& list, const CKexPoint3d& p1, const CKexPoint3d& p2,
                      bool crossing)
{
    Box corners{p1, p1};
    corners.add(p2);
    const Window window{corners.min, corners.max};
    CKexEnameArray found;
    for (const CKexEname& name : list) {
        const std::optional<Box> box = e_ext(name);
        if (box && (window.holds(*box) || (crossing && enters(name, window, *box)))) {
            found.append(name);
        }
    }
    return found;
}

} // namespace KEX
