// SPDX-License-Identifier: LicenseRef-ORVALD
// Blocks.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kBRows[] = {
    {KT("kex_b_DxfOut"), notBuilt, KT("string block or enames, string file, [string version]"),
     KT("T or nil")},
    {KT("kex_b_loadBlock"), notBuilt, KT("string file, [string name], [T replace]"),
     KT("string or nil")},
    {KT("kex_b_saveBlock"), notBuilt, KT("string name, string file, [point base]"), KT("T or nil")},
    {KT("kex_b_dir"), notBuilt, KT("[string pattern], [T anonymous too]"),
     KT("list of strings or nil")},
    {KT("kex_b_new"), notBuilt,
     KT("string name, point base, enames or pickset, [T keep originals]"), KT("string or nil")},
    {KT("kex_b_ins"), notBuilt,
     KT("string name, point, [number or list of 3 scales], [real angle], [list of (tag . value)]"),
     KT("ename or nil")},
    {KT("kex_b_ents"), notBuilt, KT("string name"), KT("list of enames or nil")},
    {KT("kex_b_refs"), notBuilt, KT("string name, [T nested]"), KT("list of enames or nil")},
    {KT("kex_b_ext"), notBuilt, KT("string name, [mtx]"), KT("list (pmin pmax) or nil")},
    {KT("kex_b_basep"), notBuilt, KT("string name, [point]"), KT("point or nil")},
    {KT("kex_b_ren"), notBuilt, KT("string old, string new"), KT("T or nil")},
    {KT("kex_b_del"), notBuilt, KT("string name"), KT("T or nil")},
    {KT("kex_b_expl"), notBuilt, KT("ename, [T attributes as text]"), KT("list of enames or nil")},
    {KT("kex_b_uses"), notBuilt, KT("string name"), KT("list or nil")},
    {KT("kex_b_repl"), notBuilt, KT("string old, string new, [T keep attributes]"), KT("integer")},
};

} // namespace KEX
