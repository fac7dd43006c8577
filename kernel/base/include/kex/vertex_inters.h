// SPDX-License-Identifier: LicenseRef-ORVALD
// Common points of two segments in XY.
#pragma once

#include "kex/line.h"
#include "kex/vertex.h"

namespace KEX {

/// Points that both segments have within `tolLength`, their ends included, at the height of the
/// first, in the order of g_int_ll, g_cli and g_cci. Curves that touch have one. None for segments
/// that lie on one line or circle, or have no length. Parallel are lines whose angle's sine is at
/// most `tolAngle`.
KEX_BASE_API FewPoints vx_inters(const CKexVertex& a, const CKexVertex& b,
                                 double tolLength = CKexPoint3d::tol, double tolAngle = 1e-12);

} // namespace KEX
