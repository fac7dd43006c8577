// SPDX-License-Identifier: LicenseRef-ORVALD
// Geometry of entities and of lists of entities.
#pragma once

#include "geom/annotation_scales.h"
#include "geom/curve_dif.h"
#include "geom/entity_curve.h"
#include "geom/entity_inters.h"
#include "geom/entity_lists.h"
#include "geom/entity_make.h"
#include "geom/entity_outline.h"
#include "geom/entity_place.h"
#include "marshal/adapt.h"
#include "marshal/lisp_row.h"

namespace KEX {

LispFn entityInters, entityMake, entityTransform, entityListNear;

inline constexpr LispRow kEntityRows[] = {
    {KT("kex_g_e_annoscales"), adapt<annotationScales>, KT("en"), KT("list of str or nil")},
    {KT("kex_g_e_annoscales_set"), adapt<setAnnotationScales>, KT("en, list of str or nil"),
     KT("T or nil")},
    {KT("kex_g_e_inters"), entityInters, KT("en a, en b, [int ext = 0]"), KT("list of pt or nil")},
    {KT("kex_g_e_vl"), adapt<entityOutline, curveDif>, KT("en, [num dif = 0.01]"), KT("vl or nil")},
    {KT("kex_g_e_vl_set"), adapt<e_vl_set>, KT("en, vl"), KT("en or nil")},
    {KT("kex_g_e_mk"), entityMake, KT("vl, [list of (code . value) props]"), KT("en or nil")},
    {KT("kex_g_e_len"), adapt<e_len>, KT("en"), KT("real or nil")},
    {KT("kex_g_e_area"), adapt<e_area>, KT("en"), KT("real or nil")},
    {KT("kex_g_e_ext"), adapt<e_ext>, KT("en"), KT("(min max) or nil")},
    {KT("kex_g_e_near"), adapt<e_near>, KT("en, pt p, [T extend]"), KT("pt or nil")},
    {KT("kex_g_e_pt"), adapt<e_pt>, KT("en, num d"), KT("pt or nil")},
    {KT("kex_g_e_dist"), adapt<e_dist>, KT("en, pt p"), KT("real or nil")},
    {KT("kex_g_e_tang"), adapt<e_tang>, KT("en, pt p"), KT("vc or nil")},
    {KT("kex_g_e_mtx"), adapt<e_mtx>, KT("en"), KT("mtx or nil")},
    {KT("kex_g_e_plan"), adapt<e_plan>, KT("en"), KT("plane or nil")},
    {KT("kex_g_e_trans"), entityTransform, KT("en, mtx"), KT("en or nil")},
    {KT("kex_g_e_copy"), adapt<e_copy>, KT("en, [mtx]"), KT("en or nil")},
};

inline constexpr LispRow kEntityListRows[] = {
    {KT("kex_g_el_ext"), adapt<el_ext>, KT("el"), KT("(min max) or nil")},
    {KT("kex_g_el_vll"), adapt<el_vll, curveDif>, KT("el, [num dif = 0.01]"), KT("vll or nil")},
    {KT("kex_g_el_near"), entityListNear, KT("el, pt p"), KT("(en pt) or nil")},
    {KT("kex_g_el_trans"), adapt<el_trans>, KT("el, mtx"), KT("int")},
    {KT("kex_g_el_copy"), adapt<el_copy>, KT("el, [mtx]"), KT("list of en or nil")},
    {KT("kex_g_el_int"), adapt<el_int>, KT("el, [T self]"), KT("list of pt or nil")},
    {KT("kex_g_el_regl"), adapt<el_regl, fabricationTolerance>, KT("el"), KT("regl or nil")},
    {KT("kex_g_el_win"), adapt<el_win>, KT("el, pt p1, pt p2, [T crossing]"),
     KT("list of en or nil")},
    {KT("kex_g_el_sort"), adapt<el_sort>, KT("el, num w, [T last]"), KT("list of en")},
};

} // namespace KEX
