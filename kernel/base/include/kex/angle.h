// SPDX-License-Identifier: LicenseRef-ORVALD
// Angles and bulges. Angles are radians, counter-clockwise from X; a bulge is the tangent of a
// quarter of the included angle, positive counter-clockwise, 0 exactly straight.
#pragma once

#include "kex/export.h"

#include <cmath>
#include <numbers>

namespace KEX {

inline constexpr double kPi = std::numbers::pi;
inline constexpr double kTwoPi = 2.0 * kPi;
/// Angle below which a direction just under a full turn counts as 0, in radians: less than the
/// point tolerance on any radius up to a kilometre, more than the rounding of sums of angles.
inline constexpr double kAngleNoise = 1e-10;
/// Bulge below which primitives count a segment as straight: its rise over a chord of a kilometre
/// is half a millionth of a millimetre.
inline constexpr double kStraightBulge = 1e-12;

/// The same direction from 0 up to, not including, a full turn. An angle within kAngleNoise below a
/// full turn gives 0.0. Not a number stays so, as does infinity.
KEX_BASE_API double g_ang(double angle);

/// Bulge of an included angle: tan(angle/4). A half turn gives 1. Odd: g_ang_bulg(-a) =
/// -g_ang_bulg(a).
inline double g_ang_bulg(double angle) { return std::tan(angle * 0.25); }
/// Included angle of a bulge: 4·atan(bulge), from -2π to 2π; the inverse of g_ang_bulg there.
inline double g_bulg_ang(double bulge) { return std::atan(bulge) * 4.0; }

/// A bulge that primitives treat as 0.
inline bool g_bulg_isStraight(double bulge) { return std::abs(bulge) < kStraightBulge; }

} // namespace KEX
