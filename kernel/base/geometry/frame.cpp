// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/frame.h"

#include "kex/plane.h"

namespace KEX {
namespace {

/// The host's limit for the arbitrary axis, exact in binary.
constexpr double kNearZ = 1.0 / 64.0;

} // namespace

std::optional<CKexMatrix3d> g_mtx_rot(double angle, const std::optional<CKexPoint3d>& base,
                                      const std::optional<CKexVector3d>& axis)
{
    const CKexVector3d about = axis.value_or(CKexVector3d(0.0, 0.0, 1.0));
    if (about.length() < kNullLength) return std::nullopt;
    return CKexMatrix3d::rotation(angle, about, base.value_or(CKexPoint3d()));
}

CKexMatrix3d g_mtx_scale(const CKexVector3d& factors, const CKexPoint3d& base)
{
    const CKexVector3d& f = factors;
    const CKexPoint3d moved(base.x - f.x * base.x, base.y - f.y * base.y, base.z - f.z * base.z);
    return CKexMatrix3d::coordSystem(moved, {f.x, 0, 0}, {0, f.y, 0}, {0, 0, f.z});
}

std::optional<CKexMatrix3d> g_mtx_mir(const CKexPoint3d& p1, const CKexPoint3d& p2,
                                      const std::optional<CKexPoint3d>& p3, double tolLength)
{
    const CKexVector3d way(p2.x - p1.x, p2.y - p1.y);
    if (!p3 && !(way.lengthXY() > tolLength)) return std::nullopt;
    const std::optional<Plane> plane =
        p3 ? g_plan_3p(p1, p2, *p3, tolLength) : Plane{p1, way.perpXY().normal()};
    if (!plane) return std::nullopt;
    // Householder's reflection: v - 2n(n·v).
    const CKexVector3d n = plane->normal, twice = n * -2.0;
    const CKexVector3d shift = n * (2.0 * n.dot(p1.asVector()));
    return CKexMatrix3d::coordSystem(CKexPoint3d() + shift, CKexVector3d(1, 0, 0) + twice * n.x,
                                     CKexVector3d(0, 1, 0) + twice * n.y,
                                     CKexVector3d(0, 0, 1) + twice * n.z);
}

std::optional<CKexMatrix3d> g_mtx_inv(const CKexMatrix3d& matrix)
{
    if (!(std::abs(matrix.det()) > kFlatDeterminant)) return std::nullopt;
    return matrix.inverse();
}

std::optional<CKexVector3d> g_mtx_axis(const CKexMatrix3d& matrix, int number)
{
    if (number < 0 || number > 3) return std::nullopt;
    return g_mtx_column(matrix, number == 0 ? 3 : number - 1);
}

bool g_mtx_equal(const CKexMatrix3d& first, const CKexMatrix3d& second, double tolLength,
                 double tolAngle)
{
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 4; ++column) {
            const double tol = column < 3 ? tolAngle : tolLength;
            if (!(std::abs(first(row, column) - second(row, column)) <= tol)) return false;
        }
    }
    return true;
}

std::optional<CKexMatrix3d> g_mtx_3p(const CKexPoint3d& o, const CKexPoint3d& px,
                                     const CKexPoint3d& py, double tolLength)
{
    const std::optional<Plane> plane = g_plan_3p(o, px, py, tolLength);
    if (!plane) return std::nullopt;
    const CKexVector3d x = (px - o).normal();
    return CKexMatrix3d::coordSystem(o, x, plane->normal.cross(x), plane->normal);
}

CKexMatrix3d g_mtx_axes(const CKexPoint3d& o, const CKexVector3d& x, const CKexVector3d& y,
                        const std::optional<CKexVector3d>& z)
{
    return CKexMatrix3d::coordSystem(o, x, y, z ? *z : x.cross(y));
}

std::optional<CKexMatrix3d> g_mtx_ocs(const CKexVector3d& normal,
                                      const std::optional<CKexPoint3d>& origin)
{
    if (normal.length() < kNullLength) return std::nullopt;
    const CKexVector3d z = normal.normal();
    const bool nearZ = std::abs(z.x) < kNearZ && std::abs(z.y) < kNearZ;
    const CKexVector3d side = nearZ ? CKexVector3d(0, 1, 0) : CKexVector3d(0, 0, 1);
    const CKexVector3d x = side.cross(z).normal();
    return CKexMatrix3d::coordSystem(origin.value_or(CKexPoint3d()), x, z.cross(x).normal(), z);
}

} // namespace KEX
