// SPDX-License-Identifier: LicenseRef-ORVALD
// Functions on lists of points that do more than forward to a primitive.
#include "geom/polygon_rows.h"

namespace KEX {

// (A (xs ys 0.0) Ix Iy Ixy I1 I2 alpha ix iy Wx Wy U (min) (max))
int plStatics(const resbuf* args)
{
    ArgReader in(args);
    const CKexPoint3dArray points = in.pointList(1);
    if (in.failed()) return in.fail();
    const std::optional<Statics> s = g_pl_statics(points);
    if (!s || !adapting::isFinite(s->ix + s->iy + s->ixy)) return retAds(false);
    RbBuilder list;
    list.real(s->area).point(s->centroid).real(s->ix).real(s->iy).real(s->ixy);
    list.real(s->i1()).real(s->i2()).real(s->alpha()).real(s->gyrationX()).real(s->gyrationY());
    list.real(s->wx()).real(s->wy()).real(s->outline).point(s->min).point(s->max);
    return retList(list.take());
}

} // namespace KEX
