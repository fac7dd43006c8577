// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/line.h"

namespace KEX {
int g_side(const CKexPoint3d& p1, const CKexPoint3d& p2, const CKexPoint3d& p, double tolLength)
{
    const CKexVector3d way = p2 - p1;
    const double length = way.lengthXY();
    if (!(length > tolLength)) return 0;
    const double left = crossXY(way, p - p1) / length;
    return left > tolLength ? 1 : left < -tolLength ? -1 : 0;
}

std::optional<CKexPoint3d> g_lotp(const CKexPoint3d& p, const CKexPoint3d& a, const CKexPoint3d& b,
                                  double tolLength)
{
    const CKexVector3d way = b - a;
    const double size2 = way.dot(way);
    if (!(size2 > tolLength * tolLength)) return std::nullopt;
    return a + way * (way.dot(p - a) / size2);
}

std::optional<double> g_lot(const CKexPoint3d& p, const CKexPoint3d& a, const CKexPoint3d& b,
                            double tolLength)
{
    const std::optional<CKexPoint3d> foot = g_lotp(p, a, b, tolLength);
    if (!foot || !((*foot - p).lengthXY() > tolLength)) return std::nullopt;
    return acutAngle(p, *foot);
}

std::optional<CKexPoint3d> g_line_pt(const CKexPoint3d& p1, const CKexPoint3d& p2,
                                     const CKexPoint3d& p, double tolLength)
{
    if (p.isEqualTo(p1, tolLength) || p.isEqualTo(p2, tolLength)) return p;
    const CKexVector3d way = p2 - p1, to = p - p1;
    const double length = way.length(), along = way.dot(to);
    const bool between = along >= 0.0 && along <= length * length;
    if (!between || !(way.cross(to).length() <= tolLength * length)) return std::nullopt;
    return p;
}

double g_line_dist(const CKexPoint3d& p, const CKexPoint3d& a, const CKexPoint3d& b,
                   double tolLength)
{
    const CKexVector3d way = b - a, to = p - a;
    const double size2 = way.dot(way);
    if (!(size2 > tolLength * tolLength)) return to.length();
    const CKexVector3d cross = way.cross(to);
    return std::sqrt(cross.dot(cross) / size2);
}

std::optional<Line> g_line_near(const CKexPoint3d& p1, const CKexPoint3d& p2, const CKexPoint3d& p3,
                                const CKexPoint3d& p4, double tolLength, double tolAngle)
{
    if (p1.isEqualTo(p2, tolLength) || p3.isEqualTo(p4, tolLength)) return std::nullopt;
    const CKexVector3d first = (p2 - p1).normal(), second = (p4 - p3).normal();
    const CKexVector3d square = first.cross(second);
    const double sine2 = square.dot(square);
    if (!(sine2 > tolAngle * tolAngle)) return std::nullopt;
    const CKexVector3d between = p3 - p1;
    return Line{p1 + first * (between.cross(second).dot(square) / sine2),
                p3 + second * (between.cross(first).dot(square) / sine2)};
}

std::optional<Line> g_line_par(const CKexPoint3d& p1, const CKexPoint3d& p2, double d,
                               double tolLength)
{
    const CKexVector3d way = inXY(p2 - p1);
    const double length = way.lengthXY();
    if (!(length > tolLength)) return std::nullopt;
    const CKexVector3d shift = way.perpXY() * (d / length);
    return Line{p1 + shift, p2 + shift};
}

std::optional<Line> g_line_gehr(const CKexPoint3d& p1, const CKexPoint3d& p2, const CKexPoint3d& p3,
                                double d1, double d2, double tolLength, double tolAngle)
{
    const CKexVector3d first = inXY(p2 - p1), second = inXY(p3 - p2);
    const double length1 = first.lengthXY(), length2 = second.lengthXY();
    if (!(length1 > tolLength) || !(length2 > tolLength)) return std::nullopt;
    const CKexVector3d along = first * (1.0 / length1);
    const double sine = crossXY(first, second) / (length1 * length2);
    const double cosine = dotXY(first, second) / (length1 * length2);
    const bool parallel = std::abs(sine) <= tolAngle;
    const bool equal = std::abs(d1 - d2) <= tolLength;
    if (parallel && (cosine < 0.0 || !equal)) return std::nullopt;
    // Along the first leg by what equal widths lose, -d·tan(turn/2), and what the widths differ by.
    const double back = -d1 * sine / (1.0 + cosine) + (parallel ? 0.0 : (d1 - d2) / sine);
    return Line{p2, p2 + along * back + along.perpXY() * d1};
}

} // namespace KEX
