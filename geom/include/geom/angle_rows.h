// SPDX-License-Identifier: LicenseRef-ORVALD
// Angles, bulges and arcs.
#pragma once

#include "kex/angle.h"
#include "marshal/adapt.h"
#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kAngleRows[] = {
    {KT("kex_g_ang"), notBuilt, KT("num a"), KT("real")},
    {KT("kex_g_ang_abs"), notBuilt, KT("pt p1, pt p2, pt p3"), KT("real")},
    {KT("kex_g_ang_dif"), notBuilt, KT("pt p1, pt p2, pt p3"), KT("real")},
    {KT("kex_g_ang_dif1"), notBuilt, KT("pt p1, pt p2, pt p3"), KT("real")},
    {KT("kex_g_ang_dif2"), notBuilt, KT("pt p1, pt p2, pt p3"), KT("real")},
    {KT("kex_g_ang_dif3"), notBuilt, KT("num a1, num a2"), KT("real")},
    {KT("kex_g_ang_halb"), notBuilt, KT("num a1, num a2"), KT("real")},
    {KT("kex_g_ang_mid"), notBuilt, KT("num a1, num a2"), KT("real")},
    {KT("kex_g_ang_quad"), notBuilt, KT("num a"), KT("real")},
    {KT("kex_g_ang_seg"), notBuilt, KT("num a, num n"), KT("real")},
    {KT("kex_g_ang_3eck"), notBuilt, KT("num a, num b, num c"), KT("real or nil")},
    {KT("kex_g_ang_bulg"), adapt<g_ang_bulg>, KT("num a"), KT("real")},
    {KT("kex_g_bulg_ang"), adapt<g_bulg_ang>, KT("num b"), KT("real")},
    {KT("kex_g_ang_equal"), notBuilt, KT("num a1, num a2, [num tol]"), KT("T or nil")},
    {KT("kex_g_angto%"), notBuilt, KT("num a"), KT("real")},
    {KT("kex_g_%toang"), notBuilt, KT("num s"), KT("real")},
    {KT("kex_g_asin"), notBuilt, KT("num x"), KT("real")},
    {KT("kex_g_acos"), notBuilt, KT("num x"), KT("real")},
    {KT("kex_g_oktant"), notBuilt, KT("num a"), KT("int")},
    {KT("kex_g_sextant"), notBuilt, KT("num a"), KT("int")},
    {KT("kex_g_bulg_cen"), notBuilt, KT("pt p1, pt p2, num bulge"), KT("pt")},
    {KT("kex_g_bulg_mid"), notBuilt, KT("pt p1, pt p2, num bulge"), KT("pt")},
    {KT("kex_g_bulg_len1"), notBuilt, KT("pt p1, pt p2, num bulge"), KT("real")},
    {KT("kex_g_bulg_len"), notBuilt, KT("pt p1, pt p2, pt or num x"), KT("real")},
    {KT("kex_g_arc_len"), notBuilt, KT("num r, num a1, [num a2 = 0.0]"), KT("real")},
    {KT("kex_g_arc_bulg"), notBuilt, KT("num a1, num a2"), KT("real")},
    {KT("kex_g_arc3p_cen"), notBuilt, KT("pt p1, pt p2, pt p3"), KT("pt or nil")},
    {KT("kex_g_arc3p_bulg"), notBuilt, KT("pt p1, pt p2, pt p3"), KT("real or nil")},
    {KT("kex_g_arcmp_bulg"), notBuilt, KT("pt p1, pt p2, pt p3"), KT("real")},
    {KT("kex_g_arc2pr_bulg"), notBuilt, KT("pt p1, pt p2, num r, [num x = 0.0]"),
     KT("real or nil")},
    {KT("kex_g_arc_mid"), notBuilt, KT("pt centre, num r, num a1, num a2"), KT("pt")},
};

} // namespace KEX
