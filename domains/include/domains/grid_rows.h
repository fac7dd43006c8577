// SPDX-License-Identifier: LicenseRef-ORVALD
// Grids.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kGridRows[] = {
    {KT("kex_grid_new"), notBuilt,
     KT("point, list of numbers x spacing, list of numbers y spacing, [string first-x, string "
        "first-y], [real angle]"),
     KT("ename")},
    {KT("kex_grid_pt"), notBuilt, KT("ename, string axis-x, string axis-y, or point"),
     KT("point, or list (string string dx dy)")},
};

} // namespace KEX
