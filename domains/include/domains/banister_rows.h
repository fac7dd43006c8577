// SPDX-License-Identifier: LicenseRef-ORVALD
// Railings.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kBanisterRows[] = {
    {KT("kex_banister_def"), notBuilt,
     KT("list of points foot line, number height, [list of (string key . value)]"),
     KT("BANISTER data or nil")},
    {KT("kex_banister_div"), notBuilt,
     KT("number length, number width, [number gap, default 120], [integer mode]"),
     KT("list (n gap first pitch)")},
    {KT("kex_banister_posts"), notBuilt,
     KT("list of points path, number spacing, [number end offset]"), KT("list of rows")},
    {KT("kex_banister_bars"), notBuilt, KT("banister"), KT("list of BAR data")},
    {KT("kex_banister_new"), notBuilt, KT("BANISTER data"), KT("ename")},
    {KT("kex_banister_chk"), notBuilt, KT("banister, [string use], [number fall height]"),
     KT("list of strings or nil")},
    {KT("kex_banister_list"), notBuilt, KT("list of banisters"), KT("list of rows")},
};

} // namespace KEX
