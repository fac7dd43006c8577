// SPDX-License-Identifier: LicenseRef-ORVALD
// CKexVertex, one straight or circular segment, and CKexVertexArray, a list of them in running
// order. Lengths in drawing units. An arc lies in a plane parallel to XY at the height of its start
// point; its bulge turns about +Z. Not finite input gives not finite results, never a fault.
#pragma once

#include "kex/angle.h"
#include "kex/point.h"

class CKexVertex
{
public:
    /// No length, at the origin.
    CKexVertex() = default;
    CKexVertex(const CKexPoint3d& start, const CKexPoint3d& end, double bulge = 0.0)
        : start_(start), end_(end), bulge_(bulge)
    {
    }
    /// The arc about `centre` from direction a1 to a2, in radians: counter-clockwise for a positive
    /// radius, clockwise for a negative one. Equal directions are no arc, never a full circle:
    /// start and end are one point and the bulge is 0.
    KEX_BASE_API CKexVertex(const CKexPoint3d& centre, double radius, double a1, double a2);

    const CKexPoint3d& startPoint() const { return start_; }
    const CKexPoint3d& endPoint() const { return end_; }
    double bulge() const { return bulge_; }
    void setStartPoint(const CKexPoint3d& p) { start_ = p; }
    void setEndPoint(const CKexPoint3d& p) { end_ = p; }
    void setBulge(double bulge) { bulge_ = bulge; }

    bool isStraight() const { return KEX::g_bulg_isStraight(bulge_); }
    /// Included angle, signed like the bulge: 4·atan(bulge).
    double sweep() const { return KEX::g_bulg_ang(bulge_); }
    /// Length of the chord; that of an arc is measured in XY.
    double chord() const
    {
        const CKexVector3d d = end_ - start_;
        return isStraight() ? d.length() : d.lengthXY();
    }
    /// Radius of the arc, never negative; infinite for a straight segment. For a given chord it has
    /// its minimum, half of it, at bulge ±1: radius = chord·(1+b²)/(4·|b|).
    KEX_BASE_API double radius() const;
    /// Length along the segment: the chord when straight, radius times |sweep| for an arc. Passes
    /// without a jump into the chord as the bulge goes to 0.
    KEX_BASE_API double bulgLen() const;
    /// Centre of the arc, left of the chord for a bulge between 0 and 1; the middle of the chord
    /// for a straight segment, which has no centre. Computed from the start point, so that
    /// coordinates far from the origin cost nothing but their own last bit.
    KEX_BASE_API CKexPoint3d center() const;
    /// The point halfway along, on the arc for an arc; right of the chord for a positive bulge.
    KEX_BASE_API CKexPoint3d mid() const;

    /// Equal to the last bit but for the sign of 0.
    friend bool operator==(const CKexVertex&, const CKexVertex&) = default;

private:
    CKexPoint3d start_, end_;
    double bulge_ = 0.0;
};

/// Segments in running order. A gap between two of them is allowed.
class CKexVertexArray : public CKexArrayTempl<CKexVertex>
{
public:
    using CKexArrayTempl::CKexArrayTempl;

    /// Sum of the segments' lengths, added in list order; gaps do not count.
    KEX_BASE_API double geomLength() const;
    /// Joints at which the next segment does not start where the one before ends; the way from the
    /// last end back to the first start is not looked at.
    KEX_BASE_API int numOpens(double tolLength = CKexPoint3d::tol) const;
    /// At least two segments, no gap, and the last ends where the first starts.
    KEX_BASE_API bool isClosed(double tolLength = CKexPoint3d::tol) const;
    /// The start points of all segments and the last end point, so that a closed list repeats its
    /// first point; at a gap both ends.
    KEX_BASE_API CKexPoint3dArray pts(double tolLength = CKexPoint3d::tol) const;
};
