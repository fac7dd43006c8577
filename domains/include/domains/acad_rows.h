// SPDX-License-Identifier: LicenseRef-ORVALD
// Host settings.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kAcadRows[] = {
    {KT("kex_acad_var"), notBuilt, KT("string name, [value]"), KT("value or nil")},
    {KT("kex_acad_var_push"), notBuilt, KT("list of (string name . value)"), KT("integer")},
    {KT("kex_acad_var_pop"), notBuilt, KT("[integer depth]"), KT("integer")},
    {KT("kex_acad_unit"), notBuilt, KT("[integer or string unit]"),
     KT("list (integer string real)")},
    {KT("kex_acad_unit_cv"), notBuilt, KT("number, integer or string from, integer or string to"),
     KT("real or nil")},
    {KT("kex_acad_ucs_mtx"), notBuilt, KT("[T inverse], [string name]"), KT("mtx")},
    {KT("kex_acad_undo"), notBuilt, KT("string mode"), KT("integer or nil")},
    {KT("kex_acad_cmd"), notBuilt, KT("list of strings, numbers, points or enames"),
     KT("T or nil")},
    {KT("kex_acad_tstyle"), notBuilt, KT("[string name], [list (font height width oblique)]"),
     KT("string, list or nil")},
    {KT("kex_acad_ext"), notBuilt, KT("[T paper space], [list of enames]"),
     KT("list (pmin pmax) or nil")},
    {KT("kex_acad_handle"), notBuilt, KT("ename or string handle"), KT("string, ename or nil")},
};

} // namespace KEX
