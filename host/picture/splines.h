// SPDX-License-Identifier: LicenseRef-ORVALD
// Free curves as points close enough for the page.
#pragma once

#include "drawing/spline.h"

#include <vector>

namespace orvald::picture {

/// Points along the curve; `scale` is pixels a unit. Knots that do not fit the control points, or
/// do not rise, give the control points themselves.
std::vector<drawing::Point> splinePoints(const drawing::SplineView& spline, double scale);

} // namespace orvald::picture
