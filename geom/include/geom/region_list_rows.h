// SPDX-License-Identifier: LicenseRef-ORVALD
// Lists of regions.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kRegionListRows[] = {
    {KT("kex_g_regl_union"), notBuilt, KT("regl a, regl b"), KT("regl or nil")},
    {KT("kex_g_regl_sub"), notBuilt, KT("regl a, regl b"), KT("regl or nil")},
    {KT("kex_g_regl_int"), notBuilt, KT("regl a, regl b"), KT("regl or nil")},
    {KT("kex_g_regl_statik"), notBuilt, KT("regl"), KT("list or nil")},
    {KT("kex_g_regl_pt_inside"), notBuilt, KT("regl, pt p"), KT("int")},
    {KT("kex_g_regl_mtx"), notBuilt, KT("regl, mtx"), KT("regl")},
    {KT("kex_g_regl_offset"), notBuilt, KT("regl, num d"), KT("regl or nil")},
};

} // namespace KEX
