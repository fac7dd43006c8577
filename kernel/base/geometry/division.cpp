// SPDX-License-Identifier: LicenseRef-ORVALD
// Equal division of lengths.
#include "kex/shapes.h"

#include <limits>

namespace KEX {

int g_teil_n(double length, double most, double bar, double tolLength)
{
    if (!(length > 0.0) || !(most > 0.0)) return 0;
    const double limit = most + tolLength;
    const auto fits = [&](double n) { return (length - (n - 1.0) * bar) / n <= limit; };
    if (fits(1.0)) return 1;
    if (!(limit + bar > 0.0)) return 0;
    // One bar goes with each field, but for the last.
    const double n = std::ceil((length + bar) / (limit + bar));
    if (!(n > 1.0) || !(n < std::numeric_limits<int>::max())) return 0;
    // The quotient may be a last bit off a whole number.
    const int count = static_cast<int>(n);
    return fits(n - 1.0) ? count - 1 : fits(n) ? count : count + 1;
}

CKexPoint3dArray g_teil_pts(const CKexPoint3d& p1, const CKexPoint3d& p2, int n, double bar)
{
    CKexPoint3dArray axes;
    const CKexVector3d way = p2 - p1;
    const double length = way.length();
    if (n < 2 || n > kMostCorners) return axes;
    const double field = (length - (n - 1.0) * bar) / n;
    if (!(field > 0.0) || !(length > 0.0)) return axes;
    axes.reserve(n - 1);
    for (int k = 1; k < n; ++k) axes.append(p1 + way * ((k * field + (k - 0.5) * bar) / length));
    return axes;
}

} // namespace KEX
