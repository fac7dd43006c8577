// SPDX-License-Identifier: LicenseRef-ORVALD
// The string family, with the string and bit-string checks, time stamps and rounding settings.
#pragma once

#include "kex/names.h"
#include "marshal/adapt.h"
#include "marshal/lisp_row.h"

namespace KEX {

LispFn strLen, strStr, strChr, strRChr, strPbrk, strSpn, strRpl, strRFill, strLFill, strSub,
    strSplit, strToHtml, strFromHtml, strName, strAToWin, strAToDos, strIncrement, strIncrement0,
    strIncrParse, strIncrDelimit, strIncrType, strDate, strTime, strUuidCreate, strToUnit, strGdKey,
    strKeyGd, dItox, dXtoi, dXLogAnd, timeStamp, rndL, rndF, ascii, chr, strCase, strTrim, dChkStr;

inline constexpr LispRow kStrRows[] = {
    {KT("kex_str_len"), strLen, KT("str s"), KT("int")},
    {KT("kex_str_str"), strStr, KT("str s, str sub"), KT("int or nil")},
    {KT("kex_str_chr"), strChr, KT("str s, int or str c"), KT("int or nil")},
    {KT("kex_str_rchr"), strRChr, KT("str s, int or str c"), KT("int or nil")},
    {KT("kex_str_pbrk"), strPbrk, KT("str s, str set"), KT("int or nil")},
    {KT("kex_str_cspn"), strPbrk, KT("str s, str set"), KT("int or nil")},
    {KT("kex_str_spn"), strSpn, KT("str s, str set"), KT("int or nil")},
    {KT("kex_ascii"), ascii, KT("str s"), KT("int")},
    {KT("kex_chr"), chr, KT("int code"), KT("str")},
    {KT("kex_str_case"), strCase, KT("str s, [T]"), KT("str")},
    {KT("kex_str_trim"), strTrim, KT("str s"), KT("str")},
    {KT("kex_str_revert"), adapt<&CKexString::reverse>, KT("str s"), KT("str")},
    {KT("kex_str_rpl"), strRpl, KT("str s, str old, str new or nil"), KT("str")},
    {KT("kex_str_rfill"), strRFill, KT("str s, int n, [int or str fill]"), KT("str")},
    {KT("kex_str_lfill"), strLFill, KT("str s, int n, [int or str fill]"), KT("str")},
    {KT("kex_str_sub"), strSub, KT("str s, int start, [int count]"), KT("str")},
    {KT("kex_str_split"), strSplit, KT("str s, str delimiters"), KT("list of str")},
    {KT("kex_str_to_html"), strToHtml, KT("str s, [T]"), KT("str")},
    {KT("kex_str_from_html"), strFromHtml, KT("str s"), KT("str")},
    {KT("kex_str_name"), strName, KT("str s"), KT("str")},
    {KT("kex_str_atowin"), strAToWin, KT("any values"),
     KT("the argument list, nil without arguments")},
    {KT("kex_str_atodos"), strAToDos, KT("any values"),
     KT("the argument list, nil without arguments")},
    {KT("kex_str_increment"), strIncrement, KT("str s, int n or nil"), KT("str")},
    {KT("kex_str_increment0"), strIncrement0, KT("str s, int n or nil"), KT("str")},
    {KT("kex_str_incr_parse"), strIncrParse, KT("str s"), KT("list of (int . str) or nil")},
    {KT("kex_str_incr_delimit"), strIncrDelimit, KT("str s"), KT("str or nil")},
    {KT("kex_str_incr_type"), strIncrType, KT("str s"), KT("str or nil")},
    {KT("kex_str_date"), strDate, KT("int seconds or real calendar date"), KT("str")},
    {KT("kex_str_time"), strTime, KT("int seconds or real calendar date"), KT("str")},
    {KT("kex_str_UuidCreate"), strUuidCreate, KT("any, ignored"), KT("str")},
    {KT("kex_str_lib"), adapt<str_lib>, KT("str libtype, str name"), KT("str")},
    {KT("kex_str_lib_name"), adapt<str_lib_name>, KT("str s"), KT("str")},
    {KT("kex_str_lib_libtype"), adapt<str_lib_libtype>, KT("str s"), KT("str")},
    {KT("kex_str_to_unit"), strToUnit, KT("str s or nil, [int unit or nil]"), KT("real or nil")},
    {KT("kex_str_gd_key"), strGdKey, KT("num x, else any"), KT("str, else the argument")},
    {KT("kex_str_key_gd"), strKeyGd, KT("str s, else any"), KT("real, else the argument")},
};

inline constexpr LispRow kStrCheckRows[] = {
    {KT("kex_d_chkarg"), strAToWin, KT("any values"),
     KT("the argument list, nil without arguments")},
    {KT("kex_d_chkstr"), dChkStr, KT("str s"), KT("nil, 1 or 2")},
    {KT("kex_d_itox"), dItox, KT("int v"), KT("str")},
    {KT("kex_d_xtoi"), dXtoi, KT("str s"), KT("int")},
    {KT("kex_d_xlogand"), dXLogAnd, KT("str a, str b"), KT("str")},
};

inline constexpr LispRow kTimeStampRows[] = {
    {KT("kex_time_stamp"), timeStamp, KT("[nil, real or integer]"), KT("integer or real")},
};

inline constexpr LispRow kRoundingRows[] = {
    {KT("kex_rndl"), rndL, KT("[integer unit]"), KT("real")},
    {KT("kex_rndf"), rndF, KT("[integer unit]"), KT("real")},
};

} // namespace KEX
