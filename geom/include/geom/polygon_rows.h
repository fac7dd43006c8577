// SPDX-License-Identifier: LicenseRef-ORVALD
// Lists of points: polygons and clouds.
#pragma once

#include "kex/polygon.h"
#include "marshal/adapt.h"
#include "marshal/lisp_row.h"

namespace KEX {

LispFn plStatics;

inline constexpr LispRow kPolygonRows[] = {
    {KT("kex_g_pl_len"), adapt<g_pl_len>, KT("list of pt, [T closed]"), KT("real")},
    {KT("kex_g_pl_area"), adaptNumbered<g_pl_area>, KT("list of pt"), KT("real")},
    {KT("kex_g_pl_cen"), adaptNumbered<g_pl_cen, lengthTolerance>, KT("list of pt"),
     KT("pt or nil")},
    {KT("kex_g_pl_statics"), plStatics, KT("list of pt"), KT("list or nil")},
    {KT("kex_g_pl_ext"), adaptNumbered<g_pl_ext>, KT("list of pt"), KT("(min max) or nil")},
    {KT("kex_g_pl_sort"), adapt<g_pl_sort, lengthTolerance>, KT("list of pt, num w, [T uniq]"),
     KT("list of pt")},
    {KT("kex_g_pl_uniq"), adapt<g_pl_uniq, orElse<lengthTolerance>>,
     KT("list of pt, [num tol = _RNDL]"), KT("list of pt")},
    {KT("kex_g_pl_hull"), adaptNumbered<g_pl_hull, lengthTolerance>, KT("list of pt"),
     KT("list of pt")},
    {KT("kex_g_pl_inside"), adapt<g_pl_inside, lengthTolerance>, KT("list of pt, pt p"), KT("int")},
    {KT("kex_g_pl_near"), adapt<g_pl_near>, KT("list of pt, pt p"), KT("int or nil")},
    {KT("kex_g_pl_mtx"), adapt<g_pl_mtx>, KT("list of pt, mtx"), KT("list of pt")},
    {KT("kex_g_pl_vl"), adapt<g_pl_vl, lengthTolerance>,
     KT("list of pt, [T closed], [list of num bulges]"), KT("vl or nil")},
    {KT("kex_g_pl_plan"), adapt<g_pl_plan, orElse<lengthTolerance>, lengthTolerance>,
     KT("list of pt, [num tol = _RNDL]"), KT("plane or nil")},
    {KT("kex_g_pl_colin"), adapt<g_pl_colin, orElse<lengthTolerance>>,
     KT("list of pt, [num tol = _RNDL]"), KT("T or nil")},
    {KT("kex_g_pl_thin"), adapt<g_pl_thin>, KT("list of pt, num dif"), KT("list of pt")},
};

} // namespace KEX
