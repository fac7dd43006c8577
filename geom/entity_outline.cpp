// SPDX-License-Identifier: LicenseRef-ORVALD
// Reads entities through their groups, as the host gives them to every application.
#include "geom/entity_outline.h"

#include "curve_arcs.h"
#include "entity_groups.h"
#include "hostapi/entity.h"
#include "kex/text.h"
#include "spline.h"

#include <algorithm>
#include <cmath>

namespace KEX {
namespace {

EntityPlane planeOf(const EntityGroups& groups)
{
    return entityPlane(groups).value_or(EntityPlane());
}

struct PathPoint
{
    CKexPoint3d at;
    double bulge = 0.0; // of the segment that starts here
};

/// Segments through the points; points that coincide make none.
CKexVertexArray pathOf(const std::vector<PathPoint>& points, bool closed, const EntityPlane& plane)
{
    CKexVertexArray list;
    const std::size_t count = points.size();
    for (std::size_t i = 0; i + (closed ? 0 : 1) < count; ++i) {
        const CKexPoint3d from = plane.fromEntity(points[i].at);
        const CKexPoint3d to = plane.fromEntity(points[(i + 1) % count].at);
        if (!(from == to)) list.append(CKexVertex(from, to, plane.bulge(points[i].bulge)));
    }
    return list;
}

CKexVertexArray lineOf(const EntityGroups& groups)
{
    return {CKexVertex(groups.point(10), groups.point(11))};
}

CKexVertexArray circleOf(const EntityGroups& groups)
{
    const EntityPlane plane = planeOf(groups);
    const CKexPoint3d centre = groups.point(10);
    const CKexVector3d radius(groups.real(40), 0.0);
    const CKexPoint3d east = plane.fromEntity(centre + radius);
    const CKexPoint3d west = plane.fromEntity(centre - radius);
    const double half = plane.bulge(1.0);
    return {CKexVertex(east, west, half), CKexVertex(west, east, half)};
}

CKexVertexArray arcOf(const EntityGroups& groups)
{
    const EntityPlane plane = planeOf(groups);
    const CKexVertex arc(groups.point(10), groups.real(40), groups.real(50), groups.real(51));
    return {CKexVertex(plane.fromEntity(arc.startPoint()), plane.fromEntity(arc.endPoint()),
                       plane.bulge(arc.bulge()))};
}

CKexVertexArray lightPolylineOf(const EntityGroups& groups)
{
    const double elevation = groups.real(38);
    std::vector<PathPoint> points;
    for (const resbuf* node = groups.first(); node != nullptr; node = node->rbnext) {
        const double* at = node->resval.rpoint;
        if (node->restype == 10) points.push_back({CKexPoint3d(at[0], at[1], elevation)});
        if (node->restype == 42 && !points.empty()) points.back().bulge = node->resval.rreal;
    }
    return pathOf(points, (groups.flags(70) & 1) != 0, planeOf(groups));
}

std::optional<CKexVertexArray> polylineOf(const EntityGroups& groups, const CAdsName& entity)
{
    constexpr int kClosed = 1, kSpatial = 8, kMeshes = 16 | 64, kSplineFrame = 16;
    const int flags = groups.flags(70);
    if ((flags & kMeshes) != 0) return std::nullopt;
    const bool spatial = (flags & kSpatial) != 0;
    const double elevation = groups.point(10).z;
    std::vector<PathPoint> points;
    CAdsName part = entity;
    ads_name next;
    while (acdbEntNext(part.asName(), next) == RTNORM) {
        part = CAdsName(next);
        const EntityGroups vertex(part);
        if (vertex.type() != KT("VERTEX")) break;
        if ((vertex.flags(70) & kSplineFrame) != 0) continue;
        CKexPoint3d at = vertex.point(10);
        if (!spatial) at.z = elevation;
        points.push_back({at, spatial ? 0.0 : vertex.real(42)});
    }
    return pathOf(points, (flags & kClosed) != 0, planeOf(groups));
}

CKexVertexArray facetOf(const EntityGroups& groups)
{
    // Solids and traces go over their corners crosswise, faces go round.
    const bool face = groups.type() == KT("3DFACE");
    std::vector<PathPoint> points;
    for (const int code : {10, 11, face ? 12 : 13, face ? 13 : 12}) {
        points.push_back({groups.point(code)});
    }
    return pathOf(points, true, face ? EntityPlane() : planeOf(groups));
}

CKexVertexArray ellipseOf(const EntityGroups& groups, double dif)
{
    const EntityPlane plane = planeOf(groups);
    const CKexPoint3d centre = groups.point(10);
    const CKexVector3d major = groups.point(11).asVector();
    const CKexVector3d minor = groups.normal().cross(major) * groups.real(40, 1.0);
    const double from = groups.real(41);
    double to = groups.real(42, kTwoPi);
    if (to <= from) to += kTwoPi;
    // Curvature turns round at the ends of the axes.
    std::vector<double> breaks;
    for (double quarter = std::floor(from / (kPi / 2.0)) * (kPi / 2.0); quarter < to;
         quarter += kPi / 2.0) {
        if (quarter > from + kAngleNoise && quarter < to - kAngleNoise) breaks.push_back(quarter);
    }
    CKexVertexArray list;
    arcsAlong(
        [&](double t) {
            return plane.fromWorld(centre + major * std::cos(t) + minor * std::sin(t));
        },
        from, to, breaks, dif, list);
    return list;
}

/// Straight pieces along a curve in space, each chord within `dif` at its middle.
void chordsAlong(const Spline& spline, double t0, double t1, double dif, int depth,
                 CKexVertexArray& out)
{
    constexpr int kDeepest = 16;
    const CKexPoint3d start = spline.at(t0), end = spline.at(t1);
    const double middle = 0.5 * (t0 + t1);
    const CKexVector3d off = spline.at(middle) - (start + (end - start) * 0.5);
    if (off.length() <= dif || depth == kDeepest) {
        out.append(CKexVertex(start, end));
        return;
    }
    chordsAlong(spline, t0, middle, dif, depth + 1, out);
    chordsAlong(spline, middle, t1, dif, depth + 1, out);
}

Spline splineOfGroups(const EntityGroups& groups)
{
    Spline spline(groups.flags(71));
    for (const resbuf* node = groups.first(); node != nullptr; node = node->rbnext) {
        if (node->restype == 10) spline.addControl(CKexPoint3d(node->resval.rpoint));
        if (node->restype == 40) spline.addKnot(node->resval.rreal);
        if (node->restype == 41) spline.addWeight(node->resval.rreal);
    }
    return spline;
}

std::optional<CKexVertexArray> splineOf(const EntityGroups& groups, double dif)
{
    const Spline spline = splineOfGroups(groups);
    if (!spline.isGood()) return std::nullopt;
    CKexVertexArray list;
    if (spline.isFlat()) {
        arcsAlong([&](double t) { return spline.at(t); }, spline.from(), spline.to(),
                  spline.breaks(), dif, list);
        return list;
    }
    double from = spline.from();
    std::vector<double> stops = spline.breaks();
    stops.push_back(spline.to());
    for (const double stop : stops) {
        chordsAlong(spline, from, stop, dif, 0, list);
        from = stop;
    }
    return list;
}

std::optional<CKexVertexArray> outlineOf(const EntityGroups& groups, const CAdsName& entity,
                                         double dif)
{
    const TextView type = groups.type();
    if (type == KT("LINE")) return lineOf(groups);
    if (type == KT("LWPOLYLINE")) return lightPolylineOf(groups);
    if (type == KT("POLYLINE")) return polylineOf(groups, entity);
    if (type == KT("ARC")) return arcOf(groups);
    if (type == KT("CIRCLE")) return circleOf(groups);
    if (type == KT("ELLIPSE")) return ellipseOf(groups, dif);
    if (type == KT("SPLINE")) return splineOf(groups, dif);
    if (type == KT("SOLID") || type == KT("TRACE") || type == KT("3DFACE")) return facetOf(groups);
    return std::nullopt;
}

} // namespace

std::optional<CKexVertexArray> entityOutline(const CAdsName& entity, double dif)
{
    const EntityGroups groups(entity);
    std::optional<CKexVertexArray> outline = outlineOf(groups, entity, dif);
    if (outline && outline->isEmpty()) return std::nullopt;
    return outline;
}

} // namespace KEX
