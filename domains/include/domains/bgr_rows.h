// SPDX-License-Identifier: LicenseRef-ORVALD
// Assemblies.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kBgrRows[] = {
    {KT("kex_bgr_new"), notBuilt, KT("[string name], [enames or pickset]"), KT("ename")},
    {KT("kex_bgr_get"), notBuilt, KT("bgr, [key]"), KT("data or value")},
    {KT("kex_bgr_set"), notBuilt, KT("bgr, key, value or nil"), KT("bgr or nil")},
    {KT("kex_bgr_dir"), notBuilt, KT("[T roots only]"), KT("list of enames or nil")},
    {KT("kex_bgr_add"), notBuilt, KT("bgr, enames or pickset"), KT("integer")},
    {KT("kex_bgr_rem"), notBuilt, KT("bgr, enames or pickset"), KT("integer")},
    {KT("kex_bgr_members"), notBuilt, KT("bgr, [T nested], [string type]"),
     KT("list of enames or nil")},
    {KT("kex_bgr_of"), notBuilt, KT("ename"), KT("ename or nil")},
    {KT("kex_bgr_root"), notBuilt, KT("ename"), KT("ename or nil")},
    {KT("kex_bgr_tree"), notBuilt, KT("bgr or nil"), KT("list")},
    {KT("kex_bgr_count"), notBuilt, KT("bgr, [string type]"), KT("integer")},
    {KT("kex_bgr_gew"), notBuilt, KT("bgr"), KT("real")},
    {KT("kex_bgr_surf"), notBuilt, KT("bgr"), KT("real")},
    {KT("kex_bgr_cog"), notBuilt, KT("bgr"), KT("point or nil")},
    {KT("kex_bgr_ext"), notBuilt, KT("bgr, [mtx]"), KT("list (pmin pmax) or nil")},
    {KT("kex_bgr_mtx"), notBuilt, KT("bgr, mtx"), KT("T or nil")},
    {KT("kex_bgr_copy"), notBuilt, KT("bgr, [mtx]"), KT("ename")},
    {KT("kex_bgr_mir"), notBuilt, KT("bgr, point, point, point"), KT("ename or nil")},
    {KT("kex_bgr_del"), notBuilt, KT("bgr, [T erase members]"), KT("T or nil")},
    {KT("kex_bgr_main"), notBuilt, KT("bgr, [ename]"), KT("ename or nil")},
    {KT("kex_bgr_equal"), notBuilt, KT("bgr1, bgr2, [number tol]"), KT("T, 2 or nil")},
    {KT("kex_bgr_pos"), notBuilt, KT("list of bgr, [string start assembly], [string start part]"),
     KT("list of (ename cpos)")},
    {KT("kex_bgr_stkl"), notBuilt, KT("bgr, [T nested]"), KT("list of rows")},
    {KT("kex_bgr_stkl_sum"), notBuilt, KT("list of bgr"), KT("list of rows")},
    {KT("kex_bgr_code"), notBuilt, KT("bgr, [string format]"), KT("string")},
    {KT("kex_bgr_block"), notBuilt, KT("bgr, string name, [point base]"), KT("ename or nil")},
    {KT("kex_bgr_label"), notBuilt, KT("bgr, [integer mask]"), KT("list of strings")},
    {KT("kex_bgr_visible"), notBuilt, KT("bgr or nil, T or nil"), KT("integer")},
    {KT("kex_bgr_chk"), notBuilt, KT("[bgr]"), KT("list of (ename string) or nil")},
};

} // namespace KEX
