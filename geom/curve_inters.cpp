// SPDX-License-Identifier: LicenseRef-ORVALD
// A pair of segments is looked at in the coordinates of the one that is an arc, where its plane is
// level: what crosses that plane is a point, what lies in it is a question of the plane.
#include "curve_inters.h"

#include "kex/intersection.h"

#include <algorithm>
#include <cmath>

namespace KEX {
namespace {

/// A circle anywhere: centre + cos t · x + sin t · y.
struct Circle
{
    CKexPoint3d centre;
    CKexVector3d x, y;
};

/// One segment of a curve.
struct Segment
{
    const EntityCurve* curve;
    const CKexVertex* vertex;
    bool extended;

    bool isArc() const { return !vertex->isStraight(); }
    CKexPoint3d start() const { return curve->toWorld(vertex->startPoint()); }
    CKexPoint3d end() const { return curve->toWorld(vertex->endPoint()); }
    /// World point of an arc's circle.
    Circle circle() const
    {
        const double r = vertex->radius();
        return {curve->toWorld(vertex->center()), curve->toWorld(CKexVector3d(r, 0.0)),
                curve->toWorld(CKexVector3d(0.0, r))};
    }
    double share(const CKexPoint3d& world) const
    {
        return vx_nearest(*vertex, curve->fromWorld(world), extended);
    }
    bool holds(const CKexPoint3d& world) const
    {
        const CKexPoint3d p = curve->fromWorld(world);
        return vx_point(*vertex, vx_nearest(*vertex, p, extended)).isEqualTo(p);
    }
};

Box boxOf(const Segment& segment) { return vx_box(*segment.vertex, segment.curve->system()); }

bool areApart(const Box& a, const Box& b)
{
    const double tol = CKexPoint3d::tol;
    return a.min.x > b.max.x + tol || b.min.x > a.max.x + tol || a.min.y > b.max.y + tol ||
           b.min.y > a.max.y + tol || a.min.z > b.max.z + tol || b.min.z > a.max.z + tol;
}

class PairFinder
{
public:
    PairFinder(const Segment& a, const Segment& b, int vertexOfA, std::vector<CurvePoint>& out)
        : a_(a), b_(b), vertexOfA_(vertexOfA), out_(out)
    {
    }

    void find()
    {
        if (a_.isArc() && b_.isArc()) arcs();
        else if (a_.isArc()) lineAndArc(b_, a_);
        else if (b_.isArc()) lineAndArc(a_, b_);
        else lines();
    }

private:
    void take(const CKexPoint3d& world)
    {
        if (a_.holds(world) && b_.holds(world)) {
            out_.push_back({vertexOfA_ + a_.share(world), world});
        }
    }
    /// Of segments that lie on one line or circle the ends that both have.
    void takeEnds()
    {
        for (const Segment* segment : {&a_, &b_}) {
            if (segment->extended) continue;
            take(segment->start());
            take(segment->end());
        }
    }

    void lines()
    {
        const CKexPoint3d p = a_.start(), q = b_.start();
        const CKexVector3d u = a_.end() - p, v = b_.end() - q, w = q - p;
        const CKexVector3d n = u.cross(v);
        const double square = n.dot(n);
        constexpr double kParallel = 1e-12; // sine of the angle
        if (square <= kParallel * kParallel * u.dot(u) * v.dot(v)) return takeEnds();
        // Where the lines are nearest to each other.
        take(p + u * (w.cross(v).dot(n) / square));
    }

    void lineAndArc(const Segment& line, const Segment& arc)
    {
        const CKexPoint3d p = arc.curve->fromWorld(line.start()),
                          q = arc.curve->fromWorld(line.end());
        const double height = arc.vertex->startPoint().z, tol = CKexPoint3d::tol;
        const auto give = [&](const CKexPoint3d& own) { take(arc.curve->toWorld(own)); };
        if (std::abs(p.z - height) <= tol && std::abs(q.z - height) <= tol) {
            for (const CKexPoint3d& point :
                 g_cli(arc.vertex->center(), arc.vertex->radius(), p, q)) {
                give(point);
            }
        } else if (p.z != q.z) {
            give(p + (q - p) * ((height - p.z) / (q.z - p.z)));
        }
    }

