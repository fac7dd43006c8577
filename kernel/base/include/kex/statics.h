// SPDX-License-Identifier: LicenseRef-ORVALD
// Section properties of plane areas.
#pragma once

#include "kex/point.h"

namespace KEX {

/// Of an area in XY, about axes through its centroid parallel to X and Y.
struct Statics
{
    double area = 0.0;
    CKexPoint3d centroid; // Z is 0
    double ix = 0.0, iy = 0.0, ixy = 0.0;
    double outline = 0.0; // length of all loops
    CKexPoint3d min, max; // extents, Z is 0

    double i1() const { return mean() + radius(); }
    double i2() const { return mean() - radius(); }
    /// Direction of the axis of i1, above -π/2 up to π/2; 0 when all directions are alike.
    double alpha() const { return 0.5 * std::atan2(0.0 - 2.0 * ixy, ix - iy); }
    /// Radii of gyration √(I/A).
    double gyrationX() const { return std::sqrt(ix / area); }
    double gyrationY() const { return std::sqrt(iy / area); }
    /// Section moduli: I over the largest distance of the edge.
    double wx() const { return ix / std::fmax(max.y - centroid.y, centroid.y - min.y); }
    double wy() const { return iy / std::fmax(max.x - centroid.x, centroid.x - min.x); }

private:
    double mean() const { return 0.5 * (ix + iy); }
    double radius() const { return std::hypot(0.5 * (ix - iy), ixy); }
};

} // namespace KEX
