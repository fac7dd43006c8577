// SPDX-License-Identifier: LicenseRef-ORVALD
// Solids.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kSolidRows[] = {
    {KT("kex_solid_create"), notBuilt, KT("[nil, solid, ename or BAR/BLECH/PANEL/PIPE/SHELL data]"),
     KT("solid or nil")},
    {KT("kex_solid_open"), notBuilt, KT("[nil, solid, ename or BAR/BLECH/PANEL/PIPE/SHELL data]"),
     KT("solid or nil")},
    {KT("kex_solid_destroy"), notBuilt, KT("solid"), KT("T or nil")},
    {KT("kex_solid_close"), notBuilt, KT("solid"), KT("T or nil")},
    {KT("kex_solid_copy"), notBuilt, KT("solid, [mtx]"), KT("solid or nil")},
    {KT("kex_solid_box"), notBuilt, KT("solid, point, number dx, number dy, number dz"),
     KT("solid or nil")},
    {KT("kex_solid_cyl"), notBuilt, KT("solid, point p1, point p2, number r1, [number r2]"),
     KT("solid or nil")},
    {KT("kex_solid_extr"), notBuilt, KT("solid, vll, vector, [real taper], [mtx]"),
     KT("solid or nil")},
    {KT("kex_solid_sweep"), notBuilt,
     KT("solid, vll section, list of points or vl path, [real roll]"), KT("solid or nil")},
    {KT("kex_solid_revolve"), notBuilt,
     KT("solid, vll section, point p1, point p2, [real angle, default full]"), KT("solid or nil")},
    {KT("kex_solid_unite"), notBuilt, KT("solid1, solid2"), KT("solid1 or nil")},
    {KT("kex_solid_subtract"), notBuilt, KT("solid1, solid2"), KT("solid1 or nil")},
    {KT("kex_solid_inters"), notBuilt, KT("solid1, solid2"), KT("solid1 or nil")},
    {KT("kex_solid_slice"), notBuilt, KT("solid, point, vector normal, [T keep both]"),
     KT("solid or nil")},
    {KT("kex_solid_split"), notBuilt, KT("solid"), KT("list of solids")},
    {KT("kex_solid_mtx"), notBuilt, KT("solid, mtx"), KT("solid or nil")},
    {KT("kex_solid_sect"), notBuilt, KT("solid, point, vector normal"),
     KT("list (reg mtx) or nil")},
    {KT("kex_solid_view"), notBuilt, KT("solid, mtx, [T silhouette only]"),
     KT("list (vll visible, vll hidden)")},
    {KT("kex_solid_vol"), notBuilt, KT("solid, [string mat]"), KT("real")},
    {KT("kex_solid_surf"), notBuilt, KT("solid"), KT("real")},
    {KT("kex_solid_cog"), notBuilt, KT("solid"), KT("point or nil")},
    {KT("kex_solid_ext"), notBuilt, KT("solid, [mtx]"), KT("list (pmin pmax) or nil")},
    {KT("kex_solid_faces"), notBuilt, KT("solid"), KT("list of rows")},
    {KT("kex_solid_face_vl"), notBuilt, KT("solid, integer face"), KT("list (vll mtx) or nil")},
    {KT("kex_solid_edges"), notBuilt, KT("solid, [T sharp only]"), KT("list of rows")},
    {KT("kex_solid_pt_inside"), notBuilt, KT("solid, point"), KT("integer")},
    {KT("kex_solid_clash"), notBuilt, KT("solid1, solid2, [number tol]"), KT("real or nil")},
    {KT("kex_solid_chk"), notBuilt, KT("solid"), KT("nil or list of strings")},
    {KT("kex_solid_drill"), notBuilt,
     KT("solid, point, vector, DRILL data or number diameter, [number depth]"), KT("solid or nil")},
    {KT("kex_solid_to_ent"), notBuilt, KT("solid, [string layer]"), KT("ename or nil")},
    {KT("kex_solid_stl"), notBuilt, KT("solid or list of solids, string file, [T text]"),
     KT("T or nil")},
    {KT("kex_solid_unfold"), notBuilt, KT("solid, [number thickness], [integer root face]"),
     KT("net or nil")},
};

} // namespace KEX
