// SPDX-License-Identifier: LicenseRef-ORVALD
// Coordinate systems in space as matrices from their coordinates to the world's.
#pragma once

#include "kex/matrix.h"

namespace KEX {

/// System with its origin at o, X towards px, and positive Y on the side of py; axes of length 1,
/// right handed. Nothing when the points lie on a line: o and px are one within `tolLength`, or py
/// is no farther than it from their line.
KEX_BASE_API std::optional<CKexMatrix3d> g_mtx_3p(const CKexPoint3d& o, const CKexPoint3d& px,
                                                  const CKexPoint3d& py,
                                                  double tolLength = CKexPoint3d::tol);

} // namespace KEX
