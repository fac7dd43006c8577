// SPDX-License-Identifier: LicenseRef-ORVALD
// Functions on matrices and elevations that do more than forward to a primitive.
#include "geom/matrix_rows.h"
#include "geom/plane_rows.h"
#include "kex/elevation.h"
#include "kex/system.h"

namespace KEX {

int mtxUnit(const resbuf*) { return retAds(CKexMatrix3d()); }

// The factor is a number, or one for each axis.
int mtxScale(const resbuf* args)
{
    ArgReader in(args);
    const resbuf* first = in.peek();
    double factor = 0.0;
    CKexVector3d factors;
    if (readNumber(first, factor)) {
        in.any();
        factors = {factor, factor, factor};
    } else {
        factors = in.vector(1);
    }
    const CKexPoint3d base = in.pointIfAny(2).value_or(CKexPoint3d());
    if (in.failed()) return in.fail();
    return adapting::give(g_mtx_scale(factors, base));
}

int mtxMul(const resbuf* args)
{
    ArgReader in(args);
    CKexMatrix3d product = in.matrix(1);
    for (int position = 2; !in.isLast() && !in.failed(); ++position) {
        product = product * in.matrix(position);
    }
    if (in.failed()) return in.fail();
    return adapting::give(product);
}

int mtxUcs(const resbuf* args)
{
    ArgReader in(args);
    const bool inverse = in.flag();
    const CKexPoint3d origin = sysVarPoint(KT("UCSORG")).value_or(CKexPoint3d());
    const CKexPoint3d x = sysVarPoint(KT("UCSXDIR")).value_or(CKexPoint3d(1.0, 0.0));
    const CKexPoint3d y = sysVarPoint(KT("UCSYDIR")).value_or(CKexPoint3d(0.0, 1.0));
    const CKexMatrix3d toWorld = g_mtx_axes(origin, x.asVector(), y.asVector(), std::nullopt);
    return inverse ? adapting::give(g_mtx_inv(toWorld)) : adapting::give(toWorld);
}

// The view is a letter, or the direction that the viewer looks in.
int elevMtx(const resbuf* args)
{
    ArgReader in(args);
    const bool isLetter = in.peek() != nullptr && in.peek()->restype == RTSTR;
    const TextView letter = isLetter ? in.text(1) : TextView();
    const double looking = isLetter ? 0.0 : in.number(1);
    const CKexPoint3d origin = in.pointIfAny(2).value_or(CKexPoint3d());
    if (in.failed()) return in.fail();
    return isLetter ? adapting::give(g_elev_mtx(letter, origin))
                    : adapting::give(g_elev_mtx(looking, origin));
}

int elevView(const resbuf* args)
{
    ArgReader in(args);
    const CKexMatrix3d matrix = in.matrix(0);
    if (in.failed()) return in.fail();
    const ACHAR letter[] = {g_elev_view(matrix, angleTolerance()), 0};
    return letter[0] == 0 ? retAds(false) : retAds(letter);
}

} // namespace KEX
