// SPDX-License-Identifier: LicenseRef-ORVALD
// Rounded lengths and angles; the radius of a fillet.
#pragma once

#include "kex/arc.h"
#include "kex/rounding.h"
#include "marshal/adapt.h"
#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kRoundedRows[] = {
    {KT("kex_g_rnd"), adapt<round>, KT("num x, num step"), KT("real")},
    {KT("kex_g_rnd_quad"), adapt<g_rnd_quad>, KT("num a"), KT("real")},
    {KT("kex_g_rnd_unit"), adapt<g_rnd_unit>, KT("num x, int n, int unit"), KT("real")},
    {KT("kex_g_tang_radius"), adapt<g_tang_radius>, KT("num a, num b"), KT("real")},
    {KT("kex_g_rnd_up"), adapt<g_rnd_up, fabricationTolerance>, KT("num x, num step"), KT("real")},
    {KT("kex_g_rnd_ang"), adapt<g_rnd_ang>, KT("num a, num step"), KT("real")},
};

} // namespace KEX
