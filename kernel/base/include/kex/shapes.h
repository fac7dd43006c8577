// SPDX-License-Identifier: LicenseRef-ORVALD
// Ready shapes as closed vertex lists, counter-clockwise, at the height of their given point.
// Lengths in drawing units, angles in radians. An empty list where there is no such shape: sizes of
// 0 and below.
#pragma once

#include "kex/vertex.h"

namespace KEX {

/// More corners than any drawing has: beyond this number there is no shape.
inline constexpr int kMostCorners = 100000;

/// Rectangle w by h with its lower left corner at p, turned about p, the first side from there.
/// Corners are rounded by r; a radius up to `tolLength` over half the smaller side is that half, a
/// larger or a negative one has no shape.
KEX_BASE_API CKexVertexArray g_mk_rect(const CKexPoint3d& p, double w, double h, double angle = 0.0,
                                       double r = 0.0, double tolLength = CKexPoint3d::tol);
/// Circle as two half circles, from the point in direction `angle`.
KEX_BASE_API CKexVertexArray g_mk_circ(const CKexPoint3d& centre, double r, double angle = 0.0);
/// Slot of width d about the axis p1-p2, the centres of its round ends, from the right of p1; a
/// circle from the X axis when p1 and p2 are one in XY.
KEX_BASE_API CKexVertexArray g_mk_slot(const CKexPoint3d& p1, const CKexPoint3d& p2, double d,
                                       double tolLength = CKexPoint3d::tol);
/// Regular polygon of n corners, 3 to kMostCorners, the first in direction `angle`: r is the radius
/// through the corners, or that of the inscribed circle.
KEX_BASE_API CKexVertexArray g_mk_neck(const CKexPoint3d& centre, int n, double r,
                                       double angle = 0.0, bool inscribed = false);
/// Ellipse with the half axes a, b, the first at `rot`, as 4k arcs from the end of the first axis:
/// each through the points of two equal steps of the ellipse's parameter and the one halfway. k is
/// the smallest with a deviation of at most `dif`, above 0; none when kMostCorners arcs do not
/// reach it. Deviation: falls with the third power of k; measured at nine places of each arc, so
/// that `dif` is exceeded by at most 2 per cent in between.
KEX_BASE_API CKexVertexArray g_mk_elps(const CKexPoint3d& centre, double a, double b,
                                       double rot = 0.0, double dif = 0.01);

/// Teilung, equal division: the smallest number n of fields, 1 or above, whose clear width
/// (length - (n-1)·bar)/n, between bars of a thickness, is at most `most` + `tolLength`, as for
/// railings. 0 when length or most is 0 or below, and when no number of int does it.
KEX_BASE_API int g_teil_n(double length, double most, double bar, double tolLength);
/// Axes of the n-1 bars that divide the way p1-p2 into n equal clear fields f, in space: at
/// k·f + (k-1/2)·bar from p1. None when n is below 2 or above kMostCorners, and when nothing is
/// left for the fields.
KEX_BASE_API CKexPoint3dArray g_teil_pts(const CKexPoint3d& p1, const CKexPoint3d& p2, int n,
                                         double bar = 0.0);

} // namespace KEX
