// SPDX-License-Identifier: LicenseRef-ORVALD
// Angles, bulges and arcs.
#pragma once

#include "kex/arc.h"
#include "marshal/adapt.h"
#include "marshal/lisp_row.h"

namespace KEX {

LispFn angSeg, ang3eck, angEqual, angAsin, angAcos, bulgLen, arc3pCen, arc3pBulg, arc2prBulg;

/// That of the two functions which takes a bulge.
inline constexpr double (*kBulgLen)(const CKexPoint3d&, const CKexPoint3d&, double) = g_bulg_len;

inline constexpr LispRow kAngleRows[] = {
    {KT("kex_g_ang"), adapt<g_ang>, KT("num a"), KT("real")},
    {KT("kex_g_ang_abs"), adapt<g_aabs, lengthTolerance>, KT("pt p1, pt p2, pt p3"), KT("real")},
    {KT("kex_g_ang_dif"), adapt<g_delta_w>, KT("pt p1, pt p2, pt p3"), KT("real")},
    {KT("kex_g_ang_dif1"), adapt<g_delta_w1>, KT("pt p1, pt p2, pt p3"), KT("real")},
    {KT("kex_g_ang_dif2"), adapt<g_delta_w2>, KT("pt p1, pt p2, pt p3"), KT("real")},
    {KT("kex_g_ang_dif3"), adapt<g_dw1>, KT("num a1, num a2"), KT("real")},
    {KT("kex_g_ang_halb"), adapt<g_w_halb>, KT("num a1, num a2"), KT("real")},
    {KT("kex_g_ang_mid"), adapt<g_w_mid>, KT("num a1, num a2"), KT("real")},
    {KT("kex_g_ang_quad"), adapt<g_qw>, KT("num a"), KT("real")},
    {KT("kex_g_ang_seg"), angSeg, KT("num a, num n"), KT("real")},
    {KT("kex_g_ang_3eck"), ang3eck, KT("num a, num b, num c"), KT("real or nil")},
    {KT("kex_g_ang_bulg"), adapt<g_ang_bulg>, KT("num a"), KT("real")},
    {KT("kex_g_bulg_ang"), adapt<g_bulg_ang>, KT("num b"), KT("real")},
    {KT("kex_g_ang_equal"), angEqual, KT("num a1, num a2, [num tol]"), KT("T or nil")},
    {KT("kex_g_angto%"), adapt<g_ang_slope>, KT("num a"), KT("real")},
    {KT("kex_g_%toang"), adapt<g_slope_ang>, KT("num s"), KT("real")},
    {KT("kex_g_asin"), angAsin, KT("num x"), KT("real")},
    {KT("kex_g_acos"), angAcos, KT("num x"), KT("real")},
    {KT("kex_g_oktant"), adapt<g_oktant, angleTolerance>, KT("num a"), KT("int")},
    {KT("kex_g_sextant"), adapt<g_sextant, angleTolerance>, KT("num a"), KT("int")},
    {KT("kex_g_bulg_cen"), adapt<g_bulg_cen>, KT("pt p1, pt p2, num bulge"), KT("pt")},
    {KT("kex_g_bulg_mid"), adapt<g_bulg_mid>, KT("pt p1, pt p2, num bulge"), KT("pt")},
    {KT("kex_g_bulg_len1"), adapt<kBulgLen>, KT("pt p1, pt p2, num bulge"), KT("real")},
    {KT("kex_g_bulg_len"), bulgLen, KT("pt p1, pt p2, pt or num x"), KT("real")},
    {KT("kex_g_arc_len"), adapt<g_arc_len, orElse<0.0>>, KT("num r, num a1, [num a2 = 0.0]"),
     KT("real")},
    {KT("kex_g_arc_bulg"), adapt<g_arc_bulg>, KT("num a1, num a2"), KT("real")},
    {KT("kex_g_arc3p_cen"), arc3pCen, KT("pt p1, pt p2, pt p3"), KT("pt or nil")},
    {KT("kex_g_arc3p_bulg"), arc3pBulg, KT("pt p1, pt p2, pt p3"), KT("real or nil")},
    {KT("kex_g_arcmp_bulg"), adapt<g_arcmp_bulg>, KT("pt p1, pt p2, pt p3"), KT("real")},
    {KT("kex_g_arc2pr_bulg"), arc2prBulg, KT("pt p1, pt p2, num r, [num x = 0.0]"),
     KT("real or nil")},
    {KT("kex_g_arc_mid"), adapt<g_arc_mid>, KT("pt centre, num r, num a1, num a2"), KT("pt")},
};

} // namespace KEX
