// SPDX-License-Identifier: LicenseRef-ORVALD
// Arcs through points. Formulas work on differences of points, which are exact where the points are
// close together however far they lie from the origin.
#include "kex/arc.h"

#include <algorithm>

namespace KEX {
namespace {

/// Where three points lie to each other, in XY.
enum class Three
{
    coincide, // two of them are one
    arc,
    straight, // the second between the others
    back      // the second on the line of the others, not between
};

struct ThreePoints
{
    CKexVector3d chord, toStart, toEnd; // p1 to p3, p2 to p1, p2 to p3
    double cross, dot;                  // of toStart and toEnd; a left turn has a negative cross
    double size2;                       // product of their squared lengths
    Three place;

    ThreePoints(const CKexPoint3d& p1, const CKexPoint3d& p2, const CKexPoint3d& p3,
                double tolLength)
        : chord(p3 - p1),
          toStart(p1 - p2),
          toEnd(p3 - p2),
          cross(crossXY(toStart, toEnd)),
          dot(dotXY(toStart, toEnd))
    {
        const double chord2 = dotXY(chord, chord), start2 = dotXY(toStart, toStart),
                     end2 = dotXY(toEnd, toEnd), tol2 = tolLength * tolLength;
        size2 = start2 * end2;
        // Numbers beyond the finite ones make no arc either.
        const bool apart = chord2 > tol2 && start2 > tol2 && end2 > tol2 && std::isfinite(size2);
        // Twice the triangle's area is the chord times its height.
        if (!apart) place = Three::coincide;
        else if (cross * cross >= chord2 * tol2 && cross != 0.0) place = Three::arc;
        else place = dot < 0.0 ? Three::straight : Three::back;
    }
};

} // namespace

double g_aabs(const CKexPoint3d& p1, const CKexPoint3d& p2, const CKexPoint3d& p3, double tolLength)
{
    const CKexVector3d a = p1 - p2, b = p3 - p2;
    if (a.length() < tolLength || b.length() < tolLength) return 0.0;
    return std::atan2(a.cross(b).length(), a.dot(b));
}

bool g_arc3p_cen(const CKexPoint3d& p1, const CKexPoint3d& p2, const CKexPoint3d& p3,
                 CKexPoint3d& centre, double tolLength)
{
    const ThreePoints three(p1, p2, p3, tolLength);
    if (three.place != Three::arc) return false;
    const CKexVector3d chord(three.chord.x, three.chord.y);
    centre = p1 + (chord * 0.5 + chord.perpXY() * (0.5 * three.dot / three.cross));
    return true;
}

bool g_arc3p_bulg(const CKexPoint3d& p1, const CKexPoint3d& p2, const CKexPoint3d& p3,
                  double& bulge, double tolLength)
{
    const ThreePoints three(p1, p2, p3, tolLength);
    if (three.place == Three::coincide || three.place == Three::back) return false;
    bulge = 0.0;
    if (three.place == Three::straight) return true;
    // The path's legs are -toStart and toEnd: its turn has the sine -cross and the cosine -dot, and
    // tan(turn/2) is written without a difference of neighbours.
    const double size = std::sqrt(three.size2);
    bulge =
        three.dot <= 0.0 ? -three.cross / (size - three.dot) : -(size + three.dot) / three.cross;
    return true;
}

double g_bulg_len(const CKexPoint3d& p1, const CKexPoint3d& p2, const CKexPoint3d& through,
                  double tolLength)
{
    double bulge = 0.0;
    g_arc3p_bulg(p1, through, p2, bulge, tolLength);
    return CKexVertex(p1, p2, bulge).bulgLen();
}

bool g_arcrad_bulg(double& bulge, double r, const CKexPoint3d& p1, const CKexPoint3d& p2, double x,
                   double tolLength)
{
    const double chord = (p2 - p1).lengthXY();
    const double radius = std::abs(r);
    const bool reaches = radius >= 0.5 * chord - tolLength && chord >= tolLength && chord > 0.0;
    if (!reaches || radius == 0.0) return false;
    // tan(asin(k)/2), k the sine of half the angle.
    const double k = std::min(1.0, 0.5 * chord / radius);
    const double minor = k / (1.0 + std::sqrt((1.0 - k) * (1.0 + k)));
    bulge = std::copysign(x == 0.0 ? minor : 1.0 / minor, r);
    return true;
}

} // namespace KEX
