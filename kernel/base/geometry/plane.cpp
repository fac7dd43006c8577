// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/plane.h"

#include "kex/frame.h"
#include "kex/vector.h"

namespace KEX {

std::optional<Plane> g_plan_3p(const CKexPoint3d& p1, const CKexPoint3d& p2, const CKexPoint3d& p3,
                               double tolLength)
{
    if (p1.isEqualTo(p2, tolLength)) return std::nullopt;
    const CKexVector3d normal = (p2 - p1).normal().cross(p3 - p1); // as long as p3 is off the line
    if (!(normal.length() > tolLength)) return std::nullopt;
    return Plane{p1, normal.normal()};
}

std::optional<Plane> g_mtx_plan(const CKexMatrix3d& matrix)
{
    const CKexVector3d normal =
        g_mtx_column(matrix, 0).normal().cross(g_mtx_column(matrix, 1).normal()).normal();
    if (normal == CKexVector3d()) return std::nullopt;
    const bool below = normal.dot(g_mtx_column(matrix, 2)) < 0.0;
    return Plane{CKexPoint3d() + g_mtx_column(matrix, 3), below ? -normal : normal};
}

std::optional<CKexMatrix3d> g_plan_mtx(const Plane& plane, const std::optional<CKexVector3d>& x,
                                       double tolAngle)
{
    if (!x) return g_mtx_ocs(plane.normal, plane.origin);
    const double size = x->length();
    const CKexVector3d y = plane.normal.cross(*x);
    if (size < kNullLength || !(y.length() > tolAngle * size)) return std::nullopt;
    const CKexVector3d up = y.normal();
    return CKexMatrix3d::coordSystem(plane.origin, up.cross(plane.normal), up, plane.normal);
}

std::optional<CKexPoint3d> g_plan_proj(const CKexPoint3d& p, const Plane& plane,
                                       const std::optional<CKexVector3d>& direction,
                                       double tolAngle)
{
    const double distance = g_plan_dist(p, plane);
    if (!direction) return p - plane.normal * distance;
    const double size = direction->length(), down = plane.normal.dot(*direction);
    if (size < kNullLength || !(std::abs(down) > tolAngle * size)) return std::nullopt;
    return p - *direction * (distance / down);
}

std::optional<CKexPoint3d> g_plan_int_l(const Plane& plane, const CKexPoint3d& p1,
                                        const CKexPoint3d& p2, bool segment, double tolLength,
                                        double tolAngle)
{
    const CKexVector3d way = p2 - p1;
    const double length = way.length(), down = plane.normal.dot(way);
    if (!(length > tolLength) || !(std::abs(down) > tolAngle * length)) return std::nullopt;
    const double share = -g_plan_dist(p1, plane) / down;
    const bool beyond = share * length < -tolLength || (share - 1.0) * length > tolLength;
    if (segment && beyond) return std::nullopt;
    return p1 + way * share;
}

std::optional<Line> g_plan_int(const Plane& first, const Plane& second, double tolAngle)
{
    const CKexVector3d square = first.normal.cross(second.normal);
    const double sine = square.length();
    if (!(sine > tolAngle)) return std::nullopt;
    const CKexVector3d along = square * (1.0 / sine);
    // From the first plane's origin to the line, then along it to the world's origin.
    const CKexVector3d to = along.cross(first.normal) * (-g_plan_dist(first.origin, second) / sine);
    const CKexPoint3d near = first.origin + to;
    const CKexPoint3d start = near - along * along.dot(near.asVector());
    return Line{start, start + along};
}

double g_plan_ang(const Plane& first, const Plane& second, const std::optional<CKexVector3d>& edge)
{
    return g_vc_ang(first.normal, second.normal, edge);
}

bool g_plan_equal(const Plane& first, const Plane& second, bool sense, double tolLength,
                  double tolAngle)
{
    const int parallel = g_vc_par(first.normal, second.normal, tolAngle);
    return (sense ? parallel == 1 : parallel != 0) &&
           std::abs(g_plan_dist(first.origin, second)) <= tolLength &&
           std::abs(g_plan_dist(second.origin, first)) <= tolLength;
}

} // namespace KEX
