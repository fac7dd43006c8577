// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/s_curve.h"

#include "kex/direction.h"

namespace KEX {

double g_fries_r(double l, double h, double s)
{
    if (h == 0.0) return 0.0; // exact: no rise, no curve
    // With 1/t in place of t nothing grows as the length goes to 0.
    const double flatness = (l + s) / h;
    const double r = 0.25 * (h * (1.0 + flatness * flatness) - 2.0 * s * flatness);
    return r < 0.0 ? 0.0 : r;
}

double g_fries_w(double l, double h, double s)
{
    const double length = l + s;
    if (length == 0.0) return h == 0.0 ? 0.0 : std::copysign(kPi, h);
    return 2.0 * std::atan(h / length);
}

CKexVertexArray g_fries_2r(double l, double h, double r1, double s, double tolLength)
{
    const double rise = std::abs(h);
    const double r2 = 2.0 * g_fries_r(l, rise, s) - r1;
    if (!(r1 > 0.0) || !(r2 >= -tolLength) || rise == 0.0) return {};
    const double side = h < 0.0 ? -1.0 : 1.0;
    // A length below 0 takes more than half a turn, which g_fries_w does not tell.
    const double turn = 2.0 * std::atan2(rise, l + s);
    const double bulge = side * g_ang_bulg(turn);
    const double sine = std::sin(turn), cosine = std::cos(turn);
    const auto arcEnd = CKexPoint3d(r1 * sine, side * r1 * (1.0 - cosine));
    const auto straightEnd = arcEnd + CKexVector3d(s * cosine, side * s * sine);
    CKexVertexArray curve{CKexVertex(CKexPoint3d(), arcEnd, bulge)};
    const CKexPoint3d goal(l, h);
    if (std::abs(s) > tolLength) curve.append(CKexVertex(arcEnd, straightEnd));
    if (r2 > tolLength) curve.append(CKexVertex(straightEnd, goal, -bulge));
    curve.last().setEndPoint(goal);
    return curve;
}

} // namespace KEX
