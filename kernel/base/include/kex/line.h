// SPDX-License-Identifier: LicenseRef-ORVALD
// A line by two of its points, and the few points that two curves have in common.
#pragma once

#include "kex/point.h"

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

} // namespace KEX