    void arcs()
    {
        // The second circle in the coordinates of the first arc.
        Circle circle = b_.circle();
        circle = {
            a_.curve->fromWorld(circle.centre),
            a_.curve->fromWorld(CKexPoint3d() + circle.x) - a_.curve->fromWorld(CKexPoint3d()),
            a_.curve->fromWorld(CKexPoint3d() + circle.y) - a_.curve->fromWorld(CKexPoint3d())};
        const CKexPoint3d centre = a_.vertex->center();
        const double rise = centre.z - circle.centre.z, tilt = std::hypot(circle.x.z, circle.y.z);
        const double tol = CKexPoint3d::tol;
        if (tilt <= tol) {
            if (std::abs(rise) <= tol) levelArcs(centre, circle.centre);
            return;
        }
        // Its height is centre.z + tilt · cos(t - t0).
        const double share = rise / tilt;
        if (std::abs(share) > 1.0 + tol / tilt) return;
        const double t0 = std::atan2(circle.y.z, circle.x.z);
        const double half = std::acos(std::clamp(share, -1.0, 1.0));
        for (const double t : {t0 - half, t0 + half}) {
            take(
                a_.curve->toWorld(circle.centre + circle.x * std::cos(t) + circle.y * std::sin(t)));
        }
    }

    void levelArcs(const CKexPoint3d& c1, const CKexPoint3d& c2)
    {
        const double r1 = a_.vertex->radius(), r2 = b_.vertex->radius();
        if (c1.isEqualTo(c2) && std::abs(r1 - r2) <= CKexPoint3d::tol) return takeEnds();
        for (const CKexPoint3d& point : g_cci(c1, r1, c2, r2)) take(a_.curve->toWorld(point));
    }

    const Segment &a_, &b_;
    int vertexOfA_;
    std::vector<CurvePoint>& out_;
};

std::vector<Segment> segmentsOf(const EntityCurve& curve, bool extended)
{
    std::vector<Segment> segments;
    for (const CKexVertex& vertex : curve.list()) {
        segments.push_back({&curve, &vertex, extended && curve.isSingle()});
    }
    return segments;
}

std::vector<Box> boxesOf(const std::vector<Segment>& segments)
{
    std::vector<Box> boxes;
    for (const Segment& segment : segments) boxes.push_back(boxOf(segment));
    return boxes;
}

} // namespace

Box curveBox(const EntityCurve& curve)
{
    const std::vector<Box> boxes = boxesOf(segmentsOf(curve, false));
    Box all = boxes.front();
    for (const Box& box : boxes) all.add(box);
    return all;
}

void curveInters(const EntityCurve& a, const EntityCurve& b, bool extendA, bool extendB,
                 std::vector<CurvePoint>& out)
{
    const std::vector<Segment> first = segmentsOf(a, extendA), second = segmentsOf(b, extendB);
    const std::vector<Box> firstBoxes = boxesOf(first), secondBoxes = boxesOf(second);
    for (std::size_t i = 0; i < first.size(); ++i) {
        for (std::size_t k = 0; k < second.size(); ++k) {
            const bool open = first[i].extended || second[k].extended;
            if (!open && areApart(firstBoxes[i], secondBoxes[k])) continue;
            PairFinder(first[i], second[k], static_cast<int>(i), out).find();
        }
    }
}

void curveSelfInters(const EntityCurve& curve, std::vector<CurvePoint>& out)
{
    const std::vector<Segment> segments = segmentsOf(curve, false);
    const std::vector<Box> boxes = boxesOf(segments);
    const std::size_t count = segments.size();
    for (std::size_t i = 0; i < count; ++i) {
        for (std::size_t k = i + 1; k < count; ++k) {
            if (areApart(boxes[i], boxes[k])) continue;
            std::vector<CurvePoint> found;
            PairFinder(segments[i], segments[k], static_cast<int>(i), found).find();
            const bool next = k == i + 1, around = i == 0 && k + 1 == count && curve.isClosed();
            for (const CurvePoint& one : found) {
                const bool joint = (next && one.point.isEqualTo(segments[k].start())) ||
                                   (around && one.point.isEqualTo(segments[i].start()));
                if (!joint) out.push_back(one);
            }
        }
    }
}

} // namespace KEX
