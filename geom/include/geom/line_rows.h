// SPDX-License-Identifier: LicenseRef-ORVALD
// Lines: sides, distances, mitres (Gehrung), common tangents of circles.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kLineRows[] = {
    {KT("kex_g_equal"), notBuilt, KT("pt p1, pt p2, [num tol = _RNDL]"), KT("T or nil")},
    {KT("kex_g_side"), notBuilt, KT("pt p1, pt p2, pt p"), KT("int")},
    {KT("kex_g_int_ll"), notBuilt, KT("pt p1, pt p2, pt p3, pt p4, [T segments]"), KT("pt or nil")},
    {KT("kex_g_line_dist"), notBuilt, KT("pt p, pt a, pt b"), KT("real")},
    {KT("kex_g_line_near"), notBuilt, KT("pt p1, pt p2, pt p3, pt p4"), KT("(q1 q2) or nil")},
    {KT("kex_g_line_par"), notBuilt, KT("pt p1, pt p2, num d"), KT("(q1 q2) or nil")},
    {KT("kex_g_line_gehr"), notBuilt, KT("pt p1, pt p2, pt p3, num d1, num d2"),
     KT("(q1 q2) or nil")},
    {KT("kex_g_tang_pc"), notBuilt, KT("pt p, pt centre, num r"), KT("list of pt or nil")},
    {KT("kex_g_tang_cc"), notBuilt, KT("pt c1, num r1, pt c2, num r2"),
     KT("list of (pt pt) or nil")},
    {KT("kex_g_tang_ll"), notBuilt, KT("pt p1, pt p2, pt p3, num r"), KT("vx or nil")},
};

} // namespace KEX
