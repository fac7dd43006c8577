// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/ellipse.h"

namespace KEX {

double g_ellips_pt(double a, double b, double w)
{
    if (a == 0.0 || b == 0.0) return 0.0; // exact: flat to its centre
    const double u = b * std::cos(w), v = a * std::sin(w);
    return a * (b / std::sqrt(u * u + v * v));
}

double g_elps_w(double a, double b, double rot, double w, double sense)
{
    // The gradient of x²/a² + y²/b², a quarter turn on, times a²b².
    const double angle = w - rot;
    const double along = std::atan2(b * b * std::cos(angle), -(a * a) * std::sin(angle));
    return g_ang(rot + along + (sense < 0.0 ? kPi : 0.0));
}

} // namespace KEX
