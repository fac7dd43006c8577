// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/plane.h"

namespace KEX {

std::optional<Plane> g_mtx_plan(const CKexMatrix3d& matrix)
{
    const auto column = [&](int i) {
        return CKexVector3d(matrix(0, i), matrix(1, i), matrix(2, i));
    };
    const CKexVector3d normal = column(0).normal().cross(column(1).normal()).normal();
    if (normal == CKexVector3d()) return std::nullopt;
    return Plane{CKexPoint3d() + column(3), normal.dot(column(2)) < 0.0 ? -normal : normal};
}

} // namespace KEX
