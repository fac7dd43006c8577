// SPDX-License-Identifier: LicenseRef-ORVALD
// Temporary graphics, and the visible part of the drawing.
#pragma once

#include "marshal/adapt.h"
#include "marshal/lisp_row.h"

namespace KEX {

LispFn grCross, grArrow, grRect, grRhombus, grPlus, grMinus, grXline, grYline, grUcs, viewMin,
    viewMax, viewAspect;

inline constexpr LispRow kGraphicsRows[] = {
    {KT("kex_g_gr_cross"), grCross, KT("pt p"), KT("pt")},
    {KT("kex_g_gr_arrow"), grArrow, KT("pt p, num angle"), KT("pt")},
    {KT("kex_g_gr_rect"), grRect, KT("num x1, num y1, num x2, num y2"), KT("nil")},
    {KT("kex_g_gr_rhombus"), grRhombus, KT("pt p"), KT("pt")},
    {KT("kex_g_gr_plus"), grPlus, KT("pt p"), KT("pt")},
    {KT("kex_g_gr_minus"), grMinus, KT("pt p"), KT("pt")},
    {KT("kex_g_gr_xline"), grXline, KT("pt p"), KT("pt")},
    {KT("kex_g_gr_yline"), grYline, KT("pt p"), KT("pt")},
    {KT("kex_g_gr_ucs"), grUcs, KT("pt p"), KT("pt")},
};

inline constexpr LispRow kViewRows[] = {
    {KT("kex_g_vsmin"), viewMin, KT(""), KT("pt or nil")},
    {KT("kex_g_vsmax"), viewMax, KT(""), KT("pt or nil")},
    {KT("kex_g_af_fact"), viewAspect, KT(""), KT("real or nil")},
};

} // namespace KEX
