// SPDX-License-Identifier: LicenseRef-ORVALD
// Cutting lists.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kClbRows[] = {
    {KT("kex_clb_put"), notBuilt, KT("string or data, [string format]"), KT("T")},
    {KT("kex_clb_get"), notBuilt, KT("[string format]"), KT("string, data or nil")},
    {KT("kex_clb_clear"), notBuilt, KT(""), KT("nil")},
    {KT("kex_clb_fmt"), notBuilt, KT(""), KT("list of strings or nil")},
    {KT("kex_clb_ents"), notBuilt, KT("enames or pickset, [point base]"), KT("integer")},
    {KT("kex_clb_paste"), notBuilt, KT("point, [real angle], [number scale]"),
     KT("list of enames or nil")},
};

} // namespace KEX
