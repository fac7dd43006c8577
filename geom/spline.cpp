// SPDX-License-Identifier: LicenseRef-ORVALD
#include "spline.h"

#include <algorithm>

namespace KEX {

bool Spline::isGood() const
{
    constexpr int kHighest = 25;
    return degree_ >= 1 && degree_ <= kHighest && controls_.size() > degree() &&
           knots_.size() == controls_.size() + degree() + 1 && std::ranges::is_sorted(knots_) &&
           from() < to();
}

bool Spline::isFlat() const
{
    return std::ranges::all_of(controls_,
                               [&](const CKexPoint3d& p) { return p.z == controls_[0].z; });
}

std::vector<double> Spline::breaks() const
{
    std::vector<double> inner;
    for (const double knot : knots_) {
        if (knot > from() && knot < to() && (inner.empty() || knot > inner.back())) {
            inner.push_back(knot);
        }
    }
    return inner;
}

CKexPoint3d Spline::at(double t) const
{
    const std::size_t p = degree();
    const auto above =
        std::upper_bound(knots_.begin() + static_cast<std::ptrdiff_t>(p),
                         knots_.begin() + static_cast<std::ptrdiff_t>(controls_.size()), t);
    const auto span = static_cast<std::size_t>(above - knots_.begin()) - 1;
    std::vector<CKexVector3d> points(p + 1);
    std::vector<double> weights(p + 1);
    for (std::size_t i = 0; i <= p; ++i) {
        weights[i] = weight(span - p + i);
        points[i] = controls_[span - p + i].asVector() * weights[i];
    }
    for (std::size_t level = 1; level <= p; ++level) {
        for (std::size_t i = p; i >= level; --i) {
            const double low = knots_[span - p + i], high = knots_[span + 1 + i - level];
            const double part = high == low ? 0.0 : (t - low) / (high - low);
            points[i] = points[i - 1] * (1.0 - part) + points[i] * part;
            weights[i] = weights[i - 1] * (1.0 - part) + weights[i] * part;
        }
    }
    const CKexVector3d v = points[p] * (1.0 / weights[p]);
    return {v.x, v.y, v.z};
}

} // namespace KEX
