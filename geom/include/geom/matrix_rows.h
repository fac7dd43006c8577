// SPDX-License-Identifier: LicenseRef-ORVALD
// Matrices.
#pragma once

#include "kex/frame.h"
#include "marshal/adapt.h"
#include "marshal/lisp_row.h"

namespace KEX {

LispFn mtxUnit, mtxScale, mtxMul, mtxUcs;

inline constexpr LispRow kMatrixRows[] = {
    {KT("kex_g_mtx_unit"), mtxUnit, KT(""), KT("mtx")},
    {KT("kex_g_mtx_move"), adapt<g_mtx_move>, KT("vc v"), KT("mtx")},
    {KT("kex_g_mtx_rot"), adapt<g_mtx_rot>, KT("num w, [pt base = (0 0 0)], [vc axis = (0 0 1)]"),
     KT("mtx or nil")},
    {KT("kex_g_mtx_scale"), mtxScale, KT("num f or vc factors, [pt base = (0 0 0)]"), KT("mtx")},
    {KT("kex_g_mtx_mir"), adapt<g_mtx_mir, lengthTolerance>, KT("pt p1, pt p2, [pt p3]"),
     KT("mtx or nil")},
    {KT("kex_g_mtx_mul"), mtxMul, KT("mtx m1, mtx m2 ..."), KT("mtx")},
    {KT("kex_g_mtx_inv"), adapt<g_mtx_inv>, KT("mtx"), KT("mtx or nil")},
    {KT("kex_g_mtx_3p"), adapt<g_mtx_3p, lengthTolerance>, KT("pt o, pt px, pt py"),
     KT("mtx or nil")},
    {KT("kex_g_mtx_axes"), adapt<g_mtx_axes>, KT("pt o, vc x, vc y, [vc z = x × y]"), KT("mtx")},
    {KT("kex_g_mtx_ocs"), adapt<g_mtx_ocs>, KT("vc normal, [pt origin = (0 0 0)]"),
     KT("mtx or nil")},
    {KT("kex_g_mtx_ucs"), mtxUcs, KT("[T inverse]"), KT("mtx")},
    {KT("kex_g_mtx_vc"), adapt<g_mtx_vc>, KT("vc v, mtx"), KT("vc")},
    {KT("kex_g_mtx_axis"), adapt<g_mtx_axis>, KT("mtx, int i"), KT("pt or nil")},
    {KT("kex_g_mtx_is_mir"), adapt<g_mtx_is_mir>, KT("mtx"), KT("T or nil")},
    {KT("kex_g_mtx_equal"), adapt<g_mtx_equal, lengthTolerance, angleTolerance>,
     KT("mtx m1, mtx m2"), KT("T or nil")},
};

} // namespace KEX
