// SPDX-License-Identifier: LicenseRef-ORVALD
// Planes in space, their distances, intersections and angles. Lengths in drawing units; angles and
// sines of angles in radians.
#pragma once

#include "kex/line.h"
#include "kex/matrix.h"

namespace KEX {

/// A point of the plane and its normal, of length 1.
struct Plane
{
    CKexPoint3d origin;
    CKexVector3d normal{0.0, 0.0, 1.0};
    friend bool operator==(const Plane&, const Plane&) = default;
};

/// The plane through p1 whose normal follows the right-hand rule of p1, p2, p3; nothing when they
/// lie on a line: p1 and p2 are one within `tolLength`, or p3 is no farther than it from their
/// line.
KEX_BASE_API std::optional<Plane> g_plan_3p(const CKexPoint3d& p1, const CKexPoint3d& p2,
                                            const CKexPoint3d& p3,
                                            double tolLength = CKexPoint3d::tol);
/// The XY plane of a system, with the normal on the side of its Z axis; nothing when X and Y are
/// parallel or one of them is null.
KEX_BASE_API std::optional<Plane> g_mtx_plan(const CKexMatrix3d& matrix);
/// A system in the plane, to world coordinates: Z the normal, X the projection of a vector, else
/// that of the arbitrary axis rule (g_mtx_ocs). Nothing for a vector along the normal, the sine at
/// most `tolAngle`, and for a null one. g_mtx_plan gives the plane back.
KEX_BASE_API std::optional<CKexMatrix3d>
g_plan_mtx(const Plane& plane, const std::optional<CKexVector3d>& x, double tolAngle);

/// Distance of p from the plane, positive on the side of the normal.
/// Error: at most 4 ε times the distance of p from the plane's origin.
inline double g_plan_dist(const CKexPoint3d& p, const Plane& plane)
{
    return plane.normal.dot(p - plane.origin);
}
/// p projected into the plane along a direction, else square to it; nothing for a direction
/// parallel to the plane, the sine at most `tolAngle`, and for a null one.
KEX_BASE_API std::optional<CKexPoint3d> g_plan_proj(const CKexPoint3d& p, const Plane& plane,
                                                    const std::optional<CKexVector3d>& direction,
                                                    double tolAngle);
/// Where the infinite line p1-p2 meets the plane; nothing when the sine of their angle is at most
/// `tolAngle`, when the points are one, and, with `segment`, farther than `tolLength` beyond p1 or
/// p2.
KEX_BASE_API std::optional<CKexPoint3d> g_plan_int_l(const Plane& plane, const CKexPoint3d& p1,
                                                     const CKexPoint3d& p2, bool segment,
                                                     double tolLength, double tolAngle);
/// Common line of two planes, from its point nearest to the world's origin one unit along the cross
/// product of the normals; nothing when the sine of their angle is at most `tolAngle`.
KEX_BASE_API std::optional<Line> g_plan_int(const Plane& first, const Plane& second,
                                            double tolAngle);
/// Angle between the normals, from 0 to π; with an edge the turn about it from the first to the
/// second, above -π up to π (g_vc_ang).
KEX_BASE_API double g_plan_ang(const Plane& first, const Plane& second,
                               const std::optional<CKexVector3d>& edge = std::nullopt);
/// The planes are one: normals parallel, each origin within `tolLength` of the other plane; with
/// `sense` the normals point the same way.
KEX_BASE_API bool g_plan_equal(const Plane& first, const Plane& second, bool sense,
                               double tolLength, double tolAngle);

} // namespace KEX
