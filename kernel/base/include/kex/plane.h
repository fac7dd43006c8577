// SPDX-License-Identifier: LicenseRef-ORVALD
// Planes in space.
#pragma once

#include "kex/matrix.h"

namespace KEX {

/// A point of the plane and its normal, of length 1.
struct Plane
{
    CKexPoint3d origin;
    CKexVector3d normal{0.0, 0.0, 1.0};
    friend bool operator==(const Plane&, const Plane&) = default;
};

/// The XY plane of a system, with the normal on the side of its Z axis; nothing when X and Y are
/// parallel or one of them is null.
KEX_BASE_API std::optional<Plane> g_mtx_plan(const CKexMatrix3d& matrix);

} // namespace KEX
