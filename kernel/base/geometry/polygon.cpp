// SPDX-License-Identifier: LicenseRef-ORVALD
// Polygons: lengths, areas, sections, planes.
#include "kex/polygon.h"

#include "kex/direction.h"

#include <algorithm>

namespace KEX {
namespace {

/// Calls `edge` with both ends of every side, the way back included.
template <class Edge>
void forEachSide(const CKexPoint3dArray& points, Edge edge)
{
    for (int i = 0; i < points.length(); ++i) {
        edge(points[i], points[i + 1 == points.length() ? 0 : i + 1]);
    }
}

CKexPoint3d meanOf(const CKexPoint3dArray& points)
{
    CKexVector3d sum;
    for (const CKexPoint3d& p : points) sum = sum + (p - points.first());
    return points.first() + sum * (1.0 / points.length());
}

} // namespace

double g_pl_len(const CKexPoint3dArray& points, bool closed)
{
    double sum = 0.0;
    for (int i = 1; i < points.length(); ++i) sum += points[i].distanceTo(points[i - 1]);
    if (closed && points.length() > 1) sum += points.first().distanceTo(points.last());
    return sum;
}

double g_pl_area(const CKexPoint3dArray& points)
{
    if (points.length() < 3) return 0.0;
    double twice = 0.0;
    for (int i = 2; i < points.length(); ++i) {
        twice += crossXY(points[i - 1] - points[0], points[i] - points[0]);
    }
    return 0.5 * twice;
}

std::optional<CKexPoint3d> g_pl_cen(const CKexPoint3dArray& points, double tolLength)
{
    if (points.isEmpty()) return std::nullopt;
    if (!(std::abs(g_pl_area(points)) >= tolLength * tolLength)) return meanOf(points);
    // Triangles about the first point, each with its own centroid.
    double twice = 0.0;
    CKexVector3d sum;
    for (int i = 2; i < points.length(); ++i) {
        const CKexVector3d a = points[i - 1] - points[0], b = points[i] - points[0];
        const double cross = crossXY(a, b);
        twice += cross;
        sum = sum + (a + b) * cross;
    }
    return points[0] + sum * (1.0 / (3.0 * twice));
}

std::optional<Statics> g_pl_statics(const CKexPoint3dArray& points, double tolLength)
{
    const double signedArea = g_pl_area(points);
    if (!(std::abs(signedArea) >= tolLength * tolLength) || signedArea == 0.0) return std::nullopt;
    const CKexPoint3d base(points[0].x, points[0].y);
    double sx = 0.0, sy = 0.0, ix = 0.0, iy = 0.0, ixy = 0.0;
    Statics result;
    result.min = result.max = base;
    forEachSide(points, [&](const CKexPoint3d& from, const CKexPoint3d& to) {
        const CKexVector3d a = from - base, b = to - base;
        const double cross = crossXY(a, b);
        sx += cross * (a.y + b.y);
        sy += cross * (a.x + b.x);
        ix += cross * (a.y * a.y + a.y * b.y + b.y * b.y);
        iy += cross * (a.x * a.x + a.x * b.x + b.x * b.x);
        ixy += cross * (2.0 * (a.x * a.y + b.x * b.y) + a.x * b.y + b.x * a.y);
        result.outline += (b - a).lengthXY();
        result.min = {std::min(result.min.x, to.x), std::min(result.min.y, to.y)};
        result.max = {std::max(result.max.x, to.x), std::max(result.max.y, to.y)};
    });
    const double sense = signedArea < 0.0 ? -1.0 : 1.0;
    const double x = sy / (6.0 * signedArea), y = sx / (6.0 * signedArea);
    result.area = std::abs(signedArea);
    result.centroid = base + CKexVector3d(x, y);
    result.ix = sense * ix / 12.0 - result.area * y * y;
    result.iy = sense * iy / 12.0 - result.area * x * x;
    result.ixy = sense * ixy / 24.0 - result.area * x * y;
    return result;
}

std::optional<Box> g_pl_ext(const CKexPoint3dArray& points)
{
    if (points.isEmpty()) return std::nullopt;
    Box box{points[0], points[0]};
    for (const CKexPoint3d& p : points) box.add(p);
    return box;
}

int g_pl_inside(const CKexPoint3dArray& points, const CKexPoint3d& p, double tolLength)
{
    bool inside = false, onEdge = false;
    forEachSide(points, [&](const CKexPoint3d& from, const CKexPoint3d& to) {
        const CKexVector3d a = inXY(from - p), b = inXY(to - p), way = b - a;
        const double size2 = dotXY(way, way), along = -dotXY(a, way);
        const double distance = along <= 0.0 || size2 == 0.0 ? a.lengthXY()
                                : along >= size2             ? b.lengthXY()
                                                 : std::abs(crossXY(a, b)) / std::sqrt(size2);
        onEdge = onEdge || distance <= tolLength;
        // A side is crossed when it goes over the ray to +X; its lower end belongs to it.
        if ((a.y > 0.0) != (b.y > 0.0) && (crossXY(a, b) > 0.0) == (b.y > a.y)) inside = !inside;
    });
    return onEdge ? 0 : inside ? 1 : -1;
}

CKexVertexArray g_pl_vl(const CKexPoint3dArray& points, bool closed,
                        const CKexArrayTempl<double>& bulges, double tolLength)
{
    CKexVertexArray list;
    const int count = points.length();
    if (count < 2) return list;
    CKexPoint3d from = points[0];
    const int sides = closed ? count : count - 1;
    for (int i = 0; i < sides; ++i) {
        const CKexPoint3d& to = points[i + 1 == count ? 0 : i + 1];
        if (from.isEqualTo(to, tolLength)) continue;
        list.append(CKexVertex(from, to, i < bulges.length() ? bulges[i] : 0.0));
        from = to;
    }
    return list;
}

std::optional<Plane> g_pl_plan(const CKexPoint3dArray& points, double tolLength, double tolPoints)
{
    if (points.length() < 3) return std::nullopt;
    const CKexPoint3d mean = meanOf(points);
    CKexVector3d twice; // the area as a vector
    forEachSide(points, [&](const CKexPoint3d& from, const CKexPoint3d& to) {
        twice = twice + (from - mean).cross(to - mean);
    });
    if (!(0.5 * twice.length() >= tolPoints * tolPoints)) return std::nullopt;
    const Plane plane{mean, twice.normal()};
    for (const CKexPoint3d& p : points) {
        if (!(std::abs(g_plan_dist(p, plane)) <= tolLength)) return std::nullopt;
    }
    return plane;
}

} // namespace KEX
