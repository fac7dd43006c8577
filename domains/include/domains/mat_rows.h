// SPDX-License-Identifier: LicenseRef-ORVALD
// Materials.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kMatRows[] = {
    {KT("kex_mat_dir"), notBuilt, KT("[string group]"), KT("list of strings")},
    {KT("kex_mat_get"), notBuilt, KT("string name, [key]"), KT("data or value")},
    {KT("kex_mat_set"), notBuilt, KT("string name, key, value or nil"), KT("T or nil")},
    {KT("kex_mat_new"), notBuilt, KT("string name, data"), KT("string or nil")},
    {KT("kex_mat_del"), notBuilt, KT("string name"), KT("T or nil")},
    {KT("kex_mat_read"), notBuilt, KT("string file, [T merge]"), KT("integer or nil")},
    {KT("kex_mat_write"), notBuilt, KT("string file"), KT("T or nil")},
    {KT("kex_mat_cur"), notBuilt, KT("[string name]"), KT("string or nil")},
    {KT("kex_mat_rho"), notBuilt, KT("string name"), KT("real or nil")},
    {KT("kex_mat_gew"), notBuilt, KT("string name, number area or volume, [number thickness]"),
     KT("real or nil")},
    {KT("kex_mat_label"), notBuilt, KT("string name, [string context]"), KT("string")},
    {KT("kex_mat_find"), notBuilt, KT("string"), KT("string or nil")},
    {KT("kex_mat_hatch"), notBuilt, KT("string name"),
     KT("list (pattern scale angle colour layer) or nil")},
    {KT("kex_mat_rmin"), notBuilt, KT("string name, number s, [T along rolling]"),
     KT("real or nil")},
    {KT("kex_mat_alpha"), notBuilt, KT("string name, number length, number dt"), KT("real or nil")},
    {KT("kex_mat_coat"), notBuilt, KT("string name or ename, [list (kind colour thickness side)]"),
     KT("list or nil")},
    {KT("kex_mat_thick"), notBuilt, KT("string name, [number s]"), KT("list of reals, or real")},
    {KT("kex_mat_of"), notBuilt, KT("ename"), KT("string or nil")},
};

} // namespace KEX
