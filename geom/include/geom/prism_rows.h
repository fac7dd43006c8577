// SPDX-License-Identifier: LicenseRef-ORVALD
// Bodies of prisms.
#pragma once

#include "marshal/adapt.h"
#include "marshal/lisp_row.h"

namespace KEX {

LispFn solidExtrude, solidOfEntity, solidTransform, solidVolume, solidExtents, solidEdges,
    solidInside;

inline constexpr LispRow kPrismRows[] = {
    {KT("kex_g_solid_extr"), solidExtrude, KT("vl or vll reg, num h, [mtx = unit]"),
     KT("body or nil")},
    {KT("kex_g_solid_e"), solidOfEntity, KT("en"), KT("body or nil")},
    {KT("kex_g_solid_mtx"), solidTransform, KT("body, mtx"), KT("body or nil")},
    {KT("kex_g_solid_vol"), solidVolume, KT("body"), KT("(real pt)")},
    {KT("kex_g_solid_ext"), solidExtents, KT("body"), KT("(min max) or nil")},
    {KT("kex_g_solid_edges"), solidEdges, KT("body"), KT("list of (pt pt)")},
    {KT("kex_g_solid_sect"), notBuilt, KT("body, mtx"), KT("regl or nil")},
    {KT("kex_g_solid_pt_inside"), solidInside, KT("body, pt p"), KT("int")},
};

} // namespace KEX
