// SPDX-License-Identifier: LicenseRef-ORVALD
// Glazing.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kGlazingRows[] = {
    {KT("kex_glazing_def"), notBuilt, KT("string build-up, [string gas]"),
     KT("list of (string . value) or nil")},
    {KT("kex_glazing_blocks"), notBuilt,
     KT("number width, number height, string kind, [string hand], [number distance]"),
     KT("list of rows")},
};

} // namespace KEX
