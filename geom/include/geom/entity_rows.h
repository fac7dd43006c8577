// SPDX-License-Identifier: LicenseRef-ORVALD
// Geometry of entities and of lists of entities.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kEntityRows[] = {
    {KT("kex_g_e_annoscales"), notBuilt, KT("en"), KT("list of str or nil")},
    {KT("kex_g_e_annoscales_set"), notBuilt, KT("en, list of str or nil"), KT("T or nil")},
    {KT("kex_g_e_inters"), notBuilt, KT("en a, en b, [int ext = 0]"), KT("list of pt or nil")},
    {KT("kex_g_e_vl"), notBuilt, KT("en, [num dif = 0.01]"), KT("vl or nil")},
    {KT("kex_g_e_vl_set"), notBuilt, KT("en, vl"), KT("en or nil")},
    {KT("kex_g_e_mk"), notBuilt, KT("vl, [list of (code . value) props]"), KT("en or nil")},
    {KT("kex_g_e_len"), notBuilt, KT("en"), KT("real or nil")},
    {KT("kex_g_e_area"), notBuilt, KT("en"), KT("real or nil")},
    {KT("kex_g_e_ext"), notBuilt, KT("en"), KT("(min max) or nil")},
    {KT("kex_g_e_near"), notBuilt, KT("en, pt p, [T extend]"), KT("pt or nil")},
    {KT("kex_g_e_pt"), notBuilt, KT("en, num d"), KT("pt or nil")},
    {KT("kex_g_e_dist"), notBuilt, KT("en, pt p"), KT("real or nil")},
    {KT("kex_g_e_tang"), notBuilt, KT("en, pt p"), KT("vc or nil")},
    {KT("kex_g_e_mtx"), notBuilt, KT("en"), KT("mtx or nil")},
    {KT("kex_g_e_plan"), notBuilt, KT("en"), KT("plane or nil")},
    {KT("kex_g_e_trans"), notBuilt, KT("en, mtx"), KT("en or nil")},
    {KT("kex_g_e_copy"), notBuilt, KT("en, [mtx]"), KT("en or nil")},
};

inline constexpr LispRow kEntityListRows[] = {
    {KT("kex_g_el_ext"), notBuilt, KT("el"), KT("(min max) or nil")},
    {KT("kex_g_el_vll"), notBuilt, KT("el, [num dif = 0.01]"), KT("vll or nil")},
    {KT("kex_g_el_near"), notBuilt, KT("el, pt p"), KT("(en pt) or nil")},
    {KT("kex_g_el_trans"), notBuilt, KT("el, mtx"), KT("int")},
    {KT("kex_g_el_copy"), notBuilt, KT("el, [mtx]"), KT("list of en or nil")},
    {KT("kex_g_el_int"), notBuilt, KT("el, [T self]"), KT("list of pt or nil")},
    {KT("kex_g_el_regl"), notBuilt, KT("el"), KT("regl or nil")},
    {KT("kex_g_el_win"), notBuilt, KT("el, pt p1, pt p2, [T crossing]"), KT("list of en or nil")},
    {KT("kex_g_el_sort"), notBuilt, KT("el, num w, [T last]"), KT("list of en")},
};

} // namespace KEX
