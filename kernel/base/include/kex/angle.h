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
/// Angle below which a direction just under a full turn counts as 0 and one just beyond a half turn
/// as the half turn, in radians: less than the point tolerance on any radius up to a kilometre,
/// more than the rounding of sums of angles.
inline constexpr double kAngleNoise = 1e-10;
/// Bulge below which primitives count a segment as straight: its rise over a chord of a kilometre
/// is half a millionth of a millimetre.
inline constexpr double kStraightBulge = 1e-12;

/// The same direction from 0 up to, not including, a full turn. An angle within kAngleNoise below a
/// full turn gives 0.0. Not a number stays so, as does infinity.
KEX_BASE_API double g_ang(double angle);

/// Half turns have one sign: an angle from -π to π, but for a negative one within kAngleNoise of
/// the half turn, which gives π.
inline double g_ang_halfTurn(double angle) { return angle < -kPi + kAngleNoise ? kPi : angle; }
/// Turn from direction a1 to direction a2, above -π up to π, left positive. Exact but for the
/// rounding of a2 - a1. g_dw1(a, b) = -g_dw1(b, a) except at the half turn, which is π both ways.
KEX_BASE_API double g_dw1(double a1, double a2);
/// Half of the way from a1 counter-clockwise to a2, from 0 up to, not including, π.
inline double g_w_halb(double a1, double a2) { return 0.5 * g_ang(a2 - a1); }
/// Direction halfway from a1 counter-clockwise to a2, as g_ang. With a1 and a2 exchanged it is the
/// opposite one, unless both are the same direction.
inline double g_w_mid(double a1, double a2) { return g_ang(a1 + g_w_halb(a1, a2)); }
/// Acute angle of a direction with the X axis, from 0 to π/2; the same for -a, a + π and π - a.
inline double g_qw(double angle)
{
    return std::atan2(std::abs(std::sin(angle)), std::abs(std::cos(angle)));
}
/// Both directions are the same within `tolAngle`, radians; 0 and 2π are.
inline bool g_ang_equal(double a1, double a2, double tolAngle)
{
    return std::abs(g_dw1(a1, a2)) <= tolAngle;
}

/// Eighth of the full turn in which a direction lies, 1 to 8 counter-clockwise from the X axis: n
/// covers (n-1)·π/4 up to, not including, n·π/4. A direction less than `tolAngle` below a boundary
/// counts as on it. 0 for what is not finite.
KEX_BASE_API int g_oktant(double angle, double tolAngle);
/// The same with six parts, 1 to 6.
KEX_BASE_API int g_sextant(double angle, double tolAngle);

/// Angle opposite to side c of the triangle with the sides a, b, c, from 0 to π: that of the cosine
/// (a²+b²-c²)/(2ab), cut to -1..1, so that sides too short to meet give 0 or π. 0.0 when a or b is
/// 0. Side lengths in one unit; negative ones go into the cosine as they are.
/// Method: W. Kahan, "Miscalculating area and angles of a needle-like triangle": the half angle's
/// tangent from differences of sides, which stays right where a cosine near ±1 has lost its digits.
/// Error: at most 8 ε relative, of the exact angle between the given sides.
KEX_BASE_API double g_w_3eck(double a, double b, double c);

/// Slope of a direction as a plain ratio, rise over run, not per cent; and back, -π/2 to π/2.
inline double g_ang_slope(double angle) { return std::tan(angle); }
inline double g_slope_ang(double slope) { return std::atan(slope); }

/// Bulge of an included angle: tan(angle/4). A half turn gives 1. Odd: g_ang_bulg(-a) =
/// -g_ang_bulg(a).
inline double g_ang_bulg(double angle) { return std::tan(angle * 0.25); }
/// Included angle of a bulge: 4·atan(bulge), from -2π to 2π; the inverse of g_ang_bulg there.
inline double g_bulg_ang(double bulge) { return std::atan(bulge) * 4.0; }

/// A bulge that primitives treat as 0.
inline bool g_bulg_isStraight(double bulge) { return std::abs(bulge) < kStraightBulge; }

} // namespace KEX
