// SPDX-License-Identifier: LicenseRef-ORVALD
// Boxes, affine maps and the arbitrary axis rule.
#include "drawing/point.h"

#include <algorithm>
#include <cmath>

namespace orvald::drawing {

double length(Point v) { return std::hypot(v.x, v.y, v.z); }

void Box::add(Point p)
{
    if (!std::isfinite(p.x) || !std::isfinite(p.y) || !std::isfinite(p.z)) return;
    if (empty_) {
        min_ = max_ = p;
        empty_ = false;
        return;
    }
    min_ = {std::min(min_.x, p.x), std::min(min_.y, p.y), std::min(min_.z, p.z)};
    max_ = {std::max(max_.x, p.x), std::max(max_.y, p.y), std::max(max_.z, p.z)};
}

void Box::add(const Box& other)
{
    if (other.empty_) return;
    add(other.min_);
    add(other.max_);
}

Transform Transform::after(const Transform& first) const
{
    return {direction(first.x), direction(first.y), direction(first.z), (*this)(first.origin)};
}

Transform entityToWorld(Point normal)
{
    const double size = length(normal);
    if (!(size > 0.0) || !std::isfinite(size)) return {};
    const Point z = 1.0 / size * normal;
    if (z == Point{0.0, 0.0, 1.0}) return {};
    // Below this share of X and Y the normal counts as the Z axis: the file format's constant.
    constexpr double kNearZ = 1.0 / 64.0;
    const Point side = std::fabs(z.x) < kNearZ && std::fabs(z.y) < kNearZ ? Point{0.0, 1.0, 0.0}
                                                                          : Point{0.0, 0.0, 1.0};
    Point x = cross(side, z);
    x = 1.0 / length(x) * x;
    return {x, cross(z, x), z, {}};
}

} // namespace orvald::drawing
