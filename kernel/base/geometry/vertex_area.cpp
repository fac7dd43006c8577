// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/vertex_area.h"

#include "kex/vertex_place.h"

namespace KEX {

double vx_segmentArea(const CKexVertex& vertex)
{
    if (vertex.isStraight()) return 0.0;
    const double sweep = vertex.sweep(), radius = vertex.radius();
    // Below this angle θ - sin θ loses more digits than the first terms of its series leave out.
    constexpr double kFlat = 1e-2;
    const double t2 = sweep * sweep;
    const double excess = std::abs(sweep) < kFlat
                              ? sweep * t2 / 6.0 * (1.0 - t2 / 20.0 * (1.0 - t2 / 42.0))
                              : sweep - std::sin(sweep);
    return 0.5 * radius * radius * excess;
}

double vl_area(const CKexVertexArray& list)
{
    if (list.isEmpty()) return 0.0;
    // About the first point, so that the distance from the origin costs nothing.
    const CKexPoint3d origin = list.first().startPoint();
    const auto triangle = [&](const CKexPoint3d& p, const CKexPoint3d& q) {
        const CKexVector3d a = p - origin, b = q - origin;
        return 0.5 * (a.x * b.y - a.y * b.x);
    };
    double area = 0.0;
    for (int i = 0; i < list.length(); ++i) {
        const CKexVertex& vertex = list[i];
        area += triangle(vertex.startPoint(), vertex.endPoint()) + vx_segmentArea(vertex);
        const CKexPoint3d& next = list[(i + 1) % list.length()].startPoint();
        area += triangle(vertex.endPoint(), next);
    }
    return area;
}

AreaMoments vl_moments(const CKexVertexArray& list, const CKexPoint3d& origin)
{
    AreaMoments sum;
    for (const CKexVertex& vertex : list) {
        const CKexVector3d a = vertex.startPoint() - origin, b = vertex.endPoint() - origin;
        const double triangle = 0.5 * (a.x * b.y - a.y * b.x);
        sum.area += triangle;
        sum.moment = sum.moment + CKexVector3d(a.x + b.x, a.y + b.y) * (triangle / 3.0);
        const double chord = vertex.chord();
        if (vertex.isStraight() || chord == 0.0) continue;
        // The part between arc and chord, about the middle of the chord; a far centre takes away
        // what its chord³/12 gives.
        const double part = vx_segmentArea(vertex);
        const CKexVector3d d = vertex.endPoint() - vertex.startPoint();
        const double toCentre = 0.25 * chord * (1.0 / vertex.bulge() - vertex.bulge());
        const double across = part * toCentre - chord * chord * chord / 12.0;
        sum.area += part;
        sum.moment = sum.moment + CKexVector3d(a.x + b.x, a.y + b.y) * (0.5 * part) +
                     d.perpXY() * (across / chord);
    }
    return sum;
}

CKexVertexArray vl_reversed(const CKexVertexArray& list)
{
    CKexVertexArray turned;
    for (int i = list.length() - 1; i >= 0; --i) {
        const CKexVertex& vertex = list[i];
        turned.append(CKexVertex(vertex.endPoint(), vertex.startPoint(), 0.0 - vertex.bulge()));
    }
    return turned;
}

int vl_inside(const CKexVertexArray& list, const CKexPoint3d& p, double tolLength)
{
    bool inside = false;
    for (const CKexVertex& vertex : list) {
        const CKexPoint3d foot = vx_point(vertex, vx_nearest(vertex, p));
        if ((foot - p).lengthXY() <= tolLength) return 0;
        const CKexVector3d d = vertex.endPoint() - vertex.startPoint();
        const CKexVector3d q = p - vertex.startPoint();
        // A point on a level chord counts as above it, as do the ends of the segments beside it.
        const double side = d.x * q.y - d.y * q.x;
        const bool right = side < 0.0 || (side == 0.0 && (d.y > 0.0 || (d.y == 0.0 && d.x < 0.0)));
        const bool upward = q.y >= 0.0 && q.y < d.y, downward = q.y < 0.0 && q.y >= d.y;
        if ((upward && !right) || (downward && right)) inside = !inside;
        if (vertex.isStraight()) continue;
        const bool inDisc = (p - vertex.center()).lengthXY() < vertex.radius();
        if (inDisc && right == (vertex.bulge() > 0.0)) inside = !inside;
    }
    return inside ? 1 : -1;
}

} // namespace KEX
