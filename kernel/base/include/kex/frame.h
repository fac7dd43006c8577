// SPDX-License-Identifier: LicenseRef-ORVALD
// Maps of space and coordinate systems as matrices. A system's matrix takes its coordinates to the
// world's. Angles in radians, counter-clockwise seen against the axis.
#pragma once

#include "kex/matrix.h"
#include "kex/vector.h"

namespace KEX {

/// Determinant up to which a matrix counts as flattening space.
inline constexpr double kFlatDeterminant = 1e-12;

inline CKexMatrix3d g_mtx_move(const CKexVector3d& by) { return CKexMatrix3d::translation(by); }
/// Turn about the axis through `base`; nothing for a null axis. Without them about Z and the
/// origin.
KEX_BASE_API std::optional<CKexMatrix3d> g_mtx_rot(double angle,
                                                   const std::optional<CKexPoint3d>& base,
                                                   const std::optional<CKexVector3d>& axis);
/// Scaling by a factor for each axis about `base`, which stays where it is.
KEX_BASE_API CKexMatrix3d g_mtx_scale(const CKexVector3d& factors, const CKexPoint3d& base);
/// Mirror at the plane through three points, or at the one through two that is square to XY;
/// nothing when they lie on a line, or are one, within `tolLength`. Its own inverse.
KEX_BASE_API std::optional<CKexMatrix3d> g_mtx_mir(const CKexPoint3d& p1, const CKexPoint3d& p2,
                                                   const std::optional<CKexPoint3d>& p3,
                                                   double tolLength = CKexPoint3d::tol);
/// Nothing when the determinant is at most kFlatDeterminant.
KEX_BASE_API std::optional<CKexMatrix3d> g_mtx_inv(const CKexMatrix3d& matrix);
inline CKexVector3d g_mtx_vc(const CKexVector3d& v, const CKexMatrix3d& matrix)
{
    return matrix * v;
}
/// Column 0, 1 or 2: where the unit vectors go; 3: where the origin goes.
inline CKexVector3d g_mtx_column(const CKexMatrix3d& matrix, int column)
{
    return {matrix(0, column), matrix(1, column), matrix(2, column)};
}
/// 0: the origin, 1 to 3: the X, Y and Z axis as they are; nothing for another number.
KEX_BASE_API std::optional<CKexVector3d> g_mtx_axis(const CKexMatrix3d& matrix, int number);
/// The map turns right hands into left ones.
inline bool g_mtx_is_mir(const CKexMatrix3d& matrix) { return matrix.det() < 0.0; }
/// Element by element: 3×3 parts agree within `tolAngle`, translations within `tolLength`.
KEX_BASE_API bool g_mtx_equal(const CKexMatrix3d& first, const CKexMatrix3d& second,
                              double tolLength, double tolAngle);

/// System with its origin at o, X towards px, and positive Y on the side of py; axes of length 1,
/// right handed. Nothing when the points lie on a line: o and px are one within `tolLength`, or py
/// is no farther than it from their line.
KEX_BASE_API std::optional<CKexMatrix3d> g_mtx_3p(const CKexPoint3d& o, const CKexPoint3d& px,
                                                  const CKexPoint3d& py,
                                                  double tolLength = CKexPoint3d::tol);
/// System with the axes as they are given; without z it is x × y.
KEX_BASE_API CKexMatrix3d g_mtx_axes(const CKexPoint3d& o, const CKexVector3d& x,
                                     const CKexVector3d& y, const std::optional<CKexVector3d>& z);
/// System of a normal by the host's arbitrary axis rule: X is square to the world's Y for a normal
/// within 1/64 of the Z axis, else to the world's Z. Nothing for a null normal.
KEX_BASE_API std::optional<CKexMatrix3d>
g_mtx_ocs(const CKexVector3d& normal, const std::optional<CKexPoint3d>& origin = std::nullopt);

} // namespace KEX
