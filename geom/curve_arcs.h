// SPDX-License-Identifier: LicenseRef-ORVALD
// Plane curves by circular arcs.
#pragma once

#include "kex/vertex.h"

#include <functional>
#include <vector>

namespace KEX {

/// A curve over a parameter; its points have one common Z.
using PlaneCurve = std::function<CKexPoint3d(double)>;

/// Arcs and straight segments along a curve from parameter t0 to t1, appended to `out`; each starts
/// on the curve where the one before ends. `breaks` are parameters strictly between the two at
/// which a segment must end (corners, changes of curvature). `dif` is the largest distance between
/// curve and segments, in drawing units, above 0; it is measured at seven places of each segment.
/// Method: the arc through start, middle and end of a piece, halved until it fits.
void arcsAlong(const PlaneCurve& curve, double t0, double t1, const std::vector<double>& breaks,
               double dif, CKexVertexArray& out);

} // namespace KEX
