// SPDX-License-Identifier: LicenseRef-ORVALD
// Seals.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kSealRows[] = {
    {KT("kex_seal_len"), notBuilt, KT("list of enames or nil, [number shrink percent]"),
     KT("list of rows")},
    {KT("kex_seal_vl"), notBuilt,
     KT("vl path, string name or vl section, [number offset], [string corner]"),
     KT("list (vl vll) or nil")},
};

} // namespace KEX
