// SPDX-License-Identifier: LicenseRef-ORVALD
// Panels.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kPanelRows[] = {
    {KT("kex_panel_def"), notBuilt,
     KT("number width, number height, list of (mat thickness) layers, [number joint], [string "
        "kind]"),
     KT("PANEL data or nil")},
    {KT("kex_panel_new"), notBuilt, KT("PANEL data, point, [mtx]"), KT("ename")},
    {KT("kex_panel_get"), notBuilt, KT("ename, [key]"), KT("data or value")},
    {KT("kex_panel_set"), notBuilt, KT("panel, key, value or nil"), KT("panel as given")},
    {KT("kex_panel_vl"), notBuilt, KT("panel, [T with joint]"), KT("vll")},
    {KT("kex_panel_layout"), notBuilt,
     KT("vl area, number width, number height, number joint, [string origin], [vll openings], "
        "[number least]"),
     KT("list of rows")},
    {KT("kex_panel_list"), notBuilt, KT("list of panels or layout rows"), KT("list of rows")},
    {KT("kex_panel_gew"), notBuilt, KT("panel"), KT("real")},
};

} // namespace KEX
