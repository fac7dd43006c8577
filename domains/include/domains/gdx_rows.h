// SPDX-License-Identifier: LicenseRef-ORVALD
// Preview images.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kGdxRows[] = {
    {KT("kex_gdx_new"), notBuilt, KT("integer width, integer height, [colour]"), KT("gdx or nil")},
    {KT("kex_gdx_free"), notBuilt, KT("gdx"), KT("T or nil")},
    {KT("kex_gdx_size"), notBuilt, KT("gdx"), KT("list (integer integer)")},
    {KT("kex_gdx_clear"), notBuilt, KT("gdx, [colour]"), KT("gdx")},
    {KT("kex_gdx_view"), notBuilt, KT("gdx, point p1, point p2, [integer margin]"), KT("real")},
    {KT("kex_gdx_fit"), notBuilt, KT("gdx, enames, vll or list of points, [integer margin]"),
     KT("real or nil")},
    {KT("kex_gdx_pen"), notBuilt,
     KT("gdx, colour, [number width in pixels], [list of numbers dashes]"), KT("gdx")},
    {KT("kex_gdx_brush"), notBuilt, KT("gdx, colour or nil"), KT("gdx")},
    {KT("kex_gdx_line"), notBuilt, KT("gdx, point, point"), KT("gdx")},
    {KT("kex_gdx_vl"), notBuilt, KT("gdx, vl or vll"), KT("gdx")},
    {KT("kex_gdx_reg"), notBuilt, KT("gdx, reg, [T outlines]"), KT("gdx")},
    {KT("kex_gdx_circle"), notBuilt, KT("gdx, point, number radius, [real a1, real a2]"),
     KT("gdx")},
    {KT("kex_gdx_text"), notBuilt,
     KT("gdx, point, string, number height, [real angle], [string just]"), KT("gdx")},
    {KT("kex_gdx_hatch"), notBuilt, KT("gdx, reg, real angle, number distance"), KT("gdx")},
    {KT("kex_gdx_image"), notBuilt,
     KT("gdx, gdx source, integer x, integer y, [integer w, integer h]"), KT("gdx")},
    {KT("kex_gdx_pixel"), notBuilt, KT("gdx, integer x, integer y, [colour]"),
     KT("list (r g b) or nil")},
    {KT("kex_gdx_ents"), notBuilt, KT("gdx, enames or pickset, [mtx]"), KT("integer")},
    {KT("kex_gdx_block"), notBuilt, KT("gdx, string block, [point], [number scale]"),
     KT("integer or nil")},
    {KT("kex_gdx_obj"), notBuilt, KT("gdx, object or data, [string view]"), KT("integer or nil")},
    {KT("kex_gdx_solid"), notBuilt, KT("gdx, solid, [mtx or string view], [T shaded]"),
     KT("gdx or nil")},
    {KT("kex_gdx_save"), notBuilt, KT("gdx, string file"), KT("T or nil")},
    {KT("kex_gdx_load"), notBuilt, KT("string file"), KT("gdx or nil")},
    {KT("kex_gdx_scale"), notBuilt, KT("gdx, integer width, integer height"), KT("gdx")},
    {KT("kex_gdx_cmp"), notBuilt, KT("gdx1, gdx2, [integer tol]"), KT("real")},
    {KT("kex_gdx_to_data"), notBuilt, KT("gdx"), KT("data")},
    {KT("kex_gdx_from_data"), notBuilt, KT("data"), KT("gdx or nil")},
    {KT("kex_gdx_sheet"), notBuilt, KT("list of (gdx string), integer columns, [integer gap]"),
     KT("gdx or nil")},
    {KT("kex_gdx_thumb"), notBuilt, KT("[gdx]"), KT("gdx or nil")},
};

} // namespace KEX
