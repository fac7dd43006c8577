// SPDX-License-Identifier: LicenseRef-ORVALD
// Lines: sides, distances, mitres (Gehrung), common tangents of circles.
#pragma once

#include "kex/intersection.h"
#include "kex/tangent.h"
#include "marshal/adapt.h"
#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kLineRows[] = {
    {KT("kex_g_equal"), adapt<g_equal, orElse<lengthTolerance>>,
     KT("pt p1, pt p2, [num tol = _RNDL]"), KT("T or nil")},
    {KT("kex_g_side"), adapt<g_side, lengthTolerance>, KT("pt p1, pt p2, pt p"), KT("int")},
    {KT("kex_g_int_ll"), adapt<g_int_ll, lengthTolerance, angleTolerance>,
     KT("pt p1, pt p2, pt p3, pt p4, [T segments]"), KT("pt or nil")},
    {KT("kex_g_line_dist"), adapt<g_line_dist, lengthTolerance>, KT("pt p, pt a, pt b"),
     KT("real")},
    {KT("kex_g_line_near"), adapt<g_line_near, lengthTolerance, angleTolerance>,
     KT("pt p1, pt p2, pt p3, pt p4"), KT("(q1 q2) or nil")},
    {KT("kex_g_line_par"), adapt<g_line_par, lengthTolerance>, KT("pt p1, pt p2, num d"),
     KT("(q1 q2) or nil")},
    {KT("kex_g_line_gehr"), adapt<g_line_gehr, lengthTolerance, angleTolerance>,
     KT("pt p1, pt p2, pt p3, num d1, num d2"), KT("(q1 q2) or nil")},
    {KT("kex_g_tang_pc"), adapt<g_tang_pc, lengthTolerance>, KT("pt p, pt centre, num r"),
     KT("list of pt or nil")},
    {KT("kex_g_tang_cc"), adapt<g_tang_cc, lengthTolerance>, KT("pt c1, num r1, pt c2, num r2"),
     KT("list of (pt pt) or nil")},
    {KT("kex_g_tang_ll"), adapt<g_tang_ll, lengthTolerance, angleTolerance>,
     KT("pt p1, pt p2, pt p3, num r"), KT("vx or nil")},
};

} // namespace KEX
