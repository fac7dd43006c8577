// SPDX-License-Identifier: LicenseRef-ORVALD
// Lists of vertex lists, extended lists and conversions from other notations.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

LispFn vxOfNotation, vlOfNotation, vllOfNotation, xvx, xvl, xvll;

inline constexpr LispRow kVertexListsRows[] = {
    {KT("kex_g_vll_acad_region"), notBuilt, KT("vll"), KT("list of en or nil")},
    {KT("kex_g_vll_chamfer"), notBuilt, KT("vll, num d1, [num d2 = d1]"), KT("vll")},
    {KT("kex_g_vll_extmax"), notBuilt, KT("vll"), KT("(min max) or nil")},
    {KT("kex_g_vll_hide"), notBuilt, KT("vll, vll covers"), KT("vll or nil")},
    {KT("kex_g_vll_int"), notBuilt, KT("vll, [vll 2]"), KT("list of pt or nil")},
    {KT("kex_g_vll_join"), notBuilt, KT("vll, [num tol = _RNDF]"), KT("vll")},
    {KT("kex_g_vll_move"), notBuilt, KT("vll, vc v"), KT("vll")},
    {KT("kex_g_vll_outl"), notBuilt, KT("vll"), KT("vll or nil")},
    {KT("kex_g_vll_outl_dummy"), notBuilt, KT("vll, [num d = 0.0]"), KT("vll or nil")},
    {KT("kex_g_vll_region"), notBuilt, KT("vll"), KT("vll reg or nil")},
    {KT("kex_g_vll_regions"), notBuilt, KT("vll"), KT("regl or nil")},
    {KT("kex_g_vll_shear"), notBuilt, KT("vll, vl2 or num kx, num ky"), KT("vll")},
    {KT("kex_g_vll_split_dif"), notBuilt, KT("vll, num dif"), KT("vll")},
    {KT("kex_g_vll_trans"), notBuilt, KT("vll, from, to"), KT("vll or nil")},
    {KT("kex_g_vll_union"), notBuilt, KT("vll"), KT("regl or nil")},
    {KT("kex_g_xvx"), xvx, KT("vx, any data"), KT("xvx")},
    {KT("kex_g_xvl"), xvl, KT("vl, list of data"), KT("xvl")},
    {KT("kex_g_xvll"), xvll, KT("vll, list of lists of data"), KT("list of xvl")},
    {KT("kex_g_gvx"), vxOfNotation, KT("vx in any notation, [num dif = 0.01]"), KT("vx or nil")},
    {KT("kex_g_gvl"), vlOfNotation, KT("vl in any notation, [T closed], [num dif = 0.01]"),
     KT("vl or nil")},
    {KT("kex_g_gvll"), vllOfNotation, KT("list of such, or el, [T closed], [num dif = 0.01]"),
     KT("vll or nil")},
};

} // namespace KEX
