// SPDX-License-Identifier: LicenseRef-ORVALD
// Planes, vectors, and the systems of elevations.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kPlaneRows[] = {
    {KT("kex_g_plan_3p"), notBuilt, KT("pt p1, pt p2, pt p3"), KT("plane or nil")},
    {KT("kex_g_plan_mtx"), notBuilt, KT("plane, [vc x]"), KT("mtx or nil")},
    {KT("kex_g_plan_dist"), notBuilt, KT("pt p, plane"), KT("real")},
    {KT("kex_g_plan_proj"), notBuilt, KT("pt p, plane, [vc dir = normal]"), KT("pt or nil")},
    {KT("kex_g_plan_int_l"), notBuilt, KT("plane, pt p1, pt p2, [T segment]"), KT("pt or nil")},
    {KT("kex_g_plan_int"), notBuilt, KT("plane 1, plane 2"), KT("(p1 p2) or nil")},
    {KT("kex_g_plan_ang"), notBuilt, KT("plane 1, plane 2, [vc edge]"), KT("real")},
    {KT("kex_g_plan_equal"), notBuilt, KT("plane 1, plane 2, [T sense]"), KT("T or nil")},
};

inline constexpr LispRow kVectorRows[] = {
    {KT("kex_g_vc_cross"), notBuilt, KT("vc a, vc b"), KT("vc")},
    {KT("kex_g_vc_dot"), notBuilt, KT("vc a, vc b"), KT("real")},
    {KT("kex_g_vc_len"), notBuilt, KT("vc a"), KT("real")},
    {KT("kex_g_vc_ang"), notBuilt, KT("vc a, vc b, [vc axis]"), KT("real")},
    {KT("kex_g_vc_rot"), notBuilt, KT("vc a, vc axis, num w"), KT("vc")},
    {KT("kex_g_vc_par"), notBuilt, KT("vc a, vc b"), KT("int")},
};

inline constexpr LispRow kElevationRows[] = {
    {KT("kex_g_elev_mtx"), notBuilt, KT("str view or num w, [pt origin = (0 0 0)]"),
     KT("mtx or nil")},
    {KT("kex_g_elev_view"), notBuilt, KT("mtx"), KT("str or nil")},
};

} // namespace KEX
