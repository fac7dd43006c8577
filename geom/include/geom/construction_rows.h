// SPDX-License-Identifier: LicenseRef-ORVALD
// Constructions in the plane: intersections and feet; ellipses, basket handles (Korbbogen) and
// S-curves.
#pragma once

#include "kex/basket_handle.h"
#include "kex/ellipse.h"
#include "kex/intersection.h"
#include "kex/s_curve.h"
#include "marshal/adapt.h"
#include "marshal/lisp_row.h"

namespace KEX {

LispFn korb5m;

inline constexpr LispRow kConstructionRows[] = {
    {KT("kex_g_int_cl"), adapt<g_cli, lengthTolerance>, KT("pt centre, num r, pt p1, pt p2"),
     KT("list of pt or nil")},
    {KT("kex_g_int_al"), adapt<g_ali, lengthTolerance>,
     KT("pt centre, num r, num a1, num a2, pt p1, pt p2"), KT("list of pt or nil")},
    {KT("kex_g_int_cc"), adapt<g_cci, lengthTolerance>, KT("pt c1, num r1, pt c2, num r2"),
     KT("list of pt or nil")},
    {KT("kex_g_int_ca"), adapt<g_cai, lengthTolerance>,
     KT("pt c1, num r1, pt c2, num r2, num a1, num a2"), KT("list of pt or nil")},
    {KT("kex_g_int_aa"), adapt<g_aai, lengthTolerance>,
     KT("pt c1, num r1, num a1, num a2, pt c2, num r2, num a3, num a4"), KT("list of pt or nil")},
    {KT("kex_g_lotp"), adapt<g_lotp, lengthTolerance>, KT("pt p, pt a, pt b"), KT("pt or nil")},
    {KT("kex_g_lot"), adapt<g_lot, lengthTolerance>, KT("pt p, pt a, pt b"), KT("real or nil")},
    {KT("kex_g_ispt"), adapt<g_line_pt, lengthTolerance>, KT("pt p1, pt p2, pt p"),
     KT("pt or nil")},
    {KT("kex_g_isapt"), adapt<g_arc_pt, lengthTolerance>,
     KT("pt centre, num r, num a1, num a2, pt p"), KT("pt or nil")},
    {KT("kex_g_elps_p"), adapt<g_elps_p>, KT("pt centre, num a, num b, num rot, num w"), KT("pt")},
    {KT("kex_g_elps_r"), adapt<g_ellips_pt>, KT("num a, num b, num w"), KT("real")},
    {KT("kex_g_elps_w"), adapt<g_elps_w>, KT("num a, num b, num rot, num w, num sense"),
     KT("real")},
    {KT("kex_g_korb_3m"), adapt<g_korb_3m>, KT("num w, num h"), KT("real")},
    {KT("kex_g_korb_5m"), korb5m, KT("num w, num h"), KT("list (real pt pt pt pt pt) or nil")},
    {KT("kex_g_korb_r"), adapt<g_rkorb>, KT("num w, num h, num r"), KT("real")},
    {KT("kex_g_korb_r2"), adapt<g_rkorb2>, KT("num w, num h, num R"), KT("real")},
    {KT("kex_g_fries_r"), adapt<g_fries_r>, KT("num l, num h, num s"), KT("real")},
    {KT("kex_g_fries_w"), adapt<g_fries_w>, KT("num l, num h, num s"), KT("real")},
    {KT("kex_g_fries_2r"), adapt<g_fries_2r, orElse<0.0>, lengthTolerance>,
     KT("num l, num h, num r1, [num s = 0.0]"), KT("vl or nil")},
};

} // namespace KEX
