// SPDX-License-Identifier: LicenseRef-ORVALD
// Vectors in space: products, angles, turning. Angles in radians. Error of an angle: at most 8 ε
// and what the projection onto a plane loses, ε the precision of double.
#pragma once

#include "kex/point.h"

#include <optional>

namespace KEX {

/// Length below which a vector has no direction.
inline constexpr double kNullLength = 1e-12;
/// Part of its length within which a vector counts as square or parallel to another where only
/// rounding keeps it from being so.
inline constexpr double kDirectionNoise = 1e-12;

inline CKexVector3d g_vc_cross(const CKexVector3d& a, const CKexVector3d& b) { return a.cross(b); }
inline double g_vc_dot(const CKexVector3d& a, const CKexVector3d& b) { return a.dot(b); }
inline double g_vc_len(const CKexVector3d& a) { return a.length(); }
/// Angle between a and b, from 0 to π; with an axis the turn about it from a to b after both are
/// projected square to it, above -π up to π, by the right-hand rule. 0.0 when a vector, or what the
/// projection leaves of it, has no length. Exchanging a and b negates the turn, but for π.
KEX_BASE_API double g_vc_ang(const CKexVector3d& a, const CKexVector3d& b,
                             const std::optional<CKexVector3d>& axis = std::nullopt);
/// a turned by an angle about an axis of any length, by the right-hand rule; a for a null axis.
KEX_BASE_API CKexVector3d g_vc_rot(const CKexVector3d& a, const CKexVector3d& axis, double angle);
/// 1 for vectors of one direction, -1 for opposite ones, 0 for neither: the sine of their angle is
/// above `tolAngle`, or one is null.
KEX_BASE_API int g_vc_par(const CKexVector3d& a, const CKexVector3d& b, double tolAngle);

} // namespace KEX
