// SPDX-License-Identifier: LicenseRef-ORVALD
#include "curve_arcs.h"

#include "kex/arc.h"

#include <algorithm>
#include <cmath>

namespace KEX {
namespace {

// A piece is never halved more often: 2^-20 of a curve is below any sensible tolerance.
constexpr int kDeepest = 20;
// A sharper piece is halved in any case, so that three points cannot miss a loop.
constexpr double kLargestBulge = 0.42; // just over a quarter turn

/// Distance of a point from a segment's arc, or from its carrier line when it is straight.
double distance(const CKexVertex& segment, const CKexPoint3d& p)
{
    if (!segment.isStraight()) {
        return std::abs((p - segment.center()).lengthXY() - segment.radius());
    }
    const CKexVector3d along = segment.endPoint() - segment.startPoint();
    const CKexVector3d to = p - segment.startPoint();
    const double length = along.lengthXY();
    return length == 0.0 ? to.lengthXY() : std::abs(along.x * to.y - along.y * to.x) / length;
}

void addPiece(const PlaneCurve& curve, double t0, double t1, double dif, int depth,
              CKexVertexArray& out)
{
    const CKexPoint3d start = curve(t0), end = curve(t1);
    double bulge = 0.0;
    g_arc3p_bulg(start, curve(0.5 * (t0 + t1)), end, bulge, 0.0);
    const CKexVertex segment(start, end, bulge);
    bool fits = std::abs(segment.bulge()) <= kLargestBulge;
    for (int i = 1; fits && i < 8; ++i)
        fits = distance(segment, curve(t0 + (t1 - t0) * i / 8)) <= dif;
    if (fits || depth == kDeepest) {
        out.append(segment);
        return;
    }
    const double middle = 0.5 * (t0 + t1);
    addPiece(curve, t0, middle, dif, depth + 1, out);
    addPiece(curve, middle, t1, dif, depth + 1, out);
}

} // namespace

void arcsAlong(const PlaneCurve& curve, double t0, double t1, const std::vector<double>& breaks,
               double dif, CKexVertexArray& out)
{
    std::vector<double> stops = breaks;
    stops.push_back(t1);
    for (const double stop : stops) {
        addPiece(curve, t0, stop, dif, 0, out);
        t0 = stop;
    }
}

} // namespace KEX
