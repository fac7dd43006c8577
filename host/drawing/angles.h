// SPDX-License-Identifier: LicenseRef-ORVALD
// Angles between files (degrees) and programs (radians).
#pragma once

#include <cmath>
#include <initializer_list>
#include <numbers>

namespace orvald::drawing {

inline constexpr double kRadiansPerDegree = std::numbers::pi / 180.0;

inline double toRadians(double degrees) { return degrees * kRadiansPerDegree; }

/// The degrees whose toRadians is exactly `radians` where such a double exists, a short decimal
/// rather than its neighbours; else the nearest.
inline double toDegrees(double radians)
{
    const double degrees = radians / kRadiansPerDegree;
    constexpr double kDecimals = 1e10; // digits that people use, and a margin
    if (std::fabs(degrees) < 1e5) {
        const double decimal = std::round(degrees * kDecimals) / kDecimals;
        if (toRadians(decimal) == radians) return decimal;
    }
    const double up = std::nextafter(degrees, HUGE_VAL), down = std::nextafter(degrees, -HUGE_VAL);
    for (const double candidate : {degrees, up, down})
        if (toRadians(candidate) == radians) return candidate;
    return degrees;
}

} // namespace orvald::drawing
