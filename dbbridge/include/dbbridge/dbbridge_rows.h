// SPDX-License-Identifier: LicenseRef-ORVALD
// Data items: in the drawing, as extension records, through the cache and in dictionaries; and as
// LISP lists and files.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

LispFn dBread, dBwrite, dLabelGet, dLabelSet, dVal, dValSet, dDirp, dKey, dEqual, dMerge, dCrc,
    dXLogIor, dXBit, dXBitSet, dChkType, dChkNum, kexXrObj, kexXrGet, kexXrMod, kexXrDir, kexXdGet,
    kexXdMod, kexXdDir, kexXdFlush, kexDictObj, kexDictDir, kexDxrGet, kexDxrMod, kexDxrDir,
    dHardPointer, dHardPointerRem, dHardPointerGet, dGet, dCopy, dRemove, dFind, kexObjDictName,
    kexObjDictPath, kexObjDictDir, kexDwgDictDir;

inline constexpr LispRow kXrecordRows[] = {
    {KT("kex_xr_obj"), kexXrObj, KT("en, [T or nil create = nil]"), KT("en or nil")},
    {KT("kex_xr_get"), kexXrGet, KT("en, key or nil"), KT("any or nil")},
    {KT("kex_xr_mod"), kexXrMod, KT("en, key, value or nil"), KT("T or nil")},
    {KT("kex_xr_dir"), kexXrDir, KT("en, key"), KT("list of str and int or nil")},
    {KT("kex_xd_get"), kexXdGet, KT("en, key or nil"), KT("any or nil")},
    {KT("kex_xd_mod"), kexXdMod, KT("en, key, value or nil"), KT("T or nil")},
    {KT("kex_xd_dir"), kexXdDir, KT("en, key"), KT("list of str and int or nil")},
    {KT("kex_xd_flush"), kexXdFlush, KT("[en]"), KT("T")},
    {KT("kex_dict_obj"), kexDictObj, KT("key, [T or nil create = T]"), KT("en or nil")},
    {KT("kex_dict_dir"), kexDictDir, KT("key or en"), KT("list of str or nil")},
    {KT("kex_dxr_get"), kexDxrGet, KT("key or en, key"), KT("any or nil")},
    {KT("kex_dxr_mod"), kexDxrMod, KT("key or en, key, value or nil"), KT("en or nil")},
    {KT("kex_dxr_dir"), kexDxrDir, KT("key or en, key, [T or nil deep]"),
     KT("list of keys or nil")},
    {KT("kex_d_bread"), dBread, KT("str file"), KT("list or nil")},
    {KT("kex_d_bwrite"), dBwrite, KT("str file, list data"), KT("T or nil")},
    {KT("kex_d_hardpointer"), dHardPointer, KT("en owner, str list, en target or nil"),
     KT("T or nil")},
    {KT("kex_d_hardpointer_rem"), dHardPointerRem, KT("en owner, str list, en target"),
     KT("T or nil")},
    {KT("kex_d_hardpointer_get"), dHardPointerGet, KT("en owner, str list"),
     KT("list of en or nil")},
};

inline constexpr LispRow kDataRows[] = {
    {KT("kex_d_xdflush"), kexXdFlush, KT("[en]"), KT("T")},
    {KT("kex_d_label_get"), dLabelGet, KT("str text, [str context = current language]"), KT("str")},
    {KT("kex_d_bez_get"), dLabelGet, KT("str text, [str context = current language]"), KT("str")},
    {KT("kex_d_label_set"), dLabelSet, KT("str text or nil, str context or nil, str new or nil"),
     KT("str")},
    {KT("kex_d_bez_set"), dLabelSet, KT("str text or nil, str context or nil, str new or nil"),
     KT("str")},
    {KT("kex_d_get"), dGet, KT("en, key, [any default]"), KT("any")},
    {KT("kex_d_val"), dVal, KT("list data, key, [any default]"), KT("any")},
    {KT("kex_d_val_set"), dValSet, KT("list data or nil, key, any value or nil"),
     KT("list or nil")},
    {KT("kex_d_dirp"), dDirp, KT("any"), KT("T or nil")},
    {KT("kex_d_key"), dKey, KT("any"), KT("list or nil")},
    {KT("kex_d_copy"), dCopy, KT("en from, en to, [key = whole item]"), KT("T or nil")},
    {KT("kex_d_remove"), dRemove, KT("en, [T all]"), KT("T or nil")},
    {KT("kex_d_equal"), dEqual, KT("data a, data b, [list of keys ignored], [num tol = _RNDF]"),
     KT("T or nil")},
    {KT("kex_d_find"), dFind, KT("key, [any value], [el]"), KT("list of en or nil")},
    {KT("kex_d_merge"), dMerge, KT("list data a or nil, list data b or nil"), KT("list or nil")},
    {KT("kex_d_crc"), dCrc, KT("any data"), KT("str")},
    {KT("kex_d_xlogior"), dXLogIor, KT("str a, str b"), KT("str")},
    {KT("kex_d_xbit"), dXBit, KT("str a, int n"), KT("T or nil")},
    {KT("kex_d_xbit_set"), dXBitSet, KT("str a, int n, T or nil"), KT("str")},
    {KT("kex_d_chktype"), dChkType, KT("list of values, str pattern"), KT("int or nil")},
    {KT("kex_d_chknum"), dChkNum, KT("str s, [num min], [num max]"), KT("real or nil")},
};

inline constexpr LispRow kObjectDictRows[] = {
    {KT("kex_obj_dict_name"), kexObjDictName, KT("en, [T or nil any owner]"), KT("str or nil")},
    {KT("kex_obj_dict_path"), kexObjDictPath, KT("en"), KT("list of str or nil")},
    {KT("kex_obj_dict_dir"), kexObjDictDir, KT("key"), KT("list of (str . en) or nil")},
};

inline constexpr LispRow kDrawingDictRows[] = {
    {KT("kex_dwg_dict_dir"), kexDwgDictDir, KT("key"), KT("list of strings or nil")},
};

} // namespace KEX
