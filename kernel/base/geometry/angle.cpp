// SPDX-License-Identifier: LicenseRef-ORVALD
// Angles without points.
#include "kex/angle.h"

#include <algorithm>

namespace KEX {
namespace {

/// Which of `count` equal parts of the full turn a direction lies in, from 1; 0 for none.
int sector(double angle, int count, double tolAngle)
{
    const double from0 = g_ang(angle);
    if (!std::isfinite(from0)) return 0;
    // Whatever the tolerance, a part comes out.
    const double snap = tolAngle > 0.0 ? std::min(tolAngle, kTwoPi) : 0.0;
    const int part = static_cast<int>((from0 + snap) * count / kTwoPi);
    return part % count + 1;
}

} // namespace

double g_ang(double angle)
{
    // Within one turn fmod, which is slow, would give the angle itself.
    double turned = std::abs(angle) < kTwoPi ? angle : std::fmod(angle, kTwoPi);
    if (turned < 0.0) turned += kTwoPi;
    // Also the case that a tiny negative angle was rounded up to the full turn.
    if (turned > kTwoPi - kAngleNoise) return 0.0;
    return turned + 0.0; // -0.0 becomes 0.0
}

double g_dw1(double a1, double a2)
{
    const double turn = a2 - a1;
    return g_ang_halfTurn(std::abs(turn) <= kPi ? turn : std::remainder(turn, kTwoPi)) + 0.0;
}

int g_oktant(double angle, double tolAngle) { return sector(angle, 8, tolAngle); }

int g_sextant(double angle, double tolAngle) { return sector(angle, 6, tolAngle); }

double g_w_3eck(double a, double b, double c)
{
    if (a == 0.0 || b == 0.0) return 0.0; // exact: the cosine has no denominator
    const bool turned = (a < 0.0) != (b < 0.0);
    const double x = std::max(std::abs(a), std::abs(b)), y = std::min(std::abs(a), std::abs(b));
    const double z = std::abs(c);
    // The brackets matter: each difference is of neighbours in size, so that nothing is lost.
    const double beyond0 = y >= z ? z - (x - y) : y - (x - z);
    const double belowPi = (x - z) + y;
    double angle = 0.0;
    if (belowPi <= 0.0) angle = kPi;
    else if (beyond0 > 0.0)
        angle = 2.0 * std::atan(std::sqrt(((x - y) + z) * beyond0 / ((x + (y + z)) * belowPi)));
    return turned ? kPi - angle : angle;
}

} // namespace KEX
