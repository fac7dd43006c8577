// SPDX-License-Identifier: LicenseRef-ORVALD
// Dimensions.
#pragma once

#include "geom/annotation_scales.h"
#include "marshal/adapt.h"
#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kDimRows[] = {
    {KT("kex_dim_annoscales"), adapt<annotationScales>, KT("ename"), KT("list of strings or nil")},
    {KT("kex_dim_annoscales_set"), adapt<setAnnotationScales>, KT("ename, list of strings or nil"),
     KT("T or nil")},
    {KT("kex_dim_style_dir"), notBuilt, KT("[string pattern]"), KT("list of strings")},
    {KT("kex_dim_style_new"), notBuilt,
     KT("string name, list of (string variable . value), [string base]"), KT("string or nil")},
    {KT("kex_dim_style_cur"), notBuilt, KT("[string name]"), KT("string or nil")},
    {KT("kex_dim_lin"), notBuilt, KT("point p1, point p2, point line, real angle, [string text]"),
     KT("ename")},
    {KT("kex_dim_ali"), notBuilt, KT("point p1, point p2, number distance, [string text]"),
     KT("ename or nil")},
    {KT("kex_dim_chain"), notBuilt, KT("list of points, point line, real angle, [T total]"),
     KT("list of enames or nil")},
    {KT("kex_dim_base"), notBuilt, KT("list of points, point line, real angle, [number step]"),
     KT("list of enames or nil")},
    {KT("kex_dim_ord"), notBuilt, KT("point origin, list of points, real angle, [number offset]"),
     KT("list of enames or nil")},
    {KT("kex_dim_ang"), notBuilt, KT("point centre, point p1, point p2, point line"),
     KT("ename or nil")},
    {KT("kex_dim_rad"), notBuilt, KT("vx or ename of arc or circle, real angle, [T diameter]"),
     KT("ename or nil")},
    {KT("kex_dim_val"), notBuilt, KT("ename, [T rounded]"), KT("real or nil")},
    {KT("kex_dim_text"), notBuilt, KT("ename, [string or nil]"), KT("string or nil")},
    {KT("kex_dim_tol"), notBuilt, KT("ename, number upper, number lower, [integer mode]"),
     KT("T or nil")},
    {KT("kex_dim_vl"), notBuilt, KT("vl, number distance, [integer sides]"),
     KT("list of enames or nil")},
    {KT("kex_dim_pts"), notBuilt, KT("ename"), KT("list of points or nil")},
    {KT("kex_dim_arrange"), notBuilt, KT("enames or pickset, [number step]"), KT("integer")},
};

} // namespace KEX
