// SPDX-License-Identifier: LicenseRef-ORVALD
// Ellipses in the XY plane: half axes a and b, the first axis at the direction `rot`. Directions
// are true directions seen from the centre, radians, not the curve's own parameter.
#pragma once

#include "kex/direction.h"

namespace KEX {

/// Distance from the centre to the ellipse at the angle w from the first axis:
/// a·b/√((b cos w)² + (a sin w)²). 0.0 when a or b is 0.
/// Error: at most 8 ε relative.
KEX_BASE_API double g_ellips_pt(double a, double b, double w);
/// The point of the ellipse seen from the centre in direction w, at the height of the centre.
inline CKexPoint3d g_elps_p(const CKexPoint3d& centre, double a, double b, double rot, double w)
{
    return polar(centre, w, g_ellips_pt(a, b, w - rot));
}
/// Direction of the tangent at the point seen in direction w, as g_ang: running counter-clockwise
/// for a sense of 0 or above, else clockwise.
KEX_BASE_API double g_elps_w(double a, double b, double rot, double w, double sense);

} // namespace KEX
