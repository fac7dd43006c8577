// SPDX-License-Identifier: LicenseRef-ORVALD
// Drillings.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kDrillRows[] = {
    {KT("kex_drill_def"), notBuilt,
     KT("string thread or number d, [string form], [string fit], [number depth], [list of (string "
        "key . value)]"),
     KT("DRILL data or nil")},
    {KT("kex_drill_new"), notBuilt, KT("DRILL data, point, [vector], [string layer]"), KT("ename")},
    {KT("kex_drill_get"), notBuilt, KT("ename, [key]"), KT("data or value")},
    {KT("kex_drill_group"), notBuilt, KT("string kind, list of numbers"), KT("list of points")},
    {KT("kex_drill_list"), notBuilt, KT("list of enames or nil"), KT("list of rows")},
    {KT("kex_drill_symb"), notBuilt, KT("DRILL data, [number scale], [T from below]"), KT("vll")},
};

} // namespace KEX
