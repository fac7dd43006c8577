// SPDX-License-Identifier: LicenseRef-ORVALD
#include "plane_map.h"

#include <algorithm>
#include <cmath>

namespace orvald::drawing {
namespace {

/// The inverse of a map whose columns are square to each other and of length 1.
Transform turnedBack(const Transform& m)
{
    return {{m.x.x, m.y.x, m.z.x}, {m.x.y, m.y.y, m.z.y}, {m.x.z, m.y.z, m.z.z}, {}};
}

} // namespace

PlaneMap::PlaneMap(const Transform& map, Point normal)
{
    const Transform before = map.after(entityToWorld(normal));
    Point up = cross(before.x, before.y);
    const double size = length(up);
    const double sides = length(before.x) * length(before.y);
    sound_ = std::isfinite(size) && size > kMapNoise * sides && sides > 0.0;
    if (!sound_) return;
    up = (dot(up, before.z) < 0.0 ? -1.0 : 1.0) / size * up;
    // Maps in the plane shall not leave a normal that is Z but for its last bits.
    const auto whole = [](double v) {
        const double near = std::round(v);
        return std::fabs(v - near) < kMapNoise ? near : v;
    };
    const Point rounded{whole(up.x), whole(up.y), whole(up.z)};
    normal_ = length(rounded) == 1.0 ? rounded : up;
    local_ = turnedBack(entityToWorld(normal_)).after(before);
}

bool PlaneMap::isSimilar() const
{
    const double a = length(local_.x), b = length(local_.y);
    return std::fabs(a - b) <= kMapNoise * std::max(a, b) &&
           std::fabs(dot(local_.x, local_.y)) <= kMapNoise * a * b;
}

bool PlaneMap::alongNormal(double& factor) const
{
    factor = local_.z.z;
    const double size = length(local_.z);
    return std::hypot(local_.z.x, local_.z.y) <= kMapNoise * size;
}

double PlaneMap::angle(double direction) const
{
    const Point image = local_.direction({std::cos(direction), std::sin(direction), 0.0});
    return std::atan2(image.y, image.x);
}

} // namespace orvald::drawing
