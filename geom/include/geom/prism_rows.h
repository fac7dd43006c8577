// SPDX-License-Identifier: LicenseRef-ORVALD
// Bodies of prisms.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kPrismRows[] = {
    {KT("kex_g_solid_extr"), notBuilt, KT("vl or vll reg, num h, [mtx = unit]"), KT("body or nil")},
    {KT("kex_g_solid_e"), notBuilt, KT("en"), KT("body or nil")},
    {KT("kex_g_solid_mtx"), notBuilt, KT("body, mtx"), KT("body or nil")},
    {KT("kex_g_solid_vol"), notBuilt, KT("body"), KT("(real pt)")},
    {KT("kex_g_solid_ext"), notBuilt, KT("body"), KT("(min max) or nil")},
    {KT("kex_g_solid_edges"), notBuilt, KT("body"), KT("list of (pt pt)")},
    {KT("kex_g_solid_sect"), notBuilt, KT("body, mtx"), KT("regl or nil")},
    {KT("kex_g_solid_pt_inside"), notBuilt, KT("body, pt p"), KT("int")},
};

} // namespace KEX
