// SPDX-License-Identifier: LicenseRef-ORVALD
// Fronts.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kFrontRows[] = {
    {KT("kex_front_new"), notBuilt,
     KT("vl outline, string name, [list of numbers axes-x, list of numbers axes-y]"), KT("ename")},
    {KT("kex_front_get"), notBuilt, KT("front, [key]"), KT("data or value")},
    {KT("kex_front_field"), notBuilt,
     KT("front, integer column, integer row, [elem, panel or nil]"), KT("list (vl member) or nil")},
    {KT("kex_front_list"), notBuilt, KT("front or list of fronts"), KT("list of rows")},
};

} // namespace KEX
