// SPDX-License-Identifier: LicenseRef-ORVALD
// Lists of points: polygons and clouds.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kPolygonRows[] = {
    {KT("kex_g_pl_len"), notBuilt, KT("list of pt, [T closed]"), KT("real")},
    {KT("kex_g_pl_area"), notBuilt, KT("list of pt"), KT("real")},
    {KT("kex_g_pl_cen"), notBuilt, KT("list of pt"), KT("pt or nil")},
    {KT("kex_g_pl_statics"), notBuilt, KT("list of pt"), KT("list or nil")},
    {KT("kex_g_pl_ext"), notBuilt, KT("list of pt"), KT("(min max) or nil")},
    {KT("kex_g_pl_sort"), notBuilt, KT("list of pt, num w, [T uniq]"), KT("list of pt")},
    {KT("kex_g_pl_uniq"), notBuilt, KT("list of pt, [num tol = _RNDL]"), KT("list of pt")},
    {KT("kex_g_pl_hull"), notBuilt, KT("list of pt"), KT("list of pt")},
    {KT("kex_g_pl_inside"), notBuilt, KT("list of pt, pt p"), KT("int")},
    {KT("kex_g_pl_near"), notBuilt, KT("list of pt, pt p"), KT("int or nil")},
    {KT("kex_g_pl_mtx"), notBuilt, KT("list of pt, mtx"), KT("list of pt")},
    {KT("kex_g_pl_vl"), notBuilt, KT("list of pt, [T closed], [list of num bulges]"),
     KT("vl or nil")},
    {KT("kex_g_pl_plan"), notBuilt, KT("list of pt, [num tol = _RNDL]"), KT("plane or nil")},
    {KT("kex_g_pl_colin"), notBuilt, KT("list of pt, [num tol = _RNDL]"), KT("T or nil")},
    {KT("kex_g_pl_thin"), notBuilt, KT("list of pt, num dif"), KT("list of pt")},
};

} // namespace KEX
