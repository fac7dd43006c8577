// SPDX-License-Identifier: LicenseRef-ORVALD
// Points: moved, rounded, measured along directions.
#pragma once

#include "kex/point_moves.h"
#include "kex/rounding.h"
#include "marshal/adapt.h"
#include "marshal/lisp_row.h"

namespace KEX {

LispFn pMovVc;

inline constexpr LispRow kPointRows[] = {
    {KT("kex_g_p_mrx"), adapt<g_p_mrx>, KT("pt p"), KT("pt")},
    {KT("kex_g_p_mry"), adapt<g_p_mry>, KT("pt p"), KT("pt")},
    {KT("kex_g_p_xy"), adapt<g_p_xy>, KT("pt p"), KT("pt")},
    {KT("kex_g_p_mov"), adapt<g_p_mov>, KT("pt p, pt v"), KT("pt")},
    {KT("kex_g_p_nrm"), adapt<g_nrm_p>, KT("pt p"), KT("pt")},
    {KT("kex_g_p_dist_w"), adapt<g_dist_w>, KT("pt p1, pt p2, num a"), KT("real")},
    {KT("kex_g_p_dist_w1"), adapt<g_dist_w1>, KT("pt p1, pt p2, num a"), KT("real")},
    {KT("kex_g_p_dist_2d"), adapt<g_dist2d>, KT("pt p1, pt p2"), KT("real")},
    {KT("kex_g_p_mtx"), adapt<g_p_mtx>, KT("pt p, mtx"), KT("pt")},
    {KT("kex_g_p_stretch"), adapt<g_p_stretch, lengthTolerance>, KT("pt p, pt q, num a, num b"),
     KT("pt")},
    {KT("kex_g_p_rnd"), adapt<g_p_rnd>, KT("pt p, num step"), KT("pt")},
    {KT("kex_g_p_mov_vc"), pMovVc, KT("pt p, num dx, [num dy], [num dz]"), KT("pt or nil")},
    {KT("kex_g_p_trans3p"), adapt<g_p_trans3p, lengthTolerance>,
     KT("pt p, pt o, pt px, pt py, [T back]"), KT("pt")},
};

} // namespace KEX
