// SPDX-License-Identifier: LicenseRef-ORVALD
// Rounded lengths and angles; the radius of a fillet.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kRoundedRows[] = {
    {KT("kex_g_rnd"), notBuilt, KT("num x, num step"), KT("real")},
    {KT("kex_g_rnd_quad"), notBuilt, KT("num a"), KT("real")},
    {KT("kex_g_rnd_unit"), notBuilt, KT("num x, int n, int unit"), KT("real")},
    {KT("kex_g_tang_radius"), notBuilt, KT("num a, num b"), KT("real")},
    {KT("kex_g_rnd_up"), notBuilt, KT("num x, num step"), KT("real")},
    {KT("kex_g_rnd_ang"), notBuilt, KT("num a, num step"), KT("real")},
};

} // namespace KEX
