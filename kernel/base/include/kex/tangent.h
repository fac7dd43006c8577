// SPDX-License-Identifier: LicenseRef-ORVALD
// Tangents of circles, and fillets, in the XY plane. Radii of 0 and below have none. Contacts lie
// at the height of the centre of their circle. Error of a contact: at most 8 ε times the distance
// of the centres, or of point and centre, and the last bit of its coordinates, ε the precision of
// double.
#pragma once

#include "kex/line.h"
#include "kex/vertex.h"

namespace KEX {

/// Contacts of the tangents from p to a circle: first the one left of the way from p to the centre,
/// then the right one; p itself when it is on the circle within `tolLength`, none inside.
KEX_BASE_API FewPoints g_tang_pc(const CKexPoint3d& p, const CKexPoint3d& centre, double r,
                                 double tolLength = CKexPoint3d::tol);
/// Common tangents of two circles, each from its contact with the first to that with the second:
/// outer left, outer right (seen from c1 to c2), inner from left to right, inner from right to
/// left; those of a length up to `tolLength`, where circles touch or lie in each other, are left
/// out.
KEX_BASE_API CKexArrayTempl<Line> g_tang_cc(const CKexPoint3d& c1, double r1, const CKexPoint3d& c2,
                                            double r2, double tolLength = CKexPoint3d::tol);
/// Fillet of radius r in the corner p2 of the path p1-p2-p3, running with the path, at the height
/// of p2. The legs may be shorter than the tangents. Nothing for r of 0 or below, legs of no
/// length, and parallel legs: the sine of the turn is at most `tolAngle`.
KEX_BASE_API std::optional<CKexVertex> g_tang_ll(const CKexPoint3d& p1, const CKexPoint3d& p2,
                                                 const CKexPoint3d& p3, double r, double tolLength,
                                                 double tolAngle);

} // namespace KEX
