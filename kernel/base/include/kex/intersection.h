// SPDX-License-Identifier: LicenseRef-ORVALD
// Intersections of lines, circles and arcs in the XY plane. Lines are infinite; an arc runs
// counter-clockwise from direction a1 to a2, radians, and equal directions are no arc. Points come
// at the height of the (first) centre, in the order that each function says. No result holds for a
// radius of 0 or below, a line through points that are one, and numbers that are not finite.
//
// Curves that touch within `tolLength` have one common point, between them. Results lie on both
// curves within 8 ε times the largest distance that goes in (radii, centre to centre, centre to the
// first point of the line) and the last bit of their coordinates, ε the precision of double: also
// for nearly tangent curves, where the place along them is worse known than that.
#pragma once

#include "kex/direction.h"
#include "kex/line.h"

namespace KEX {

/// Circle and line, in the order of p1 to p2.
/// Method: foot of the centre and half chord √((r-h)(r+h)), in coordinates about the centre.
KEX_BASE_API FewPoints g_cli(const CKexPoint3d& centre, double r, const CKexPoint3d& p1,
                             const CKexPoint3d& p2, double tolLength = CKexPoint3d::tol);
/// Arc and line: the points of g_cli on the arc, its ends included within `tolLength`.
KEX_BASE_API FewPoints g_ali(const CKexPoint3d& centre, double r, double a1, double a2,
                             const CKexPoint3d& p1, const CKexPoint3d& p2,
                             double tolLength = CKexPoint3d::tol);
/// Two circles: first the point left of the way from c1 to c2, then the right one; none for circles
/// about one centre. Exchanging the circles exchanges the points.
/// Method: half the common chord by Heron's formula, brackets of differences of neighbours in size.
KEX_BASE_API FewPoints g_cci(const CKexPoint3d& c1, double r1, const CKexPoint3d& c2, double r2,
                             double tolLength = CKexPoint3d::tol);
/// Circle about c1 and arc about c2: the points of g_cci on the arc.
KEX_BASE_API FewPoints g_cai(const CKexPoint3d& c1, double r1, const CKexPoint3d& c2, double r2,
                             double a1, double a2, double tolLength = CKexPoint3d::tol);
/// Two arcs: the points of g_cci on both.
KEX_BASE_API FewPoints g_aai(const CKexPoint3d& c1, double r1, double a1, double a2,
                             const CKexPoint3d& c2, double r2, double a3, double a4,
                             double tolLength = CKexPoint3d::tol);
/// Intersection of the lines p1-p2 and p3-p4, its height interpolated on the first. Nothing when
/// their angle's sine is at most `tolAngle`, when two points of a line are one, and, with
/// `segments`, beyond the ends of one of them by more than `tolLength`.
KEX_BASE_API std::optional<CKexPoint3d> g_int_ll(const CKexPoint3d& p1, const CKexPoint3d& p2,
                                                 const CKexPoint3d& p3, const CKexPoint3d& p4,
                                                 bool segments, double tolLength, double tolAngle);

/// p when it is within `tolLength` of the arc, its ends included, in space: the arc lies at the
/// height of its centre.
KEX_BASE_API std::optional<CKexPoint3d> g_arc_pt(const CKexPoint3d& centre, double r, double a1,
                                                 double a2, const CKexPoint3d& p,
                                                 double tolLength = CKexPoint3d::tol);

} // namespace KEX
