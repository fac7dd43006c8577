// SPDX-License-Identifier: LicenseRef-ORVALD
// Buildings.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kBuildRows[] = {
    {KT("kex_build_new"), notBuilt, KT("string id, [list of (string key . value)]"),
     KT("ename or nil")},
    {KT("kex_build_get"), notBuilt, KT("build or nil, [key]"), KT("data or value")},
    {KT("kex_build_set"), notBuilt, KT("build or nil, key, value or nil"), KT("build or nil")},
    {KT("kex_build_dir"), notBuilt, KT("[string pattern]"), KT("list of enames or nil")},
    {KT("kex_build_add"), notBuilt, KT("build, enames or pickset, [string floor], [string lot]"),
     KT("integer")},
    {KT("kex_build_sum"), notBuilt, KT("build or nil, [string key]"), KT("list of rows")},
    {KT("kex_build_label"), notBuilt, KT("build or nil, [integer mask]"), KT("list of strings")},
};

} // namespace KEX
