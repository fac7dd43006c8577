// SPDX-License-Identifier: LicenseRef-ORVALD
// Basket handles (Korbbogen): arches of three or five arcs over a span w with a rise h, low (h <
// w/2) or tall (h > w/2). Lengths in drawing units, the origin in the middle of the span. At h =
// w/2 every arch is the half circle. Arcs meet on the line of their centres, so without a kink.
#pragma once

#include "kex/point.h"

#include <optional>

namespace KEX {

/// Springing radius of the arch of three centres whose joint lies by the classical chord
/// construction: d(d-s+h)/(2s), s = w/2, d = √(s²+h²). 0.0 unless w and h are above 0.
/// Error: at most 8 ε relative.
KEX_BASE_API double g_korb_3m(double w, double h);
/// Crown radius that goes on from a springing radius r: (s²+h²-2sr)/(2(h-r)); s when h = s. 0.0
/// unless w and h are above 0 and 0 < r < h (low) or r > h (tall). Not above 0 where the springing
/// of a tall arch is too tight: r up to (s²+h²)/w, that of the single arc. Inverse of g_rkorb2.
KEX_BASE_API double g_rkorb(double w, double h, double r);
/// Springing radius that a crown radius meets: (s²+h²-2Rh)/(2(s-R)); s when h = s. 0.0 unless w and
/// h are above 0 and R > s (low) or 0 < R < s (tall). Not above 0 where the crown of a low arch is
/// too tight: R up to (s²+h²)/(2h), that of the single arc.
KEX_BASE_API double g_rkorb2(double w, double h, double crown);

/// An arch of five centres: radii at the springing, the haunch and the crown.
struct BasketHandle5
{
    double r1, r2, r3;
    /// From left to right: springing, haunch, crown, haunch, springing.
    CKexPoint3d centres[5];
};
/// The arch with the end radii of the ellipse and their geometric mean, r1 = h²/s, r2 = √(s·h),
/// r3 = s²/h; the haunch's centre is the common point nearer to the origin of the circles about the
/// others' centres with r2-r1 and r3-r2. Nothing unless w and h are above 0.
/// Method: the arch but for the factor s·(1 - h/s), in which nothing cancels near the half circle.
KEX_BASE_API std::optional<BasketHandle5> g_korb_5m(double w, double h);

} // namespace KEX
