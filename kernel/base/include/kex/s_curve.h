// SPDX-License-Identifier: LicenseRef-ORVALD
// Fries: the S-curve by which a rail changes between two parallel levels, over a length l with a
// rise h: an arc, a straight piece s, an arc of the other sense that turns back. Lengths in drawing
// units.
#pragma once

#include "kex/vertex.h"

#include <optional>

namespace KEX {

/// Radius of both arcs: (h(1+t²)-2st)/(4t²), t = h/(l+s). 0.0 where that is negative, the straight
/// piece being too long, and for h = 0. Two radii that are not equal have twice this as their sum.
KEX_BASE_API double g_fries_r(double l, double h, double s);
/// Angle by which each arc turns: 2·atan(h/(l+s)), radians.
KEX_BASE_API double g_fries_w(double l, double h, double s);
/// The curve from the origin to (l, h), leaving and arriving in direction 0: an arc of radius r1,
/// the straight piece, an arc of radius r2 = 2·g_fries_r - r1. A negative h mirrors it. A second
/// radius and a straight piece of 0 within `tolLength` are left out. None when r1 is 0 or below, r2
/// farther below 0 than that, or h = 0.
KEX_BASE_API CKexVertexArray g_fries_2r(double l, double h, double r1, double s = 0.0,
                                        double tolLength = CKexPoint3d::tol);

} // namespace KEX
