// SPDX-License-Identifier: LicenseRef-ORVALD
// Points moved, mirrored and measured along directions. Directions are radians in the XY plane.
#pragma once

#include "kex/direction.h"
#include "kex/matrix.h"
#include "kex/vector.h"

namespace KEX {

/// One coordinate changed, the others untouched: X negated, Y negated, Z set to 0.
inline CKexPoint3d g_p_mrx(const CKexPoint3d& p) { return {-p.x, p.y, p.z}; }
inline CKexPoint3d g_p_mry(const CKexPoint3d& p) { return {p.x, -p.y, p.z}; }
inline CKexPoint3d g_p_xy(const CKexPoint3d& p) { return {p.x, p.y, 0.0}; }
inline CKexPoint3d g_p_mov(const CKexPoint3d& p, const CKexVector3d& by) { return p + by; }
inline CKexPoint3d g_p_mtx(const CKexPoint3d& p, const CKexMatrix3d& matrix) { return matrix * p; }
/// The point, taken as a vector, scaled to length 1; the origin when it is shorter than
/// kNullLength.
inline CKexPoint3d g_nrm_p(const CKexPoint3d& p)
{
    const double length = p.asVector().length();
    return length < kNullLength ? CKexPoint3d() : CKexPoint3d() + p.asVector() * (1.0 / length);
}

/// Distance from p1 to p2 along a direction, negative against it; in XY.
inline double g_dist_w(const CKexPoint3d& p1, const CKexPoint3d& p2, double angle)
{
    return dotXY(directionOf(angle), p2 - p1);
}
/// Distance of p2 from the line through p1 in a direction, positive on its left; in XY.
inline double g_dist_w1(const CKexPoint3d& p1, const CKexPoint3d& p2, double angle)
{
    return crossXY(directionOf(angle), p2 - p1);
}
/// Distance in XY.
inline double g_dist2d(const CKexPoint3d& p1, const CKexPoint3d& p2)
{
    return (p2 - p1).lengthXY();
}

/// Stretching: p moved by `distance` in a direction when it lies more than `tolLength` beyond q in
/// that direction, else p.
inline CKexPoint3d g_p_stretch(const CKexPoint3d& p, const CKexPoint3d& q, double angle,
                               double distance, double tolLength = CKexPoint3d::tol)
{
    return g_dist_w(q, p, angle) > tolLength ? polar(p, angle, distance) : p;
}

/// Coordinates of p in the system with its origin at o, X towards px and positive Y on the side of
/// py; with `back` p is given in that system and the result in the world. Each is the inverse of
/// the other. p itself when the three points lie on a line (g_mtx_3p).
KEX_BASE_API CKexPoint3d g_p_trans3p(const CKexPoint3d& p, const CKexPoint3d& o,
                                     const CKexPoint3d& px, const CKexPoint3d& py, bool back,
                                     double tolLength = CKexPoint3d::tol);

} // namespace KEX
