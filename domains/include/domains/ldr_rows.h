// SPDX-License-Identifier: LicenseRef-ORVALD
// Leaders.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kLdrRows[] = {
    {KT("kex_ldr_new"), notBuilt,
     KT("ename or list of enames, list of points, [integer mask], [string type]"),
     KT("ename or nil")},
    {KT("kex_ldr_upd"), notBuilt, KT("[ename, enames or nil]"), KT("integer")},
    {KT("kex_ldr_txt"), notBuilt, KT("ename, [T markup]"), KT("list of strings or nil")},
    {KT("kex_ldr_obj"), notBuilt, KT("ename, [ename or nil]"), KT("list of enames or nil")},
    {KT("kex_ldr_pos"), notBuilt, KT("ename, point, point, [string text], [number height]"),
     KT("ename")},
    {KT("kex_ldr_arrange"), notBuilt, KT("enames or pickset, point, real angle, [number step]"),
     KT("integer")},
};

} // namespace KEX
