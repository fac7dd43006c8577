// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/frame.h"

namespace KEX {

std::optional<CKexMatrix3d> g_mtx_3p(const CKexPoint3d& o, const CKexPoint3d& px,
                                     const CKexPoint3d& py, double tolLength)
{
    if (px.isEqualTo(o, tolLength)) return std::nullopt;
    const CKexVector3d x = (px - o).normal();
    const CKexVector3d z = x.cross(py - o); // as long as py is far from the line
    if (!(z.length() > tolLength)) return std::nullopt;
    const CKexVector3d up = z.normal();
    return CKexMatrix3d::coordSystem(o, x, up.cross(x), up);
}

} // namespace KEX
