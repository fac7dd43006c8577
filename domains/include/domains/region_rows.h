// SPDX-License-Identifier: LicenseRef-ORVALD
// Material outlines.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kRegionRows[] = {
    {KT("kex_region_new"), notBuilt, KT("reg or vll, [string mat], [string layer]"),
     KT("ename or nil")},
    {KT("kex_region_get"), notBuilt, KT("ename"), KT("reg or nil")},
    {KT("kex_region_set"), notBuilt, KT("ename, reg"), KT("ename or nil")},
    {KT("kex_region_from_pt"), notBuilt, KT("point, [enames or pickset]"), KT("reg or nil")},
    {KT("kex_region_from_ents"), notBuilt, KT("enames or pickset"), KT("reg or nil")},
    {KT("kex_region_unite"), notBuilt, KT("reg1, reg2"), KT("reg")},
    {KT("kex_region_subtract"), notBuilt, KT("reg1, reg2"), KT("reg or nil")},
    {KT("kex_region_inters"), notBuilt, KT("reg1, reg2"), KT("reg or nil")},
    {KT("kex_region_area"), notBuilt, KT("reg, [string unit]"), KT("real")},
    {KT("kex_region_statik"), notBuilt, KT("reg"), KT("list of reals")},
    {KT("kex_region_hatch"), notBuilt, KT("ename, [string pattern], [number scale], [real angle]"),
     KT("ename or nil")},
    {KT("kex_region_mat"), notBuilt, KT("ename, [string mat]"), KT("string or nil")},
};

} // namespace KEX
