// SPDX-License-Identifier: LicenseRef-ORVALD
// Ready shapes as vertex lists, and equal divisions (Teilung).
#pragma once

#include "kex/shapes.h"
#include "marshal/adapt.h"
#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kShapeRows[] = {
    {KT("kex_g_mk_rect"), adapt<g_mk_rect, orElse<0.0>, orElse<0.0>, lengthTolerance>,
     KT("pt p, num w, num h, [num ang = 0.0], [num r = 0.0]"), KT("vl or nil")},
    {KT("kex_g_mk_circ"), adapt<g_mk_circ, orElse<0.0>>, KT("pt centre, num r, [num ang = 0.0]"),
     KT("vl or nil")},
    {KT("kex_g_mk_slot"), adapt<g_mk_slot, lengthTolerance>, KT("pt p1, pt p2, num d"),
     KT("vl or nil")},
    {KT("kex_g_mk_neck"), adapt<g_mk_neck, orElse<0.0>, flagIfAny>,
     KT("pt centre, int n, num r, [num ang = 0.0], [T inscribed circle]"), KT("vl or nil")},
    {KT("kex_g_mk_elps"), adapt<g_mk_elps, orElse<0.0>, orElse<0.01>>,
     KT("pt centre, num a, num b, [num rot = 0.0], [num dif = 0.01]"), KT("vl or nil")},
    {KT("kex_g_teil_n"), adapt<g_teil_n, orElse<0.0>, fabricationTolerance>,
     KT("num length, num max, [num bar = 0.0]"), KT("int")},
    {KT("kex_g_teil_pts"), adapt<g_teil_pts, orElse<0.0>>,
     KT("pt p1, pt p2, int n, [num bar = 0.0]"), KT("list of pt or nil")},
};

} // namespace KEX
