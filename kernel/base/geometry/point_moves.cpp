// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/point_moves.h"

#include "kex/frame.h"

namespace KEX {

CKexPoint3d g_p_trans3p(const CKexPoint3d& p, const CKexPoint3d& o, const CKexPoint3d& px,
                        const CKexPoint3d& py, bool back, double tolLength)
{
    const std::optional<CKexMatrix3d> frame = g_mtx_3p(o, px, py, tolLength);
    if (!frame) return p;
    if (back) return *frame * p;
    const auto along = [&](int axis) {
        return CKexVector3d((*frame)(0, axis), (*frame)(1, axis), (*frame)(2, axis)).dot(p - o);
    };
    return {along(0), along(1), along(2)};
}

} // namespace KEX
