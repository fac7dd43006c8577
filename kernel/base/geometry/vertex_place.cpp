// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/vertex_place.h"

#include <algorithm>
#include <limits>

namespace KEX {
namespace {

/// v turned by an angle in XY, at height 0.
CKexVector3d turned(const CKexVector3d& v, double angle)
{
    const double c = std::cos(angle), s = std::sin(angle);
    return {v.x * c - v.y * s, v.x * s + v.y * c};
}

CKexVector3d chordXY(const CKexVertex& vertex)
{
    const CKexVector3d d = vertex.endPoint() - vertex.startPoint();
    return {d.x, d.y};
}

/// Shares nearer to an end than this are that end, when the end of one segment is told from the
/// start of the next: more than the rounding of angles.
constexpr double kJoint = 1e-9;

/// Share of the foot of p on an arc's circle, the nearest to 1/2.
double shareOnCircle(const CKexVertex& vertex, const CKexPoint3d& p)
{
    const CKexVector3d d = chordXY(vertex);
    const double chord = d.length();
    const CKexVector3d along = d.normal();
    // From the middle of the chord: along it, and to the side of the centre of a flat arc.
    const CKexVector3d q = p - (vertex.startPoint() + d * 0.5);
    const double bulge = std::abs(vertex.bulge());
    const double x = q.dot(along);
    const double y = q.dot(along.perpXY()) * (vertex.bulge() < 0.0 ? -1.0 : 1.0);
    const double centre = 0.25 * chord * (1.0 / bulge - bulge);
    return 0.5 + std::atan2(x, centre - y) / std::abs(vertex.sweep());
}

} // namespace

CKexPoint3d vx_point(const CKexVertex& vertex, double share)
{
    const CKexPoint3d& start = vertex.startPoint();
    if (vertex.isStraight()) return start + (vertex.endPoint() - start) * share;
    if (share == 1.0) return {vertex.endPoint().x, vertex.endPoint().y, start.z};
    // The chord to the point: r·2·sin(φ/2) long, turned by φ/2 from the tangent at the start.
    const double half = 0.5 * vertex.sweep(), part = half * share;
    return start + turned(chordXY(vertex), part - half) * (std::sin(part) / std::sin(half));
}

CKexVector3d vx_tangent(const CKexVertex& vertex, double share)
{
    if (vertex.isStraight()) return (vertex.endPoint() - vertex.startPoint()).normal();
    return turned(chordXY(vertex).normal(), vertex.sweep() * (share - 0.5));
}

double vx_nearest(const CKexVertex& vertex, const CKexPoint3d& p, bool extended)
{
    const CKexPoint3d &start = vertex.startPoint(), &end = vertex.endPoint();
    if (vertex.isStraight()) {
        const CKexVector3d d = end - start;
        const double square = d.dot(d);
        if (square == 0.0) return 0.0;
        const double share = d.dot(p - start) / square;
        return extended ? share : std::clamp(share, 0.0, 1.0);
    }
    if (chordXY(vertex).length() == 0.0) return 0.0;
    const double share = shareOnCircle(vertex, p);
    if (extended || (share >= 0.0 && share <= 1.0)) return share;
    const CKexVector3d toStart = p - start, toEnd = p - end;
    return toStart.lengthXY() <= toEnd.lengthXY() ? 0.0 : 1.0;
}

Box vx_box(const CKexVertex& vertex, const CKexMatrix3d& map)
{
    const CKexPoint3d start = map * vertex.startPoint();
    Box box{start, start};
    box.add(map * vertex.endPoint());
    if (vertex.isStraight()) return box;
    // Under any map the circle is an ellipse, whose extreme points are known.
    const double radius = vertex.radius();
    const CKexVector3d x = map * CKexVector3d(radius, 0.0), y = map * CKexVector3d(0.0, radius);
    const CKexPoint3d centre = vertex.center();
    for (const double t : {std::atan2(y.x, x.x), std::atan2(y.y, x.y), std::atan2(y.z, x.z)}) {
        const CKexVector3d out(radius * std::cos(t), radius * std::sin(t));
        for (const CKexPoint3d& extreme : {centre + out, centre - out}) {
            const double share = shareOnCircle(vertex, extreme);
            if (share > 0.0 && share < 1.0) box.add(map * vx_point(vertex, share));
        }
    }
    return box;
}

std::optional<VertexPlace> vl_nearest(const CKexVertexArray& list, const CKexPoint3d& p,
                                      bool extended)
{
    std::optional<VertexPlace> best;
    double least = std::numeric_limits<double>::infinity();
    for (int i = 0; i < list.length(); ++i) {
        const double share = vx_nearest(list[i], p, extended);
        const double distance = vx_point(list[i], share).distanceTo(p);
        // The start of a segment takes the place of the end of the one before it.
        const bool joint = best && best->vertex == i - 1 && best->share > 1.0 - kJoint &&
                           share < kJoint && distance <= least + CKexPoint3d::tol;
        if (distance < least || joint) {
            best = VertexPlace{i, share};
            least = std::min(least, distance);
        }
    }
    return best;
}

std::optional<VertexPlace> vl_placeAt(const CKexVertexArray& list, double length, double tolLength)
{
    if (list.isEmpty() || !(length >= -tolLength)) return std::nullopt;
    double before = 0.0;
    for (int i = 0; i < list.length(); ++i) {
        const double own = list[i].bulgLen();
        if (length < before + own) return VertexPlace{i, std::max(0.0, (length - before) / own)};
        before += own;
    }
    if (length > before + tolLength) return std::nullopt;
    return VertexPlace{list.length() - 1, 1.0};
}

double vl_lengthTo(const CKexVertexArray& list, const VertexPlace& place)
{
    double before = 0.0;
    for (int i = 0; i < place.vertex; ++i) before += list[i].bulgLen();
    return before + list[place.vertex].bulgLen() * place.share;
}

CKexPoint3d vl_point(const CKexVertexArray& list, const VertexPlace& place)
{
    return vx_point(list[place.vertex], place.share);
}

} // namespace KEX
