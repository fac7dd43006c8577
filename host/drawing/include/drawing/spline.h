// SPDX-License-Identifier: LicenseRef-ORVALD
// Free curves of SPLINE entities and of the edges of hatches, taken apart into rational Bezier
// pieces: each is one smooth polynomial quotient, so whoever draws or measures needs no knots.
#pragma once

#include "drawing/drawing.h"
#include "drawing/point.h"

#include <vector>

namespace orvald::drawing {

/// What a spline is given by; the counts in it are not trusted.
struct SplineView
{
    int degree = 3;
    std::vector<double> knots, weights; // weights: none, or one a control point
    std::vector<Point> controls;
    std::vector<Point> fits; // points of a curve that is given by them alone
    bool closed = false, periodic = false;
};
/// Of a SPLINE record.
SplineView splineView(const Record& record);

/// Place, first and second derivative at a parameter.
struct Jet
{
    Point at, first, second;
};

struct WeightedPoint
{
    Point at; // times weight
    double weight = 1.0;
};

/// A polynomial quotient over parameters `from` < `to`; one point more than its degree, at least
/// two.
struct BezierPiece
{
    double from = 0.0, to = 1.0;
    std::vector<WeightedPoint> points;

    /// Beyond the ends the same polynomial goes on.
    Jet at(double parameter) const;
};

/// The pieces in order, parameters as the knots have them; spans of no length are left out. A
/// curve given by points alone passes through them, one unit of the parameter from each to the
/// next. Empty when knots, control points and degree (1 to 25) do not make a curve.
std::vector<BezierPiece> bezierPieces(const SplineView& spline);

} // namespace orvald::drawing
