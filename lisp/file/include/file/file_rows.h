// SPDX-License-Identifier: LicenseRef-ORVALD
// The file family: files, directories and lock files.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kFileRows[] = {
    {KT("kex_file_lock"), notBuilt, KT("str file, [num wait]"), KT("T or nil")},
    {KT("kex_file_locked"), notBuilt, KT("str file"), KT("T or nil")},
    {KT("kex_file_unlock"), notBuilt, KT("str file"), KT("nothing")},
    {KT("kex_file_access"), notBuilt, KT("str file"), KT("T or nil")},
    {KT("kex_file_mkdir"), notBuilt, KT("str path"), KT("T or nil")},
    {KT("kex_file_copy"), notBuilt, KT("str source, str target"), KT("T or nil")},
    {KT("kex_file_rename"), notBuilt, KT("str old, str new"), KT("T or nil")},
    {KT("kex_file_remove"), notBuilt, KT("str file ..."), KT("nothing")},
    {KT("kex_file_rm_rdonly"), notBuilt, KT("str directory"), KT("nothing")},
    {KT("kex_file_dcmp"), notBuilt, KT("str a, str b"), KT("T or nil")},
    {KT("kex_file_info"), notBuilt, KT("str file"), KT("(date time size) or nil")},
    {KT("kex_file_dirinfo"), notBuilt, KT("[str directory], [str pattern]"),
     KT("(int count, real size, real free, real total)")},
    {KT("kex_file_dir"), notBuilt, KT("[str pattern], int attributes"), KT("list of str")},
    {KT("kex_file_dirmode"), notBuilt, KT("int key, [int direction]"), KT("nothing")},
    {KT("kex_file_splitpath"), notBuilt, KT("str path"), KT("list of 4 str")},
    {KT("kex_file_getdrives"), notBuilt, KT(""), KT("list of str")},
    {KT("kex_file_unc"), notBuilt, KT("str path"), KT("str or nil")},
    {KT("kex_file_cpath"), notBuilt, KT("[str path]"), KT("str")},
    {KT("kex_file_tmpname"), notBuilt, KT("[str prefix]"), KT("str")},
    {KT("kex_file_fillenv"), notBuilt, KT("str s"), KT("str")},
    {KT("kex_file_to_xrec"), notBuilt, KT("str file, en object or key dictionary, key item"),
     KT("T or nil")},
    {KT("kex_file_from_xrec"), notBuilt, KT("str file, en object or key dictionary, key item"),
     KT("T or nil")},
};

} // namespace KEX
