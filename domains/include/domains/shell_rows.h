// SPDX-License-Identifier: LicenseRef-ORVALD
// Shells.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kShellRows[] = {
    {KT("kex_shell_def"), notBuilt,
     KT("list of (list of points) faces, number thick, [string mat]"), KT("SHELL data or nil")},
    {KT("kex_shell_new"), notBuilt, KT("SHELL data, [string layer]"), KT("ename")},
    {KT("kex_shell_unfold"), notBuilt, KT("shell, [integer root face], [integer method]"),
     KT("list (vll bends) or nil")},
    {KT("kex_shell_gew"), notBuilt, KT("shell"), KT("real")},
};

} // namespace KEX
