// SPDX-License-Identifier: LicenseRef-ORVALD
// Elements.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kElemRows[] = {
    {KT("kex_elem_def"), notBuilt,
     KT("number width, number height or vl outline, [string name], [string standard]"),
     KT("ELEM data or nil")},
    {KT("kex_elem_new"), notBuilt, KT("ELEM data, point, [real angle]"), KT("ename")},
    {KT("kex_elem_get"), notBuilt, KT("ename, [key]"), KT("data or value")},
    {KT("kex_elem_set"), notBuilt, KT("elem, key, value or nil"), KT("elem as given")},
    {KT("kex_elem_split"), notBuilt,
     KT("elem, integer field, string direction, integer n or list of numbers, [norm or number "
        "width]"),
     KT("elem as given or nil")},
    {KT("kex_elem_field_dir"), notBuilt, KT("elem"), KT("list of rows")},
    {KT("kex_elem_field_set"), notBuilt, KT("elem, integer field, key, value"),
     KT("elem as given or nil")},
    {KT("kex_elem_outl"), notBuilt, KT("elem, [integer field]"), KT("vl or nil")},
    {KT("kex_elem_bars"), notBuilt, KT("elem, [integer joint]"), KT("list of BAR data")},
    {KT("kex_elem_glass"), notBuilt, KT("elem, [number rebate, default 18]"), KT("list of rows")},
    {KT("kex_elem_symb"), notBuilt, KT("elem, [integer field]"), KT("vll")},
    {KT("kex_elem_uw"), notBuilt, KT("elem, number uf, number psi, [number ug]"),
     KT("real or nil")},
    {KT("kex_elem_list"), notBuilt, KT("list of elems or nil"), KT("list of rows")},
    {KT("kex_elem_pos"), notBuilt, KT("list of elems, [string start]"),
     KT("list of elems as given")},
    {KT("kex_elem_label"), notBuilt, KT("elem, [integer mask]"), KT("list of strings")},
};

} // namespace KEX
