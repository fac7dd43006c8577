// SPDX-License-Identifier: LicenseRef-ORVALD
// Welds.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kWeldRows[] = {
    {KT("kex_weld_kinds"), notBuilt, KT(""), KT("list of rows")},
    {KT("kex_weld_def"), notBuilt,
     KT("string kind, list of (string key . value), [list for the other side]"),
     KT("WELD data or nil")},
    {KT("kex_weld_new"), notBuilt,
     KT("WELD data, vl or list of points path, [list of points arrow]"), KT("ename")},
    {KT("kex_weld_get"), notBuilt, KT("ename, [key]"), KT("data or value")},
    {KT("kex_weld_set"), notBuilt, KT("weld, key, value or nil"), KT("weld as given")},
    {KT("kex_weld_symb"), notBuilt,
     KT("weld, list of points arrow, [integer side], [number height]"), KT("list (vll texts)")},
    {KT("kex_weld_text"), notBuilt, KT("weld"), KT("string")},
    {KT("kex_weld_len"), notBuilt, KT("weld, [vl path]"), KT("real")},
    {KT("kex_weld_vol"), notBuilt, KT("weld, [vl path]"), KT("list (area volume mass)")},
    {KT("kex_weld_chk"), notBuilt, KT("weld, number t1, number t2"), KT("list of strings or nil")},
    {KT("kex_weld_list"), notBuilt, KT("list of welds or nil"), KT("list of rows")},
};

} // namespace KEX
