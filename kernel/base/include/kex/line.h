// SPDX-License-Identifier: LicenseRef-ORVALD
// Lines by two of their points, the few points that two curves have in common, and what is measured
// and built on lines. Points in drawing units; a line through points that are one within a
// tolerance is no line.
#pragma once

#include "kex/direction.h"

#include <optional>

namespace KEX {

/// A line through two points, or the way from one to the other.
struct Line
{
    CKexPoint3d start, end;
    friend bool operator==(const Line&, const Line&) = default;
};

/// None, one or two points in a settled order.
class FewPoints
{
public:
    FewPoints() = default;
    explicit FewPoints(const CKexPoint3d& only) : points_{only}, count_(1) {}
    FewPoints(const CKexPoint3d& first, const CKexPoint3d& second)
        : points_{first, second}, count_(2)
    {
    }

    int length() const { return count_; }
    bool isEmpty() const { return count_ == 0; }
    const CKexPoint3d& operator[](int position) const
    {
        KEX_ASSERT(position >= 0 && position < count_, "position among the points");
        return points_[position];
    }
    const CKexPoint3d* begin() const { return points_; }
    const CKexPoint3d* end() const { return points_ + count_; }

    /// The points that a test holds for, in the same order.
    template <class Test>
    FewPoints only(Test test) const
    {
        FewPoints kept;
        for (const CKexPoint3d& p : *this) {
            if (test(p)) kept.points_[kept.count_++] = p;
        }
        return kept;
    }

private:
    CKexPoint3d points_[2];
    int count_ = 0;
};

/// The points are one: their distance in space is at most `tolLength`.
inline bool g_equal(const CKexPoint3d& p1, const CKexPoint3d& p2, double tolLength)
{
    return p1.isEqualTo(p2, tolLength);
}
/// Side of p seen along p1 to p2 in XY: 1 left, -1 right, 0 within `tolLength` of the line, or when
/// there is no line. Turns its sign when p1 and p2 are exchanged.
KEX_BASE_API int g_side(const CKexPoint3d& p1, const CKexPoint3d& p2, const CKexPoint3d& p,
                        double tolLength = CKexPoint3d::tol);

/// Lot, the foot of the perpendicular from p onto the infinite line a-b, in space; nothing when a
/// and b are one. Exchanging a and b changes nothing but the last bits. Error: at most 4 ε times
/// the largest distance between the points, and the last bit of the coordinates.
KEX_BASE_API std::optional<CKexPoint3d> g_lotp(const CKexPoint3d& p, const CKexPoint3d& a,
                                               const CKexPoint3d& b,
                                               double tolLength = CKexPoint3d::tol);
/// Direction in XY from p to its foot on the line a-b, as g_ang; nothing when there is no foot, and
/// when p and its foot are one in XY.
KEX_BASE_API std::optional<double> g_lot(const CKexPoint3d& p, const CKexPoint3d& a,
                                         const CKexPoint3d& b, double tolLength = CKexPoint3d::tol);
/// p when it is within `tolLength` of the way from p1 to p2 in space, both ends included.
KEX_BASE_API std::optional<CKexPoint3d> g_line_pt(const CKexPoint3d& p1, const CKexPoint3d& p2,
                                                  const CKexPoint3d& p,
                                                  double tolLength = CKexPoint3d::tol);
/// Distance of p from the infinite line a-b in space; from a when a and b are one.
/// Error: as that of g_lotp.
KEX_BASE_API double g_line_dist(const CKexPoint3d& p, const CKexPoint3d& a, const CKexPoint3d& b,
                                double tolLength = CKexPoint3d::tol);
/// Feet of the common perpendicular of the infinite lines p1-p2 and p3-p4 in space, that on the
/// first line first; one point twice where they meet. Nothing when the sine of their angle is at
/// most `tolAngle`. Error: at most 8 ε times the largest distance between the points, over that
/// sine squared.
KEX_BASE_API std::optional<Line> g_line_near(const CKexPoint3d& p1, const CKexPoint3d& p2,
                                             const CKexPoint3d& p3, const CKexPoint3d& p4,
                                             double tolLength, double tolAngle);
/// The line shifted by d to its left in XY, heights kept; nothing when p1 and p2 are one in XY.
KEX_BASE_API std::optional<Line> g_line_par(const CKexPoint3d& p1, const CKexPoint3d& p2, double d,
                                            double tolLength = CKexPoint3d::tol);
/// Gehrung, the mitre of two bars of widths d1 and d2 to the left of the path p1-p2-p3, in XY: from
/// p2 to where the left parallels meet, at the height of p2. Where the path goes straight on with
/// equal widths the mitre is square to it. Nothing for legs of no length, for parallel legs of
/// unequal widths, and for a path that turns back, within `tolAngle` for the sine of the turn.
KEX_BASE_API std::optional<Line> g_line_gehr(const CKexPoint3d& p1, const CKexPoint3d& p2,
                                             const CKexPoint3d& p3, double d1, double d2,
                                             double tolLength, double tolAngle);

} // namespace KEX
