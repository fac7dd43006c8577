// SPDX-License-Identifier: LicenseRef-ORVALD
// Single vertices: one segment with start, end and bulge.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kVertexRows[] = {
    {KT("kex_g_vx_cen"), notBuilt, KT("vx"), KT("pt")},
    {KT("kex_g_vx_len"), notBuilt, KT("vx"), KT("real")},
    {KT("kex_g_vx_mid"), notBuilt, KT("vx"), KT("pt")},
    {KT("kex_g_vx_wtang"), notBuilt, KT("vx"), KT("real")},
    {KT("kex_g_vx_offset"), notBuilt, KT("vx, num d"), KT("vx")},
    {KT("kex_g_vx_lotp"), notBuilt, KT("vx, pt p"), KT("pt")},
    {KT("kex_g_vx_orientp"), notBuilt, KT("vx, pt p"), KT("int")},
    {KT("kex_g_vx_unit"), notBuilt, KT("vx a, vx b"), KT("vx or nil")},
    {KT("kex_g_vx_oktant"), notBuilt, KT("vx"), KT("int")},
    {KT("kex_g_vx_split_n"), notBuilt, KT("vx, num dif"), KT("int")},
    {KT("kex_g_vx_int"), notBuilt, KT("vx a, vx b, [int ext = 0]"), KT("list of pt or nil")},
    {KT("kex_g_vx_int_near"), notBuilt, KT("vx a, vx b, pt p, [int ext = 3]"), KT("pt or nil")},
    {KT("kex_g_vx_colinear"), notBuilt, KT("vx a, vx b, [num tol = _RNDL]"), KT("T or nil")},
    {KT("kex_g_vx_is_tang"), notBuilt, KT("vx a, vx b, [num tol = _RNDA]"), KT("T or nil")},
    {KT("kex_g_vx_gehr"), notBuilt, KT("vx a, vx b, num da, num db"), KT("vx or nil")},
    {KT("kex_g_vx_grdraw"), notBuilt, KT("vx, [int colour = -1], [T highlight]"), KT("nil")},
    {KT("kex_g_vx_lotd"), notBuilt, KT("vx, pt p"), KT("real")},
    {KT("kex_g_vx_nvc"), notBuilt, KT("vx, [pt p = midpoint]"), KT("vc")},
    {KT("kex_g_vx_rvc"), notBuilt, KT("vx, [pt p = midpoint]"), KT("vc")},
    {KT("kex_g_vx_search"), notBuilt, KT("vx, vl, [T reversed]"), KT("int or nil")},
    {KT("kex_g_vx_split_dif"), notBuilt, KT("vx, num dif"), KT("vl")},
    {KT("kex_g_vx_tangp"), notBuilt, KT("vx, pt p"), KT("list of pt or nil")},
    {KT("kex_g_vx_vx"), notBuilt,
     KT("pt p1, pt p2, [num bulge = 0.0], or pt centre, num r, num a1, num a2"), KT("vx")},
    {KT("kex_g_vx_xy"), notBuilt, KT("vx"), KT("vx")},
};

} // namespace KEX
