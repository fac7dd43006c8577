// SPDX-License-Identifier: LicenseRef-ORVALD
// Rounding of lengths, points and angles. Halves go away from zero, and a value is taken for a half
// when only the last bits of its binary form are missing: 2.675 rounds to 2.68. A result that is a
// decimal number is the double nearest to it: multiples of 0.1 come as 0.3, not
// 0.30000000000000004.
#pragma once

#include "kex/angle.h"
#include "kex/point.h"

namespace KEX {

/// Nearest multiple of `step`; x itself for a step of 0 or below, and for x so large that its
/// neighbours are farther than steps apart.
KEX_BASE_API double round(double x, double step);
/// Smallest multiple of `step` not below x - `tolLength`, for cutting lengths; x for a step of 0 or
/// below.
KEX_BASE_API double g_rnd_up(double x, double step, double tolLength);
/// Every coordinate rounded to `step`.
inline CKexPoint3d g_p_rnd(const CKexPoint3d& p, double step)
{
    return {round(p.x, step), round(p.y, step), round(p.z, step)};
}
/// A length of the drawing's unit, rounded to `decimals` places in `unit` (Kex::lUnit), negative
/// ones tens; the result is in the drawing's unit again. Where either is no unit, or the drawing
/// has none, it is rounded as it stands.
KEX_BASE_API double g_rnd_unit(double x, int decimals, int unit);

/// Nearest of the directions 0, π/2, π and 3π/2; halves go counter-clockwise, also those that only
/// kAngleNoise is missing to.
KEX_BASE_API double g_rnd_quad(double angle);
/// The direction rounded to a multiple of `step`, as g_ang; for a step of 0 or below the direction.
inline double g_rnd_ang(double angle, double step) { return g_ang(round(g_ang(angle), step)); }

} // namespace KEX
