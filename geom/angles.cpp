// SPDX-License-Identifier: LicenseRef-ORVALD
// Functions on angles and arcs that do more than forward to a primitive.
#include "geom/angle_rows.h"
#include "kexdata/configuration.h"

#include <cmath>

namespace KEX {
namespace {

constexpr double kUnsetAngle = 0.001; // of kex_g_ang_equal alone

/// Infinite or not a number for n = 0.
#ifdef __GNUC__
[[gnu::no_sanitize("float-divide-by-zero")]]
#endif
double
quotient(double a, double n)
{
    return a / n;
}

/// Where -1 to 1 is left the error is reported, and LISP programs still get a number, as they rely
/// on.
int inverseOf(double (*function)(double), const resbuf* args)
{
    ArgReader in(args);
    const double x = in.number(0);
    if (in.failed()) return in.fail();
    if (std::abs(x) <= 1.0) return retAds(function(x));
    argError(0);
    return retAds(0.0); // kept: a result, and RTNORM
}

} // namespace

int angSeg(const resbuf* args)
{
    ArgReader in(args);
    const double a = in.number(1);
    const double n = in.number(2);
    if (in.failed()) return in.fail();
    return retAds(quotient(a, n)); // kept: no guard against 0
}

int ang3eck(const resbuf* args)
{
    ArgReader in(args);
    const double a = in.number(1);
    const double b = in.number(2);
    const double c = in.number(3);
    if (in.failed()) return in.fail();
    if (a + b < c) return retAds(false); // kept: no other side is compared
    return adapting::give(g_w_3eck(a, b, c));
}

int angEqual(const resbuf* args)
{
    ArgReader in(args);
    const double a1 = in.number(1);
    const double a2 = in.number(2);
    if (in.failed()) return in.fail();
    double tolAngle = 0.0;
    const resbuf* given = in.peek();
    // kept: a third argument that is no number counts as missing
    if (!readNumber(given, tolAngle) && !cfg_get(KT("_RNDA"), tolAngle)) tolAngle = kUnsetAngle;
    return retAds(g_ang_equal(a1, a2, tolAngle));
}

int angAsin(const resbuf* args) { return inverseOf(std::asin, args); }
int angAcos(const resbuf* args) { return inverseOf(std::acos, args); }

int bulgLen(const resbuf* args)
{
    ArgReader in(args);
    const CKexPoint3d p1 = in.point(1);
    const CKexPoint3d p2 = in.point(2);
    if (in.failed()) return in.fail();
    const resbuf* third = in.peek();
    CKexPoint3d through;
    if (readPoint(third, through)) return adapting::give(g_bulg_len(p1, p2, through));
    const double bulge = in.number(3);
    if (in.failed()) return in.fail();
    return adapting::give(g_bulg_len(p1, p2, bulge));
}

int arc3pCen(const resbuf* args)
{
    ArgReader in(args);
    const CKexPoint3d p1 = in.point(1);
    const CKexPoint3d p2 = in.point(2);
    const CKexPoint3d p3 = in.point(3);
    if (in.failed()) return in.fail();
    CKexPoint3d centre;
    return g_arc3p_cen(p1, p2, p3, centre) ? adapting::give(centre) : retAds(false);
}

int arc3pBulg(const resbuf* args)
{
    ArgReader in(args);
    const CKexPoint3d p1 = in.point(1);
    const CKexPoint3d p2 = in.point(2);
    const CKexPoint3d p3 = in.point(3);
    if (in.failed()) return in.fail();
    double bulge = 0.0;
    return g_arc3p_bulg(p1, p2, p3, bulge) ? adapting::give(bulge) : retAds(false);
}

int arc2prBulg(const resbuf* args)
{
    ArgReader in(args);
    const CKexPoint3d p1 = in.point(1);
    const CKexPoint3d p2 = in.point(2);
    const double r = in.number(3);
    const double x = in.numberIfAny(4).value_or(0.0);
    if (in.failed()) return in.fail();
    double bulge = 0.0;
    return g_arcrad_bulg(bulge, r, p1, p2, x) ? adapting::give(bulge) : retAds(false);
}

} // namespace KEX
