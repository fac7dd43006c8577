// SPDX-License-Identifier: LicenseRef-ORVALD
// Planes, vectors, and the systems of elevations.
#pragma once

#include "kex/plane.h"
#include "kex/vector.h"
#include "marshal/adapt.h"
#include "marshal/lisp_row.h"

namespace KEX {

LispFn elevMtx, elevView;

inline constexpr LispRow kPlaneRows[] = {
    {KT("kex_g_plan_3p"), adapt<g_plan_3p, lengthTolerance>, KT("pt p1, pt p2, pt p3"),
     KT("plane or nil")},
    {KT("kex_g_plan_mtx"), adapt<g_plan_mtx, angleTolerance>, KT("plane, [vc x]"),
     KT("mtx or nil")},
    {KT("kex_g_plan_dist"), adapt<g_plan_dist>, KT("pt p, plane"), KT("real")},
    {KT("kex_g_plan_proj"), adapt<g_plan_proj, angleTolerance>,
     KT("pt p, plane, [vc dir = normal]"), KT("pt or nil")},
    {KT("kex_g_plan_int_l"), adapt<g_plan_int_l, lengthTolerance, angleTolerance>,
     KT("plane, pt p1, pt p2, [T segment]"), KT("pt or nil")},
    {KT("kex_g_plan_int"), adapt<g_plan_int, angleTolerance>, KT("plane 1, plane 2"),
     KT("(p1 p2) or nil")},
    {KT("kex_g_plan_ang"), adapt<g_plan_ang>, KT("plane 1, plane 2, [vc edge]"), KT("real")},
    {KT("kex_g_plan_equal"), adapt<g_plan_equal, lengthTolerance, angleTolerance>,
     KT("plane 1, plane 2, [T sense]"), KT("T or nil")},
};

inline constexpr LispRow kVectorRows[] = {
    {KT("kex_g_vc_cross"), adapt<g_vc_cross>, KT("vc a, vc b"), KT("vc")},
    {KT("kex_g_vc_dot"), adapt<g_vc_dot>, KT("vc a, vc b"), KT("real")},
    {KT("kex_g_vc_len"), adapt<g_vc_len>, KT("vc a"), KT("real")},
    {KT("kex_g_vc_ang"), adapt<g_vc_ang>, KT("vc a, vc b, [vc axis]"), KT("real")},
    {KT("kex_g_vc_rot"), adapt<g_vc_rot>, KT("vc a, vc axis, num w"), KT("vc")},
    {KT("kex_g_vc_par"), adapt<g_vc_par, angleTolerance>, KT("vc a, vc b"), KT("int")},
};

inline constexpr LispRow kElevationRows[] = {
    {KT("kex_g_elev_mtx"), elevMtx, KT("str view or num w, [pt origin = (0 0 0)]"),
     KT("mtx or nil")},
    {KT("kex_g_elev_view"), elevView, KT("mtx"), KT("str or nil")},
};

} // namespace KEX
