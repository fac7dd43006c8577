// SPDX-License-Identifier: LicenseRef-ORVALD
// Lists of points: polygons, whose last point goes back to the first, and clouds. What is said of
// areas holds in XY. Numbers that are not finite give results that are not, never a fault.
#pragma once

#include "kex/box.h"
#include "kex/plane.h"
#include "kex/statics.h"
#include "kex/vertex.h"

namespace KEX {

/// Length of the way through the points in space, closed with the way back.
KEX_BASE_API double g_pl_len(const CKexPoint3dArray& points, bool closed);
/// Area of the polygon, counter-clockwise positive; 0.0 for fewer than 3 points.
/// Error: at most 4 ε times outline times diameter, wherever it lies: it is summed about its first
/// point.
KEX_BASE_API double g_pl_area(const CKexPoint3dArray& points);
/// Centroid of the polygon's area, at the height of its plane when it has one; the mean of the
/// points when the area is below `tolLength` squared. Nothing for no points.
KEX_BASE_API std::optional<CKexPoint3d> g_pl_cen(const CKexPoint3dArray& points,
                                                 double tolLength = CKexPoint3d::tol);
/// Section properties of the polygon, whatever its sense; nothing when the area is below
/// `tolLength` squared. Method: Green's theorem about the first point, then Steiner's.
KEX_BASE_API std::optional<Statics> g_pl_statics(const CKexPoint3dArray& points,
                                                 double tolLength = CKexPoint3d::tol);
/// Smallest and largest coordinates, in space; nothing for no points.
KEX_BASE_API std::optional<Box> g_pl_ext(const CKexPoint3dArray& points);

/// The points along a direction, in XY; those within `tolLength` of the first of their group from
/// left to right seen along it. With `unique` points that are one with their predecessor are
/// dropped.
KEX_BASE_API CKexPoint3dArray g_pl_sort(const CKexPoint3dArray& points, double angle, bool unique,
                                        double tolLength = CKexPoint3d::tol);
/// Without the points nearer than `tolLength` to an earlier one that is kept, and exact
/// repetitions. Method: kept points in cells of that size, so in time of the number of points.
KEX_BASE_API CKexPoint3dArray g_pl_uniq(const CKexPoint3dArray& points, double tolLength);
/// Convex hull in XY, counter-clockwise from the lowest, then leftmost point, no three on a line
/// but for rounding; heights come along. Fewer than 3 points that differ are the result themselves.
/// Method: A. M. Andrew's chains, of the points sorted by Y.
KEX_BASE_API CKexPoint3dArray g_pl_hull(const CKexPoint3dArray& points,
                                        double tolLength = CKexPoint3d::tol);
/// Where p lies to the polygon, in XY and even-odd where it overlaps itself: 1 inside, 0 within
/// `tolLength` of the edge, -1 outside.
KEX_BASE_API int g_pl_inside(const CKexPoint3dArray& points, const CKexPoint3d& p,
                             double tolLength = CKexPoint3d::tol);
/// Position, from 1, of the point nearest to p in space, the first of equals; nothing for no
/// points.
KEX_BASE_API std::optional<int> g_pl_near(const CKexPoint3dArray& points, const CKexPoint3d& p);
KEX_BASE_API CKexPoint3dArray g_pl_mtx(const CKexPoint3dArray& points, const CKexMatrix3d& matrix);

/// Vertex list through the points, closed with the way back. Bulge n belongs to the segment that
/// starts at point n, missing ones are 0. A point within `tolLength` of the one kept before makes
/// no segment; its own starts there. Empty for fewer than 2 points.
KEX_BASE_API CKexVertexArray g_pl_vl(const CKexPoint3dArray& points, bool closed,
                                     const CKexArrayTempl<double>& bulges,
                                     double tolLength = CKexPoint3d::tol);
/// Plane of the polygon through the mean of its points; nothing when a point is farther than
/// `tolLength` from it, and when the area is below `tolPoints` squared. Method: M. E. Newell's
/// normal.
KEX_BASE_API std::optional<Plane> g_pl_plan(const CKexPoint3dArray& points, double tolLength,
                                            double tolPoints = CKexPoint3d::tol);
/// All points lie within `tolLength` of the line through the two farthest apart; true for fewer
/// than 3. The two are taken as the farthest from the farthest from the first, which on a line they
/// are.
KEX_BASE_API bool g_pl_colin(const CKexPoint3dArray& points, double tolLength);
/// Thinned so that no dropped point is farther than `dif` from the result, in space; the first and
/// the last stay. Method: D. H. Douglas and T. K. Peucker, without recursion.
KEX_BASE_API CKexPoint3dArray g_pl_thin(const CKexPoint3dArray& points, double dif);

} // namespace KEX
