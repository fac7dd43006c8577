// SPDX-License-Identifier: LicenseRef-ORVALD
// The functions of the application frame itself: configuration, version, dialog-handle stack.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

LispFn cfgGet, dlgPush, dlgPop, dlgStack, version, platform;

inline constexpr LispRow kCommandRows[] = {
    {KT("c:kex_cfg_get"), cfgGet, KT("[key]"), KT("value or nil")},
};

inline constexpr LispRow kDialogStackRows[] = {
    {KT("kex_dlg_push"), dlgPush, KT("[str handle]"), KT("T or nil")},
    {KT("kex_dlg_pop"), dlgPop, KT(""), KT("str or nil")},
    {KT("kex_dlg_stack"), dlgStack, KT(""), KT("list of str")},
};

inline constexpr LispRow kVersionRows[] = {
    {KT("kex_version"), version, KT("[T/nil]"), KT("string, or list of 3 integers")},
    {KT("kex_platform"), platform, KT(""), KT("list (string system, integer bits, string host)")},
};

inline constexpr LispRow kConfigRows[] = {
    {KT("kex_cfg_get"), cfgGet, KT("[key]"), KT("value or nil")},
    {KT("kex_cfg_set"), notBuilt, KT("key, value or nil"), KT("value or nil")},
    {KT("kex_cfg_dir"), notBuilt, KT("[key]"), KT("list of keys or nil")},
    {KT("kex_cfg_rem"), notBuilt, KT("key"), KT("T or nil")},
    {KT("kex_cfg_save"), notBuilt, KT("[string file]"), KT("T or nil")},
    {KT("kex_cfg_bread"), notBuilt, KT("key, string file"), KT("T or nil")},
    {KT("kex_cfg_bwrite"), notBuilt, KT("key, string file"), KT("T or nil")},
    {KT("kex_cfg_default"), notBuilt, KT("key, value"), KT("value")},
};

} // namespace KEX
