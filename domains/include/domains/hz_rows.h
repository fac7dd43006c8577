// SPDX-License-Identifier: LicenseRef-ORVALD
// Semi-finished products.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kHzRows[] = {
    {KT("kex_hz_find"), notBuilt,
     KT("string mat, string form, list of numbers dims, [number length]"),
     KT("list of rows or nil")},
    {KT("kex_hz_gew"), notBuilt, KT("string mat, string form, list of numbers dims, number length"),
     KT("real or nil")},
};

} // namespace KEX
