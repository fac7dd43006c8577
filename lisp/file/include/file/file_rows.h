// SPDX-License-Identifier: LicenseRef-ORVALD
// The file family: files, directories and lock files.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

LispFn kexFileLock, kexFileLocked, kexFileUnlock, kexFileAccess, kexFileMkdir, kexFileCopy,
    kexFileRename, kexFileRemove, kexFileRmRdonly, kexFileDcmp, kexFileInfo, kexFileDirinfo,
    kexFileDir, kexFileDirmode, kexFileSplitpath, kexFileGetdrives, kexFileUnc, kexFileCpath,
    kexFileTmpname, kexFileFillenv;
LispFn kexFileToXrec, kexFileFromXrec; // in dbbridge: the files are in the drawing

inline constexpr LispRow kFileRows[] = {
    {KT("kex_file_lock"), kexFileLock, KT("str file, [num wait]"), KT("T or nil")},
    {KT("kex_file_locked"), kexFileLocked, KT("str file"), KT("T or nil")},
    {KT("kex_file_unlock"), kexFileUnlock, KT("str file"), KT("nothing")},
    {KT("kex_file_access"), kexFileAccess, KT("str file"), KT("T or nil")},
    {KT("kex_file_mkdir"), kexFileMkdir, KT("str path"), KT("T or nil")},
    {KT("kex_file_copy"), kexFileCopy, KT("str source, str target"), KT("T or nil")},
    {KT("kex_file_rename"), kexFileRename, KT("str old, str new"), KT("T or nil")},
    {KT("kex_file_remove"), kexFileRemove, KT("str file ..."), KT("nothing")},
    {KT("kex_file_rm_rdonly"), kexFileRmRdonly, KT("str directory"), KT("nothing")},
    {KT("kex_file_dcmp"), kexFileDcmp, KT("str a, str b"), KT("T or nil")},
    {KT("kex_file_info"), kexFileInfo, KT("str file"), KT("(date time size) or nil")},
    {KT("kex_file_dirinfo"), kexFileDirinfo, KT("[str directory], [str pattern]"),
     KT("(int count, real size, real free, real total)")},
    {KT("kex_file_dir"), kexFileDir, KT("[str pattern], int attributes"), KT("list of str")},
    {KT("kex_file_dirmode"), kexFileDirmode, KT("int key, [int direction]"), KT("nothing")},
    {KT("kex_file_splitpath"), kexFileSplitpath, KT("str path"), KT("list of 4 str")},
    {KT("kex_file_getdrives"), kexFileGetdrives, KT(""), KT("list of str")},
    {KT("kex_file_unc"), kexFileUnc, KT("str path"), KT("str or nil")},
    {KT("kex_file_cpath"), kexFileCpath, KT("[str path]"), KT("str")},
    {KT("kex_file_tmpname"), kexFileTmpname, KT("[str prefix]"), KT("str")},
    {KT("kex_file_fillenv"), kexFileFillenv, KT("str s"), KT("str")},
    {KT("kex_file_to_xrec"), kexFileToXrec, KT("str file, en object or key dictionary, key item"),
     KT("T or nil")},
    {KT("kex_file_from_xrec"), kexFileFromXrec,
     KT("str file, en object or key dictionary, key item"), KT("T or nil")},
};

} // namespace KEX
