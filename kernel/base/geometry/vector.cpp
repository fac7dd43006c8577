// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/vector.h"

#include "kex/angle.h"

namespace KEX {

double g_vc_ang(const CKexVector3d& a, const CKexVector3d& b,
                const std::optional<CKexVector3d>& axis)
{
    const double sizeA = a.length(), sizeB = b.length();
    if (sizeA < kNullLength || sizeB < kNullLength) return 0.0;
    const CKexVector3d cross = a.cross(b);
    if (!axis) return std::atan2(cross.length(), a.dot(b));
    if (axis->length() < kNullLength) return 0.0;
    const CKexVector3d n = axis->normal();
    const CKexVector3d flatA = a - n * a.dot(n), flatB = b - n * b.dot(n);
    const bool alongAxis =
        flatA.length() <= kDirectionNoise * sizeA || flatB.length() <= kDirectionNoise * sizeB;
    if (alongAxis) return 0.0;
    return g_ang_halfTurn(std::atan2(n.dot(flatA.cross(flatB)) + 0.0, flatA.dot(flatB)));
}

CKexVector3d g_vc_rot(const CKexVector3d& a, const CKexVector3d& axis, double angle)
{
    if (axis.length() < kNullLength) return a;
    const CKexVector3d n = axis.normal();
    const double c = std::cos(angle);
    // Rodrigues' formula.
    return a * c + n.cross(a) * std::sin(angle) + n * (n.dot(a) * (1.0 - c));
}

int g_vc_par(const CKexVector3d& a, const CKexVector3d& b, double tolAngle)
{
    const double sizeA = a.length(), sizeB = b.length();
    if (sizeA < kNullLength || sizeB < kNullLength) return 0;
    if (!((a * (1.0 / sizeA)).cross(b * (1.0 / sizeB)).length() <= tolAngle)) return 0;
    return a.dot(b) < 0.0 ? -1 : 1;
}

} // namespace KEX
