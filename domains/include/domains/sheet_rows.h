// SPDX-License-Identifier: LicenseRef-ORVALD
// Sheet metal.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kSheetRows[] = {
    {KT("kex_sheet_def"), notBuilt,
     KT("vl fold line, number thickness, number length, [string mat], [number radius], [integer "
        "side]"),
     KT("BLECH data or nil")},
    {KT("kex_sheet_new"), notBuilt, KT("BLECH data, point, [mtx]"), KT("ename")},
    {KT("kex_sheet_get"), notBuilt, KT("ename, [key]"), KT("data or value")},
    {KT("kex_sheet_set"), notBuilt, KT("sheet, key, value or nil"), KT("sheet as given")},
    {KT("kex_sheet_sect"), notBuilt, KT("sheet"), KT("vll")},
    {KT("kex_sheet_edges"), notBuilt, KT("sheet"), KT("list of rows")},
    {KT("kex_sheet_bend"), notBuilt,
     KT("number s, number r, real angle, [integer method], [string mat]"), KT("list (v ba k)")},
    {KT("kex_sheet_len"), notBuilt, KT("sheet, [integer method]"), KT("real")},
    {KT("kex_sheet_flat"), notBuilt, KT("sheet, [integer method]"), KT("list (vll bends)")},
    {KT("kex_sheet_unfold"), notBuilt, KT("ename, point, [integer method]"), KT("ename")},
    {KT("kex_sheet_net"), notBuilt, KT("sheet"), KT("net")},
    {KT("kex_sheet_hole"), notBuilt,
     KT("sheet, integer leg, number x, number y, number diameter or vl, [DRILL data]"),
     KT("sheet as given or nil")},
    {KT("kex_sheet_box"), notBuilt,
     KT("number length, number width, number height, number s, number r, [number return], [string "
        "mat]"),
     KT("list (vll bends data)")},
    {KT("kex_sheet_chk"), notBuilt, KT("sheet"), KT("list of strings or nil")},
    {KT("kex_sheet_gew"), notBuilt, KT("sheet"), KT("real")},
    {KT("kex_sheet_label"), notBuilt, KT("sheet, [integer mask]"), KT("list of strings")},
    {KT("kex_sheet_nest"), notBuilt,
     KT("list of (w h count [tag]), number sheet-w, number sheet-h, [number gap], [T turn]"),
     KT("list of sheets")},
    {KT("kex_sheet_table"), notBuilt, KT("string mat, number s, [list of (r angle v) or nil]"),
     KT("list of (r angle v) or nil")},
    {KT("kex_sheet_cone"), notBuilt,
     KT("number d1, number d2, number height, [number s], [real part]"),
     KT("list (vl angle r1 r2) or nil")},
    {KT("kex_sheet_trans"), notBuilt,
     KT("number a, number b, number d, number height, [number ex, number ey], [integer n]"),
     KT("list (vll bends) or nil")},
    {KT("kex_sheet_trapez"), notBuilt,
     KT("string type, vl area, [real direction], [number overlap]"), KT("list of rows or nil")},
};

} // namespace KEX
