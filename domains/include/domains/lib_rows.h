// SPDX-License-Identifier: LicenseRef-ORVALD
// Libraries.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kLibRows[] = {
    {KT("kex_lib_open"), notBuilt, KT("string folder, [T create], [string name]"),
     KT("string or nil")},
    {KT("kex_lib_dir"), notBuilt, KT("[string library], [string type]"),
     KT("list of strings or nil")},
    {KT("kex_lib_get"), notBuilt, KT("string lib"), KT("data or nil")},
    {KT("kex_lib_put"), notBuilt, KT("string lib, data, [gdx]"), KT("T or nil")},
    {KT("kex_lib_del"), notBuilt, KT("string lib"), KT("T or nil")},
    {KT("kex_lib_find"), notBuilt, KT("string text, [string library]"),
     KT("list of strings or nil")},
    {KT("kex_lib_image"), notBuilt, KT("string lib, [integer width, integer height]"),
     KT("gdx or nil")},
    {KT("kex_lib_use"), notBuilt, KT("string lib"), KT("list of enames or nil")},
    {KT("kex_lib_update"), notBuilt, KT("string lib or nil, [list of keys keep]"), KT("integer")},
};

} // namespace KEX
