// SPDX-License-Identifier: LicenseRef-ORVALD
// Single functions of the construction domains.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kLabelEditRows[] = {
    {KT("kex_label_edit"), notBuilt, KT("ename, [string key]"), KT("T or nil")},
    {KT("kex_lay_get"), notBuilt, KT("string key, [T/nil create, default T]"), KT("string or nil")},
    {KT("kex_text_to_regl"), notBuilt,
     KT("string text, number height, [number width factor], [string font], [point], [real angle]"),
     KT("reg or nil")},
    {KT("kex_xml_read"), notBuilt, KT("string file, [T/nil keep white space]"), KT("list or nil")},
};

inline constexpr LispRow kPanelOutlineRows[] = {
    {KT("kex_st3d_panel_vl"), notBuilt, KT("list of points or enames of C3D nodes, [number inset]"),
     KT("list (vl mtx) or nil")},
    {KT("kex_elevation_outl_inverse_mtx"), notBuilt, KT("ename, ELEM data or FRONT data"),
     KT("mtx or nil")},
    {KT("orv_bar_bt_visible_init"), notBuilt, KT("[list of (string component . T/nil)]"),
     KT("list of (string . T/nil)")},
    {KT("orv_c3d_el_bars"), notBuilt, KT("ename of an ELEM, FRONT or C3D object, [string role]"),
     KT("list of enames")},
};

} // namespace KEX
