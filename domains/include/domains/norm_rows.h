// SPDX-License-Identifier: LicenseRef-ORVALD
// Norm profiles.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kNormRows[] = {
    {KT("kex_norm_dir"), notBuilt, KT("[string kind]"), KT("list of (string key, string title)")},
    {KT("kex_norm_read"), notBuilt, KT("string file, [string key]"), KT("string or nil")},
    {KT("kex_norm_write"), notBuilt, KT("string key, string file"), KT("T or nil")},
    {KT("kex_norm_reset"), notBuilt, KT(""), KT("nil")},
    {KT("kex_norm_title"), notBuilt, KT("string key"), KT("string or nil")},
    {KT("kex_norm_cols"), notBuilt, KT("string key"), KT("list of strings or nil")},
    {KT("kex_norm_rows"), notBuilt, KT("string key, [string series]"),
     KT("list of strings or nil")},
    {KT("kex_norm_get"), notBuilt, KT("norm, [string column or list of columns]"),
     KT("list of reals, value or nil")},
    {KT("kex_norm_find"), notBuilt,
     KT("string key, list of (string column, string op, number), [string order column]"),
     KT("list of strings or nil")},
    {KT("kex_norm_next"), notBuilt, KT("norm, integer step"), KT("norm or nil")},
    {KT("kex_norm_near"), notBuilt,
     KT("string key, list of (string column . number), [number tol]"), KT("norm or nil")},
    {KT("kex_norm_key"), notBuilt, KT("string"), KT("norm or nil")},
    {KT("kex_norm_label"), notBuilt, KT("norm, [integer kind]"), KT("string or nil")},
    {KT("kex_norm_sect"), notBuilt, KT("norm, [T sharp]"), KT("vll or nil")},
    {KT("kex_norm_gew"), notBuilt, KT("norm, [string mat]"), KT("real or nil")},
    {KT("kex_norm_surf"), notBuilt, KT("norm"), KT("real or nil")},
    {KT("kex_norm_statik"), notBuilt, KT("norm"), KT("list of reals or nil")},
    {KT("kex_norm_mat"), notBuilt, KT("norm or string key"), KT("string or nil")},
    {KT("kex_norm_set"), notBuilt, KT("string key, string row, list of (string column . value)"),
     KT("norm or nil")},
    {KT("kex_norm_del"), notBuilt, KT("string key, [string row]"), KT("T or nil")},
    {KT("kex_norm_hole"), notBuilt, KT("string thread or number d, [string fit, default \"m\"]"),
     KT("real or nil")},
    {KT("kex_norm_senk"), notBuilt, KT("string form, string thread"),
     KT("list (d1 d2 t angle) or nil")},
    {KT("kex_norm_core"), notBuilt, KT("string thread"), KT("list (drill pitch) or nil")},
    {KT("kex_norm_screw"), notBuilt, KT("string key, string thread, [number length]"),
     KT("list of (string . real) or nil")},
    {KT("kex_norm_stack"), notBuilt,
     KT("string thread, number clamp, [list of strings parts], [string key]"),
     KT("list of rows or nil")},
};

} // namespace KEX
