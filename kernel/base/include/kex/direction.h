// SPDX-License-Identifier: LicenseRef-ORVALD
// Directions and angles between points. Directions are radians in the XY plane, counter-clockwise
// from X; legs of no length have no direction and give 0.0.
#pragma once

#include "kex/angle.h"
#include "kex/point.h"

namespace KEX {

/// Unit vector of a direction in the XY plane.
inline CKexVector3d directionOf(double angle) { return {std::cos(angle), std::sin(angle)}; }
/// The point at `distance` from p in a direction, at the height of p.
inline CKexPoint3d polar(const CKexPoint3d& p, double angle, double distance)
{
    return p + directionOf(angle) * distance;
}
/// Direction of p to q in XY, as g_ang; 0.0 when they are equal there.
inline double acutAngle(const CKexPoint3d& p, const CKexPoint3d& q)
{
    return g_ang(std::atan2(q.y - p.y, q.x - p.x));
}

/// The part of a vector in the XY plane.
inline CKexVector3d inXY(const CKexVector3d& v) { return {v.x, v.y}; }
/// Cross product of the XY parts: the area that b spans to the left of a.
inline double crossXY(const CKexVector3d& a, const CKexVector3d& b)
{
    return a.x * b.y - a.y * b.x;
}
inline double dotXY(const CKexVector3d& a, const CKexVector3d& b) { return a.x * b.x + a.y * b.y; }
/// Turn from the direction of a to that of b in XY, above -π up to π, left positive.
/// Error: at most 4 ε, and what the vectors bring with them.
inline double turnXY(const CKexVector3d& a, const CKexVector3d& b)
{
    // -0.0 would turn a half turn round.
    return g_ang_halfTurn(std::atan2(crossXY(a, b) + 0.0, dotXY(a, b)));
}

/// Angle in space at p2 between the legs to p1 and p3, from 0 to π; 0.0 when a leg is shorter than
/// `tolLength`. Exchanging p1 and p3 changes nothing.
/// Method: atan2 of cross and scalar product, right for flat and for pointed angles alike.
/// Error: at most 4 ε relative, of the exact angle between the legs.
KEX_BASE_API double g_aabs(const CKexPoint3d& p1, const CKexPoint3d& p2, const CKexPoint3d& p3,
                           double tolLength = CKexPoint3d::tol);
/// Angle in XY at p2 from the leg to p1 counter-clockwise to the leg to p3, as g_ang. It and the
/// one with p1 and p3 exchanged make a full turn, unless the legs have one direction.
inline double g_delta_w(const CKexPoint3d& p1, const CKexPoint3d& p2, const CKexPoint3d& p3)
{
    return g_ang(turnXY(p1 - p2, p3 - p2));
}
/// The same angle above -π up to π.
inline double g_delta_w1(const CKexPoint3d& p1, const CKexPoint3d& p2, const CKexPoint3d& p3)
{
    return turnXY(p1 - p2, p3 - p2);
}
/// Turn of the path p1-p2-p3 at p2 in XY, above -π up to π, left positive.
inline double g_delta_w2(const CKexPoint3d& p1, const CKexPoint3d& p2, const CKexPoint3d& p3)
{
    return turnXY(p2 - p1, p3 - p2);
}

} // namespace KEX
