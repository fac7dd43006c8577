// SPDX-License-Identifier: LicenseRef-ORVALD
// Constructions in the plane: intersections and feet; ellipses, basket handles (Korbbogen) and
// S-curves.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kConstructionRows[] = {
    {KT("kex_g_int_cl"), notBuilt, KT("pt centre, num r, pt p1, pt p2"), KT("list of pt or nil")},
    {KT("kex_g_int_al"), notBuilt, KT("pt centre, num r, num a1, num a2, pt p1, pt p2"),
     KT("list of pt or nil")},
    {KT("kex_g_int_cc"), notBuilt, KT("pt c1, num r1, pt c2, num r2"), KT("list of pt or nil")},
    {KT("kex_g_int_ca"), notBuilt, KT("pt c1, num r1, pt c2, num r2, num a1, num a2"),
     KT("list of pt or nil")},
    {KT("kex_g_int_aa"), notBuilt,
     KT("pt c1, num r1, num a1, num a2, pt c2, num r2, num a3, num a4"), KT("list of pt or nil")},
    {KT("kex_g_lotp"), notBuilt, KT("pt p, pt a, pt b"), KT("pt or nil")},
    {KT("kex_g_lot"), notBuilt, KT("pt p, pt a, pt b"), KT("real or nil")},
    {KT("kex_g_ispt"), notBuilt, KT("pt p1, pt p2, pt p"), KT("pt or nil")},
    {KT("kex_g_isapt"), notBuilt, KT("pt centre, num r, num a1, num a2, pt p"), KT("pt or nil")},
    {KT("kex_g_elps_p"), notBuilt, KT("pt centre, num a, num b, num rot, num w"), KT("pt")},
    {KT("kex_g_elps_r"), notBuilt, KT("num a, num b, num w"), KT("real")},
    {KT("kex_g_elps_w"), notBuilt, KT("num a, num b, num rot, num w, num sense"), KT("real")},
    {KT("kex_g_korb_3m"), notBuilt, KT("num w, num h"), KT("real")},
    {KT("kex_g_korb_5m"), notBuilt, KT("num w, num h"), KT("list (real pt pt pt pt pt) or nil")},
    {KT("kex_g_korb_r"), notBuilt, KT("num w, num h, num r"), KT("real")},
    {KT("kex_g_korb_r2"), notBuilt, KT("num w, num h, num R"), KT("real")},
    {KT("kex_g_fries_r"), notBuilt, KT("num l, num h, num s"), KT("real")},
    {KT("kex_g_fries_w"), notBuilt, KT("num l, num h, num s"), KT("real")},
    {KT("kex_g_fries_2r"), notBuilt, KT("num l, num h, num r1, [num s = 0.0]"), KT("vl or nil")},
};

} // namespace KEX
