// SPDX-License-Identifier: LicenseRef-ORVALD
// The string family, with the string and bit-string checks, time stamps and rounding settings.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

LispFn strLen, ascii, chr, strCase, strTrim, dChkStr;

inline constexpr LispRow kStrRows[] = {
    {KT("kex_str_len"), strLen, KT("str s"), KT("int")},
    {KT("kex_str_str"), notBuilt, KT("str s, str sub"), KT("int or nil")},
    {KT("kex_str_chr"), notBuilt, KT("str s, int or str c"), KT("int or nil")},
    {KT("kex_str_rchr"), notBuilt, KT("str s, int or str c"), KT("int or nil")},
    {KT("kex_str_pbrk"), notBuilt, KT("str s, str set"), KT("int or nil")},
    {KT("kex_str_cspn"), notBuilt, KT("str s, str set"), KT("int or nil")},
    {KT("kex_str_spn"), notBuilt, KT("str s, str set"), KT("int or nil")},
    {KT("kex_ascii"), ascii, KT("str s"), KT("int")},
    {KT("kex_chr"), chr, KT("int code"), KT("str")},
    {KT("kex_str_case"), strCase, KT("str s, [T]"), KT("str")},
    {KT("kex_str_trim"), strTrim, KT("str s"), KT("str")},
    {KT("kex_str_revert"), notBuilt, KT("str s"), KT("str")},
    {KT("kex_str_rpl"), notBuilt, KT("str s, str old, str new or nil"), KT("str")},
    {KT("kex_str_rfill"), notBuilt, KT("str s, int n, [int or str fill]"), KT("str")},
    {KT("kex_str_lfill"), notBuilt, KT("str s, int n, [int or str fill]"), KT("str")},
    {KT("kex_str_sub"), notBuilt, KT("str s, int start, [int count]"), KT("str")},
    {KT("kex_str_split"), notBuilt, KT("str s, str delimiters"), KT("list of str")},
    {KT("kex_str_to_html"), notBuilt, KT("str s, [T]"), KT("str")},
    {KT("kex_str_from_html"), notBuilt, KT("str s"), KT("str")},
    {KT("kex_str_name"), notBuilt, KT("str s"), KT("str")},
    {KT("kex_str_atowin"), notBuilt, KT("any values"),
     KT("the argument list, nil without arguments")},
    {KT("kex_str_atodos"), notBuilt, KT("any values"),
     KT("the argument list, nil without arguments")},
    {KT("kex_str_increment"), notBuilt, KT("str s, int n or nil"), KT("str")},
    {KT("kex_str_increment0"), notBuilt, KT("str s, int n or nil"), KT("str")},
    {KT("kex_str_incr_parse"), notBuilt, KT("str s"), KT("list of (int . str) or nil")},
    {KT("kex_str_incr_delimit"), notBuilt, KT("str s"), KT("str or nil")},
    {KT("kex_str_incr_type"), notBuilt, KT("str s"), KT("str or nil")},
    {KT("kex_str_date"), notBuilt, KT("int seconds or real calendar date"), KT("str")},
    {KT("kex_str_time"), notBuilt, KT("int seconds or real calendar date"), KT("str")},
    {KT("kex_str_UuidCreate"), notBuilt, KT("any, ignored"), KT("str")},
    {KT("kex_str_lib"), notBuilt, KT("str libtype, str name"), KT("str")},
    {KT("kex_str_lib_name"), notBuilt, KT("str s"), KT("str")},
    {KT("kex_str_lib_libtype"), notBuilt, KT("str s"), KT("str")},
    {KT("kex_str_to_unit"), notBuilt, KT("str s or nil, [int unit or nil]"), KT("real or nil")},
    {KT("kex_str_gd_key"), notBuilt, KT("num x, else any"), KT("str, else the argument")},
    {KT("kex_str_key_gd"), notBuilt, KT("str s, else any"), KT("real, else the argument")},
};

inline constexpr LispRow kStrCheckRows[] = {
    {KT("kex_d_chkarg"), notBuilt, KT("any values"),
     KT("the argument list, nil without arguments")},
    {KT("kex_d_chkstr"), dChkStr, KT("str s"), KT("nil, 1 or 2")},
    {KT("kex_d_itox"), notBuilt, KT("int v"), KT("str")},
    {KT("kex_d_xtoi"), notBuilt, KT("str s"), KT("int")},
    {KT("kex_d_xlogand"), notBuilt, KT("str a, str b"), KT("str")},
};

inline constexpr LispRow kTimeStampRows[] = {
    {KT("kex_time_stamp"), notBuilt, KT("[nil, real or integer]"), KT("integer or real")},
};

inline constexpr LispRow kRoundingRows[] = {
    {KT("kex_rndl"), notBuilt, KT("[integer unit]"), KT("real")},
    {KT("kex_rndf"), notBuilt, KT("[integer unit]"), KT("real")},
};

} // namespace KEX
