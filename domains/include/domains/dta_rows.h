// SPDX-License-Identifier: LicenseRef-ORVALD
// Data tables.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kDtaRows[] = {
    {KT("kex_dta_read"), notBuilt, KT("string file, [string separator], [T numbers]"),
     KT("list of rows or nil")},
    {KT("kex_dta_write"), notBuilt,
     KT("list of rows, string file, [string separator], [string decimal]"), KT("T or nil")},
    {KT("kex_dta_col"), notBuilt, KT("list of rows, string head or integer, [list of new values]"),
     KT("list or nil")},
    {KT("kex_dta_find"), notBuilt, KT("list of rows, list of (head op value)"),
     KT("list of rows or nil")},
    {KT("kex_dta_sort"), notBuilt, KT("list of rows, list of heads (leading \"-\" for falling)"),
     KT("list of rows")},
    {KT("kex_dta_group"), notBuilt,
     KT("list of rows, list of key heads, list of sum heads, [string count head]"),
     KT("list of rows")},
    {KT("kex_dta_join"), notBuilt, KT("list of rows, list of rows, list of heads"),
     KT("list of rows")},
    {KT("kex_dta_draw"), notBuilt,
     KT("list of rows, point, number height, [list of widths], [T as table entity]"),
     KT("list of enames")},
};

} // namespace KEX
