// SPDX-License-Identifier: LicenseRef-ORVALD
// Arcs in the XY plane: from bulges, from centres, through points. Lengths in drawing units, bulges
// positive counter-clockwise; an arc lies at the height of its start point.
#pragma once

#include "kex/direction.h"
#include "kex/vertex.h"

namespace KEX {

/// Length of the segment from p1 to p2 with a bulge.
inline double g_bulg_len(const CKexPoint3d& p1, const CKexPoint3d& p2, double bulge)
{
    return CKexVertex(p1, p2, bulge).bulgLen();
}
/// Length of the arc from p1 over `through` to p2; that of the chord where the three make no arc
/// (g_arc3p_bulg).
KEX_BASE_API double g_bulg_len(const CKexPoint3d& p1, const CKexPoint3d& p2,
                               const CKexPoint3d& through, double tolLength = CKexPoint3d::tol);
/// Centre of the segment's arc; the middle of the chord for bulge 0, which has no centre.
inline CKexPoint3d g_bulg_cen(const CKexPoint3d& p1, const CKexPoint3d& p2, double bulge)
{
    return CKexVertex(p1, p2, bulge).center();
}
/// The point halfway along the segment.
inline CKexPoint3d g_bulg_mid(const CKexPoint3d& p1, const CKexPoint3d& p2, double bulge)
{
    return CKexVertex(p1, p2, bulge).mid();
}

/// Length of the arc of radius |r| counter-clockwise from direction a1 to a2; 0.0 for equal
/// directions, never a full circle.
inline double g_arc_len(double r, double a1, double a2) { return std::abs(r) * g_ang(a2 - a1); }
/// Bulge of the arc counter-clockwise from direction a1 to a2, not negative. Below 1 up to the half
/// turn, towards a full turn beyond all bounds.
inline double g_arc_bulg(double a1, double a2) { return g_ang_bulg(g_ang(a2 - a1)); }
/// The point halfway on the arc counter-clockwise from a1 to a2, at the height of the centre. With
/// a negative radius halfway on the clockwise arc of radius |r|.
inline CKexPoint3d g_arc_mid(const CKexPoint3d& centre, double r, double a1, double a2)
{
    return polar(centre, g_w_mid(a1, a2), r);
}

/// Centre of the circle through p1, p2, p3, in the XY plane at the height of p1.
///
/// False, with `centre` left alone, when two of the points are one within `tolLength`, or p2 is
/// nearer than it to the line p1-p3. Exchanging p1 and p3 gives the same centre but for its height.
/// Method: from the middle of the chord p1-p3 by half the chord times the cotangent of the angle at
/// p2, from differences of points, so that nothing is lost far from the origin.
/// Error: at most 4 ε (r²/chord + largest coordinate), ε the precision of double.
KEX_BASE_API bool g_arc3p_cen(const CKexPoint3d& p1, const CKexPoint3d& p2, const CKexPoint3d& p3,
                              CKexPoint3d& centre, double tolLength = CKexPoint3d::tol);
/// Bulge of the arc from p1 over p2 to p3 in XY: tan(turn/2), turn that of the path at p2. Exactly
/// 0.0 when p2 lies between the others, nearer than `tolLength` to the line p1-p3.
///
/// False, with `bulge` left alone, when two of the points are one within `tolLength`, or the path
/// turns back on itself: p2 so near to the line, but not between. Exchanging p1 and p3 negates it.
/// Error: at most 8 ε (1 + |bulge|²), ε the precision of double.
KEX_BASE_API bool g_arc3p_bulg(const CKexPoint3d& p1, const CKexPoint3d& p2, const CKexPoint3d& p3,
                               double& bulge, double tolLength = CKexPoint3d::tol);
/// Bulge of the shorter arc from p1 to p2 about a centre, in XY: tan(turn/4) between their
/// directions from the centre, -1 to 1; a half turn is counter-clockwise. The distances from the
/// centre need not be equal. 0.0 when p1 or p2 is the centre.
inline double g_arcmp_bulg(const CKexPoint3d& p1, const CKexPoint3d& p2, const CKexPoint3d& centre)
{
    return g_ang_bulg(turnXY(p1 - centre, p2 - centre));
}
/// Bulge of an arc of radius |r| from p1 to p2 in XY, counter-clockwise for r > 0, else clockwise:
/// the minor arc for x = 0.0, the major arc for any other x. Minor times major bulge is 1.
///
/// A chord up to 2·|r| + 2·`tolLength` counts as the diameter. False, with `bulge` left alone, for
/// a longer one, a chord shorter than `tolLength`, and r = 0. Error: at most 8 ε relative, of the
/// exact bulge for the given radius and ends.
KEX_BASE_API bool g_arcrad_bulg(double& bulge, double r, const CKexPoint3d& p1,
                                const CKexPoint3d& p2, double x = 0.0,
                                double tolLength = CKexPoint3d::tol);

/// Radius of the fillet whose tangents, from the corner to the contact, have length a in a corner
/// whose legs enclose the angle b: a·tan(b/2); a at a right angle.
inline double g_tang_radius(double a, double b) { return a * std::tan(0.5 * b); }

} // namespace KEX
