// SPDX-License-Identifier: LicenseRef-ORVALD
// Elevations: views of the world on a sheet with x to the right, y up and z towards the viewer.
#pragma once

#include "kex/matrix.h"
#include "kex/text.h"

#include <optional>

namespace KEX {

/// World to sheet for a view by its letter: "V" (vorn) front, "H" (hinten) back, "L" from the left,
/// "R" from the right, "D" (Draufsicht) plan, "U" (Untersicht) from below, with the world's X to
/// the right. The point `origin` becomes the sheet's origin. Nothing for another text.
KEX_BASE_API std::optional<CKexMatrix3d> g_elev_mtx(TextView view, const CKexPoint3d& origin);
/// The same for the view whose looking direction in plan is an angle: π/2 looks at the front.
KEX_BASE_API CKexMatrix3d g_elev_mtx(double looking, const CKexPoint3d& origin);
/// Letter of the view whose turn a matrix has, its 3×3 part within `tolAngle`, element by element;
/// 0 for none.
KEX_BASE_API ACHAR g_elev_view(const CKexMatrix3d& matrix, double tolAngle);

} // namespace KEX
