// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/tangent.h"

namespace KEX {
FewPoints g_tang_pc(const CKexPoint3d& p, const CKexPoint3d& centre, double r, double tolLength)
{
    const CKexVector3d way = inXY(centre - p);
    const double d = way.lengthXY();
    if (!(r > 0.0) || !(d >= r - tolLength)) return {};
    if (d <= r + tolLength) return FewPoints(p);
    const CKexVector3d along = way * (1.0 / d);
    const double share = r / d;
    const CKexVector3d left = along.perpXY() * (share * std::sqrt((d - r) * (d + r)));
    const CKexVector3d middle = along * (-r * share);
    return FewPoints(centre + (middle + left), centre + (middle - left));
}

CKexArrayTempl<Line> g_tang_cc(const CKexPoint3d& c1, double r1, const CKexPoint3d& c2, double r2,
                               double tolLength)
{
    CKexArrayTempl<Line> tangents;
    const CKexVector3d way = inXY(c2 - c1);
    const double d = way.lengthXY();
    if (!(r1 > 0.0) || !(r2 > 0.0) || !(d > tolLength)) return tangents;
    const CKexVector3d along = way * (1.0 / d), left = along.perpXY();
    // Towards the contacts the radii have one direction for an outer tangent, opposite ones for an
    // inner; its cosine with the way of the centres is (r1 -+ r2)/d.
    const auto addPair = [&](double second) {
        const double difference = r1 - second;
        const double length = std::sqrt((d - difference) * (d + difference));
        if (!(std::abs(difference) < d) || !(length > tolLength)) return;
        for (const double side : {1.0, -1.0}) {
            const CKexVector3d radius = along * (difference / d) + left * (side * (length / d));
            tangents.append({c1 + radius * r1, c2 + radius * second});
        }
    };
    addPair(r2);
    addPair(-r2);
    return tangents;
}

std::optional<CKexVertex> g_tang_ll(const CKexPoint3d& p1, const CKexPoint3d& p2,
                                    const CKexPoint3d& p3, double r, double tolLength,
                                    double tolAngle)
{
    const CKexVector3d first = inXY(p2 - p1), second = inXY(p3 - p2);
    const double length1 = first.lengthXY(), length2 = second.lengthXY();
    if (!(r > 0.0) || !(length1 > tolLength) || !(length2 > tolLength)) return std::nullopt;
    const double sine = crossXY(first, second) / (length1 * length2);
    if (!(std::abs(sine) > tolAngle)) return std::nullopt;
    const double turn = turnXY(first, second);
    const double tangent = r * std::tan(0.5 * std::abs(turn));
    return CKexVertex(p2 - first * (tangent / length1), p2 + second * (tangent / length2),
                      g_ang_bulg(turn));
}

} // namespace KEX
