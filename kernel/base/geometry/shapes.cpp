// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/shapes.h"

#include "kex/arc.h"
#include "kex/ellipse.h"

#include <algorithm>

namespace KEX {
namespace {

/// The closed list through corners, each with the bulge of the segment that starts there; segments
/// without length are left out.
CKexVertexArray closedList(const CKexPoint3dArray& corners, const double* bulges, int period)
{
    CKexVertexArray list;
    list.reserve(corners.length());
    for (int i = 0; i < corners.length(); ++i) {
        const CKexPoint3d& start = corners[i];
        const CKexPoint3d& end = corners[i + 1 == corners.length() ? 0 : i + 1];
        if (!(start == end)) list.append(CKexVertex(start, end, bulges[i % period]));
    }
    return list;
}

constexpr double kStraightOnly[] = {0.0};

/// Sizes that make a shape: above 0 and finite.
bool isSize(double size) { return size > 0.0 && std::isfinite(size); }

} // namespace

CKexVertexArray g_mk_rect(const CKexPoint3d& p, double w, double h, double angle, double r,
                          double tolLength)
{
    const double half = 0.5 * std::min(w, h);
    if (!isSize(w) || !isSize(h) || !(r >= 0.0) || !(r <= half + tolLength)) return {};
    const CKexVector3d x = directionOf(angle), y = x.perpXY();
    const auto at = [&](double right, double up) { return p + (x * right + y * up); };
    if (r <= tolLength && r < half) {
        return closedList({at(0, 0), at(w, 0), at(w, h), at(0, h)}, kStraightOnly, 1);
    }
    if (r > half - tolLength) r = half; // no side is left that is shorter than the tolerance
    const double quarter = g_ang_bulg(0.5 * kPi);
    const double bulges[] = {0.0, quarter};
    return closedList({at(r, 0), at(w - r, 0), at(w, r), at(w, h - r), at(w - r, h), at(r, h),
                       at(0, h - r), at(0, r)},
                      bulges, 2);
}

CKexVertexArray g_mk_circ(const CKexPoint3d& centre, double r, double angle)
{
    if (!isSize(r)) return {};
    const CKexVector3d reach = directionOf(angle) * r;
    const CKexPoint3d start = centre + reach, opposite = centre - reach;
    return {CKexVertex(start, opposite, 1.0), CKexVertex(opposite, start, 1.0)};
}

CKexVertexArray g_mk_slot(const CKexPoint3d& p1, const CKexPoint3d& p2, double d, double tolLength)
{
    const CKexVector3d way = inXY(p2 - p1);
    const double length = way.lengthXY();
    if (!isSize(d)) return {};
    if (!(length > tolLength)) return g_mk_circ(p1, 0.5 * d);
    const CKexVector3d left = way.perpXY() * (0.5 * d / length);
    const CKexPoint3d end = p1 + way; // at the height of p1
    const double bulges[] = {0.0, 1.0};
    return closedList({p1 - left, end - left, end + left, p1 + left}, bulges, 2);
}

CKexVertexArray g_mk_neck(const CKexPoint3d& centre, int n, double r, double angle, bool inscribed)
{
    if (n < 3 || n > kMostCorners || !isSize(r)) return {};
    const double step = kTwoPi / n;
    const double reach = inscribed ? r / std::cos(0.5 * step) : r;
    CKexPoint3dArray corners;
    corners.reserve(n);
    for (int i = 0; i < n; ++i) corners.append(polar(centre, angle + i * step, reach));
    return closedList(corners, kStraightOnly, 1);
}

namespace {

/// An ellipse about the origin with its axes on X and Y, by equal steps of its parameter.
class EllipseArcs
{
public:
    EllipseArcs(double a, double b, int arcsPerQuarter)
        : a_(a), b_(b), step_(0.5 * kPi / arcsPerQuarter)
    {
    }
    CKexPoint3d at(double steps) const
    {
        return {a_ * std::cos(steps * step_), b_ * std::sin(steps * step_)};
    }
    CKexVertex arc(int i) const
    {
        const CKexPoint3d start = at(i), end = at(i + 1);
        double bulge = 0.0;
        g_arc3p_bulg(start, at(i + 0.5), end, bulge, 0.0);
        return CKexVertex(start, end, bulge);
    }
    /// Largest distance between arc and ellipse, at places between the arc's ends.
    /// Method: the equation of the circle through the start, divided by its gradient, which holds
    /// its digits for arcs as flat as can be.
    double deviation(int i) const
    {
        constexpr int kPlaces = 9;
        const CKexVertex segment = arc(i);
        const CKexVector3d chord = segment.endPoint() - segment.startPoint();
        const double b = segment.bulge();
        double most = 0.0;
        for (int place = 1; place <= kPlaces; ++place) {
            const CKexPoint3d p = at(i + static_cast<double>(place) / (kPlaces + 1));
            const CKexVector3d q = p - segment.startPoint();
            const double equation =
                b * dotXY(q, q - chord) - 0.5 * (1.0 - b * b) * crossXY(chord, q);
            most = std::max(most, std::abs(equation));
        }
        const double gradient = 0.5 * chord.lengthXY() * (1.0 + b * b);
        return gradient > 0.0 ? most / gradient : 0.0; // no length, no distance
    }

private:
    double a_, b_, step_;
};

/// All arcs of a quarter keep the distance: by symmetry so do all.
bool ellipseFits(double a, double b, int arcsPerQuarter, double dif)
{
    const EllipseArcs arcs(a, b, arcsPerQuarter);
    for (int i = 0; i < arcsPerQuarter; ++i) {
        if (!(arcs.deviation(i) <= dif)) return false;
    }
    return true;
}

} // namespace

CKexVertexArray g_mk_elps(const CKexPoint3d& centre, double a, double b, double rot, double dif)
{
    if (!isSize(a) || !isSize(b) || !(dif > 0.0)) return {};
    // Doubled until it fits, then halved in between: the deviation falls with the number of arcs.
    int enough = 1;
    while (!ellipseFits(a, b, enough, dif)) {
        if (enough >= kMostCorners / 4) return {};
        enough = std::min(2 * enough, kMostCorners / 4);
    }
    for (int tooFew = enough / 2; enough - tooFew > 1;) {
        const int middle = tooFew + (enough - tooFew) / 2;
        (ellipseFits(a, b, middle, dif) ? enough : tooFew) = middle;
    }
    const EllipseArcs arcs(a, b, enough);
    const CKexVector3d x = directionOf(rot), y = x.perpXY();
    const auto placed = [&](const CKexPoint3d& p) { return centre + (x * p.x + y * p.y); };
    CKexVertexArray list;
    list.reserve(4 * enough);
    CKexPoint3d start = placed(arcs.at(0));
    for (int i = 0; i < 4 * enough; ++i) {
        const CKexPoint3d end = placed(arcs.at(i + 1 == 4 * enough ? 0 : i + 1));
        list.append(CKexVertex(start, end, arcs.arc(i).bulge()));
        start = end;
    }
    return list;
}

} // namespace KEX
