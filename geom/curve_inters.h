// SPDX-License-Identifier: LicenseRef-ORVALD
// Common points of curves that may lie in different planes.
#pragma once

#include "geom/entity_curve.h"
#include "kex/box.h"

#include <vector>

namespace KEX {

/// World box of a curve.
Box curveBox(const EntityCurve& curve);

/// A common point and its place along the first curve: vertex number and share.
struct CurvePoint
{
    double place;
    CKexPoint3d point;
};
/// Appends the common points of two curves, in no order, doubles among them. A curve that goes on
/// is a single line or arc.
void curveInters(const EntityCurve& a, const EntityCurve& b, bool extendA, bool extendB,
                 std::vector<CurvePoint>& out);
/// The same for the segments of one curve with each other, joints left out.
void curveSelfInters(const EntityCurve& curve, std::vector<CurvePoint>& out);

} // namespace KEX
