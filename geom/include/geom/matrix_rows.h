// SPDX-License-Identifier: LicenseRef-ORVALD
// Matrices.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kMatrixRows[] = {
    {KT("kex_g_mtx_unit"), notBuilt, KT(""), KT("mtx")},
    {KT("kex_g_mtx_move"), notBuilt, KT("vc v"), KT("mtx")},
    {KT("kex_g_mtx_rot"), notBuilt, KT("num w, [pt base = (0 0 0)], [vc axis = (0 0 1)]"),
     KT("mtx or nil")},
    {KT("kex_g_mtx_scale"), notBuilt, KT("num f or vc factors, [pt base = (0 0 0)]"), KT("mtx")},
    {KT("kex_g_mtx_mir"), notBuilt, KT("pt p1, pt p2, [pt p3]"), KT("mtx or nil")},
    {KT("kex_g_mtx_mul"), notBuilt, KT("mtx m1, mtx m2 ..."), KT("mtx")},
    {KT("kex_g_mtx_inv"), notBuilt, KT("mtx"), KT("mtx or nil")},
    {KT("kex_g_mtx_3p"), notBuilt, KT("pt o, pt px, pt py"), KT("mtx or nil")},
    {KT("kex_g_mtx_axes"), notBuilt, KT("pt o, vc x, vc y, [vc z = x × y]"), KT("mtx")},
    {KT("kex_g_mtx_ocs"), notBuilt, KT("vc normal, [pt origin = (0 0 0)]"), KT("mtx or nil")},
    {KT("kex_g_mtx_ucs"), notBuilt, KT("[T inverse]"), KT("mtx")},
    {KT("kex_g_mtx_vc"), notBuilt, KT("vc v, mtx"), KT("vc")},
    {KT("kex_g_mtx_axis"), notBuilt, KT("mtx, int i"), KT("pt or nil")},
    {KT("kex_g_mtx_is_mir"), notBuilt, KT("mtx"), KT("T or nil")},
    {KT("kex_g_mtx_equal"), notBuilt, KT("mtx m1, mtx m2"), KT("T or nil")},
};

} // namespace KEX
