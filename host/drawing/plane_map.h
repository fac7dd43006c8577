// SPDX-License-Identifier: LicenseRef-ORVALD
// What a map of space does to the coordinates of a plane entity.
#pragma once

#include "drawing/point.h"

namespace orvald::drawing {

/// Lengths, cosines and scales whose ratios differ by less count as equal.
inline constexpr double kMapNoise = 1e-9;

/// The map from the coordinates of an entity with a normal to those of its image, which has the
/// normal that the old one is carried to, as far as it is square to the image of the plane.
class PlaneMap
{
public:
    PlaneMap(const Transform& map, Point normal);

    /// The plane has an image that is a plane.
    bool isSound() const { return sound_; }
    Point normal() const { return normal_; }
    /// Entity coordinates, Z and all.
    Point operator()(Point p) const { return local_(p); }
    /// A direction in the plane, with its length.
    Point direction(Point v) const { return local_.direction(v); }

    /// All lengths in the plane change by one factor, and angles stay.
    bool isSimilar() const;
    /// That factor.
    double scale() const { return length(local_.x); }
    /// The image runs the other way round, seen against its normal.
    bool isMirrored() const { return local_.x.x * local_.y.y < local_.x.y * local_.y.x; }
    /// Factor of lengths along the normal. False when those do not stay along it.
    bool alongNormal(double& factor) const;
    /// Direction of the image of a direction in the plane, radians.
    double angle(double direction) const;

private:
    Transform local_;
    Point normal_;
    bool sound_;
};

} // namespace orvald::drawing
