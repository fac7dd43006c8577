// SPDX-License-Identifier: LicenseRef-ORVALD
// Temporary graphics, and the visible part of the drawing.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kGraphicsRows[] = {
    {KT("kex_g_gr_cross"), notBuilt, KT("pt p"), KT("pt")},
    {KT("kex_g_gr_arrow"), notBuilt, KT("pt p, num angle"), KT("pt")},
    {KT("kex_g_gr_rect"), notBuilt, KT("num x1, num y1, num x2, num y2"), KT("nil")},
    {KT("kex_g_gr_rhombus"), notBuilt, KT("pt p"), KT("pt")},
    {KT("kex_g_gr_plus"), notBuilt, KT("pt p"), KT("pt")},
    {KT("kex_g_gr_minus"), notBuilt, KT("pt p"), KT("pt")},
    {KT("kex_g_gr_xline"), notBuilt, KT("pt p"), KT("pt")},
    {KT("kex_g_gr_yline"), notBuilt, KT("pt p"), KT("pt")},
    {KT("kex_g_gr_ucs"), notBuilt, KT("pt p"), KT("pt")},
};

inline constexpr LispRow kViewRows[] = {
    {KT("kex_g_vsmin"), notBuilt, KT(""), KT("pt or nil")},
    {KT("kex_g_vsmax"), notBuilt, KT(""), KT("pt or nil")},
    {KT("kex_g_af_fact"), notBuilt, KT(""), KT("real or nil")},
};

} // namespace KEX
