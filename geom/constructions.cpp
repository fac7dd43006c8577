// SPDX-License-Identifier: LicenseRef-ORVALD
// Points and constructions that do more than forward to a primitive.
#include "geom/construction_rows.h"
#include "geom/point_rows.h"

namespace KEX {

int pMovVc(const resbuf* args)
{
    ArgReader in(args);
    const CKexPoint3d p = in.point(1);
    const std::optional<double> dx = in.numberIfAny(2);
    const double dy = in.numberIfAny(3).value_or(0.0);
    const double dz = in.numberIfAny(4).value_or(0.0);
    if (in.failed()) return in.fail();
    if (!dx) return retAds(false); // kept: nil, not an error
    return adapting::give(p + CKexVector3d(*dx, dy, dz));
}

// (r1 centre ...): a real and points in one list.
int korb5m(const resbuf* args)
{
    ArgReader in(args);
    const double w = in.number(1);
    const double h = in.number(2);
    if (in.failed()) return in.fail();
    const std::optional<BasketHandle5> arch = g_korb_5m(w, h);
    if (!arch) return retAds(false);
    RbBuilder list;
    list.real(arch->r1);
    for (const CKexPoint3d& centre : arch->centres) list.point(centre);
    return retList(list.take());
}

} // namespace KEX
