// SPDX-License-Identifier: LicenseRef-ORVALD
// Drawings.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kDwgRows[] = {
    {KT("kex_dwg_info"), notBuilt, KT("[string file]"), KT("list of (string . value) or nil")},
    {KT("kex_dwg_save"), notBuilt, KT("string file, [string version]"), KT("T or nil")},
    {KT("kex_dwg_xref_dir"), notBuilt, KT("[T nested]"), KT("list of rows or nil")},
    {KT("kex_dwg_cmp"), notBuilt, KT("string file1, string file2, [number tol]"),
     KT("list of rows")},
};

} // namespace KEX
