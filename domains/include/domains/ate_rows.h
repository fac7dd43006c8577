// SPDX-License-Identifier: LicenseRef-ORVALD
// Attributes.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kAteRows[] = {
    {KT("kex_ate_dir"), notBuilt, KT("ename, [T constant too]"),
     KT("list of (string tag . string value) or nil")},
    {KT("kex_ate_get"), notBuilt, KT("ename, string tag"), KT("string or nil")},
    {KT("kex_ate_set"), notBuilt, KT("ename, string tag, string value"), KT("string or nil")},
    {KT("kex_ate_mod"), notBuilt, KT("ename or list of enames, list of (string tag . value)"),
     KT("integer")},
    {KT("kex_ate_def_dir"), notBuilt, KT("string block"), KT("list of rows or nil")},
    {KT("kex_ate_def_new"), notBuilt,
     KT("string block, string tag, string prompt, string default, point, number height, [integer "
        "flags], [string just]"),
     KT("ename or nil")},
    {KT("kex_ate_sync"), notBuilt, KT("string block, [T remove extra]"), KT("integer")},
    {KT("kex_ate_find"), notBuilt, KT("string block or nil, string tag, string pattern"),
     KT("list of enames or nil")},
    {KT("kex_ate_db"), notBuilt, KT("ename, [key], [value]"), KT("data or value")},
    {KT("kex_ate_table"), notBuilt, KT("string block or pattern, [list of tags]"),
     KT("list of rows or nil")},
};

} // namespace KEX
