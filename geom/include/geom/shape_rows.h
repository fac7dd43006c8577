// SPDX-License-Identifier: LicenseRef-ORVALD
// Ready shapes as vertex lists, and equal divisions (Teilung).
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kShapeRows[] = {
    {KT("kex_g_mk_rect"), notBuilt, KT("pt p, num w, num h, [num ang = 0.0], [num r = 0.0]"),
     KT("vl or nil")},
    {KT("kex_g_mk_circ"), notBuilt, KT("pt centre, num r, [num ang = 0.0]"), KT("vl or nil")},
    {KT("kex_g_mk_slot"), notBuilt, KT("pt p1, pt p2, num d"), KT("vl or nil")},
    {KT("kex_g_mk_neck"), notBuilt,
     KT("pt centre, int n, num r, [num ang = 0.0], [T inscribed circle]"), KT("vl or nil")},
    {KT("kex_g_mk_elps"), notBuilt,
     KT("pt centre, num a, num b, [num rot = 0.0], [num dif = 0.01]"), KT("vl or nil")},
    {KT("kex_g_teil_n"), notBuilt, KT("num length, num max, [num bar = 0.0]"), KT("int")},
    {KT("kex_g_teil_pts"), notBuilt, KT("pt p1, pt p2, int n, [num bar = 0.0]"),
     KT("list of pt or nil")},
};

} // namespace KEX
