// SPDX-License-Identifier: LicenseRef-ORVALD
// Free curves as points close enough for the page.
#pragma once

#include "drawing/drawing.h"
#include "drawing/point.h"

#include <vector>

namespace orvald::picture {

struct Spline
{
    int degree = 3;
    std::vector<double> knots, weights; // weights: none, or one a control point
    std::vector<drawing::Point> controls;
    std::vector<drawing::Point> fits; // points of a curve that is given by them alone
    bool closed = false;
};
/// What a SPLINE record holds; its counts are not trusted.
Spline splineOf(const drawing::Record& record);

/// Points along the curve; `scale` is pixels a unit. Knots that do not fit the control points, or
/// do not rise, give the control points themselves.
std::vector<drawing::Point> splinePoints(const Spline& spline, double scale);

} // namespace orvald::picture
