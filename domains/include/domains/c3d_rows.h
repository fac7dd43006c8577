// SPDX-License-Identifier: LicenseRef-ORVALD
// Spatial frames.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kC3dRows[] = {
    {KT("kex_c3d_new"), notBuilt, KT("[string name], [list of (string role . norm)]"), KT("ename")},
    {KT("kex_c3d_node"), notBuilt, KT("c3d, point, [number tol]"), KT("integer")},
    {KT("kex_c3d_memb"), notBuilt,
     KT("c3d, integer node1, integer node2, [norm], [string role], [real planang]"),
     KT("integer or nil")},
    {KT("kex_c3d_get"), notBuilt, KT("c3d, [string kind], [integer number]"),
     KT("data, list of numbers or value")},
    {KT("kex_c3d_bars"), notBuilt, KT("c3d, [list of members], [T make objects]"),
     KT("list of BAR data or enames")},
    {KT("kex_c3d_panel"), notBuilt, KT("c3d, list of integer nodes, [number inset]"),
     KT("list (vl mtx) or nil")},
    {KT("kex_c3d_chk"), notBuilt, KT("c3d"), KT("list of (string kind, list of numbers) or nil")},
};

} // namespace KEX
