// SPDX-License-Identifier: LicenseRef-ORVALD
// Walls.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kWallRows[] = {
    {KT("kex_wall_def"), notBuilt,
     KT("vl axis, list of (mat thickness [role]) layers, number height, [string side]"),
     KT("WALL data or nil")},
    {KT("kex_wall_new"), notBuilt, KT("WALL data, [string layer]"), KT("ename")},
    {KT("kex_wall_vll"), notBuilt, KT("wall, [vll openings]"), KT("vll")},
    {KT("kex_wall_u"), notBuilt, KT("wall, [number rsi, default 0.13], [number rse, default 0.04]"),
     KT("real or nil")},
};

} // namespace KEX
