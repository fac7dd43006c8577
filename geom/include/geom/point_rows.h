// SPDX-License-Identifier: LicenseRef-ORVALD
// Points: moved, rounded, measured along directions.
#pragma once

#include "kex/rounding.h"
#include "marshal/adapt.h"
#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kPointRows[] = {
    {KT("kex_g_p_mrx"), notBuilt, KT("pt p"), KT("pt")},
    {KT("kex_g_p_mry"), notBuilt, KT("pt p"), KT("pt")},
    {KT("kex_g_p_xy"), notBuilt, KT("pt p"), KT("pt")},
    {KT("kex_g_p_mov"), notBuilt, KT("pt p, pt v"), KT("pt")},
    {KT("kex_g_p_nrm"), notBuilt, KT("pt p"), KT("pt")},
    {KT("kex_g_p_dist_w"), notBuilt, KT("pt p1, pt p2, num a"), KT("real")},
    {KT("kex_g_p_dist_w1"), notBuilt, KT("pt p1, pt p2, num a"), KT("real")},
    {KT("kex_g_p_dist_2d"), notBuilt, KT("pt p1, pt p2"), KT("real")},
    {KT("kex_g_p_mtx"), notBuilt, KT("pt p, mtx"), KT("pt")},
    {KT("kex_g_p_stretch"), notBuilt, KT("pt p, pt q, num a, num b"), KT("pt")},
    {KT("kex_g_p_rnd"), adapt<g_p_rnd>, KT("pt p, num step"), KT("pt")},
    {KT("kex_g_p_mov_vc"), notBuilt, KT("pt p, num dx, [num dy], [num dz]"), KT("pt or nil")},
    {KT("kex_g_p_trans3p"), notBuilt, KT("pt p, pt o, pt px, pt py, [T back]"), KT("pt")},
};

} // namespace KEX
