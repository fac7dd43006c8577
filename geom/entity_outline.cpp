// SPDX-License-Identifier: LicenseRef-ORVALD
// Reads entities through their groups, as the host gives them to every application.
#include "entity_outline.h"

#include "curve_arcs.h"
#include "hostapi/entity.h"
#include "kex/resbuf_chain.h"
#include "kex/text.h"

#include <algorithm>
#include <cmath>

namespace KEX {
namespace {

/// The groups of an entity.
class Groups
{
public:
    explicit Groups(const CAdsName& entity) : chain_(acdbEntGet(entity.asName())) {}

    const resbuf* first() const { return chain_.get(); }
    const resbuf* find(int code) const
    {
        for (const resbuf* node = first(); node != nullptr; node = node->rbnext) {
            if (node->restype == code) return node;
        }
        return nullptr;
    }
    TextView type() const
    {
        const resbuf* node = find(0);
        return node == nullptr ? TextView() : TextView(node->resval.rstring);
    }
    double real(int code, double none = 0.0) const
    {
        const resbuf* node = find(code);
        return node == nullptr ? none : node->resval.rreal;
    }
    int flags(int code) const
    {
        const resbuf* node = find(code);
        return node == nullptr ? 0 : node->resval.rint;
    }
    CKexPoint3d point(int code) const
    {
        const resbuf* node = find(code);
        return node == nullptr ? CKexPoint3d() : CKexPoint3d(node->resval.rpoint);
    }

private:
    CSmartResbuf chain_;
};

/// Where the coordinates of a plane entity are given back.
class Plane
{
public:
    explicit Plane(const Groups& groups)
    {
        const resbuf* node = groups.find(210);
        if (node == nullptr) return;
        const double* n = node->resval.rpoint;
        normal_ = CKexVector3d(n[0], n[1], n[2]).normal();
        // A normal that is not Z or -Z to the last bit but means it.
        constexpr double kUpright = 1e-9;
        if (std::hypot(normal_.x, normal_.y) < kUpright) {
            flipped_ = normal_.z < 0.0;
        } else {
            tilted_ = true;
        }
    }
    /// A point of the entity's system. For -Z the arbitrary axis rule makes X the world's -X.
    /// Taken from 0, so that a zero stays a positive one.
    CKexPoint3d fromEntity(const CKexPoint3d& p) const
    {
        return flipped_ ? CKexPoint3d(0.0 - p.x, p.y, 0.0 - p.z) : p;
    }
    double bulge(double value) const { return flipped_ ? 0.0 - value : value; }
    /// A point of the world, for entities that are stored so.
    CKexPoint3d fromWorld(const CKexPoint3d& p) const
    {
        if (!tilted_) return p;
        // Arbitrary axis: X from world Y, or world Z when the normal is not close to it.
        constexpr double kClose = 1.0 / 64.0;
        const bool close = std::abs(normal_.x) < kClose && std::abs(normal_.y) < kClose;
        const CKexVector3d base = close ? CKexVector3d(0.0, 1.0) : CKexVector3d(0.0, 0.0, 1.0);
        const CKexVector3d x = base.cross(normal_).normal();
        const CKexVector3d v = p.asVector();
        return {x.dot(v), normal_.cross(x).dot(v), normal_.dot(v)};
    }

private:
    CKexVector3d normal_{0.0, 0.0, 1.0};
    bool flipped_ = false, tilted_ = false;
};

struct PathPoint
{
    CKexPoint3d at;
    double bulge = 0.0; // of the segment that starts here
};

/// Segments through the points; points that coincide make none.
CKexVertexArray pathOf(const std::vector<PathPoint>& points, bool closed, const Plane& plane)
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

CKexVertexArray lineOf(const Groups& groups)
{
    return {CKexVertex(groups.point(10), groups.point(11))};
}

CKexVertexArray circleOf(const Groups& groups)
{
    const Plane plane(groups);
    const CKexPoint3d centre = groups.point(10);
    const CKexVector3d radius(groups.real(40), 0.0);
    const CKexPoint3d east = plane.fromEntity(centre + radius);
    const CKexPoint3d west = plane.fromEntity(centre - radius);
    const double half = plane.bulge(1.0);
    return {CKexVertex(east, west, half), CKexVertex(west, east, half)};
}

CKexVertexArray arcOf(const Groups& groups)
{
    const Plane plane(groups);
    const CKexVertex arc(groups.point(10), groups.real(40), groups.real(50), groups.real(51));
    return {CKexVertex(plane.fromEntity(arc.startPoint()), plane.fromEntity(arc.endPoint()),
                       plane.bulge(arc.bulge()))};
}

CKexVertexArray lightPolylineOf(const Groups& groups)
{
    const double elevation = groups.real(38);
    std::vector<PathPoint> points;
    for (const resbuf* node = groups.first(); node != nullptr; node = node->rbnext) {
        const double* at = node->resval.rpoint;
        if (node->restype == 10) points.push_back({CKexPoint3d(at[0], at[1], elevation)});
        if (node->restype == 42 && !points.empty()) points.back().bulge = node->resval.rreal;
    }
    return pathOf(points, (groups.flags(70) & 1) != 0, Plane(groups));
}

std::optional<CKexVertexArray> polylineOf(const Groups& groups, const CAdsName& entity)
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
        const Groups vertex(part);
        if (vertex.type() != KT("VERTEX")) break;
        if ((vertex.flags(70) & kSplineFrame) != 0) continue;
        CKexPoint3d at = vertex.point(10);
        if (!spatial) at.z = elevation;
        points.push_back({at, spatial ? 0.0 : vertex.real(42)});
    }
    return pathOf(points, (flags & kClosed) != 0, Plane(groups));
}

CKexVertexArray facetOf(const Groups& groups)
{
    // Solids and traces go over their corners crosswise, faces go round.
    const bool face = groups.type() == KT("3DFACE");
    std::vector<PathPoint> points;
    for (const int code : {10, 11, face ? 12 : 13, face ? 13 : 12}) {
        points.push_back({groups.point(code)});
    }
    return pathOf(points, true, face ? Plane(Groups(CAdsName())) : Plane(groups));
}

CKexVertexArray ellipseOf(const Groups& groups, double dif)
{
    const Plane plane(groups);
    const CKexPoint3d centre = groups.point(10);
    const CKexVector3d major = groups.point(11).asVector();
    const resbuf* const node = groups.find(210);
    const CKexVector3d normal = node == nullptr
                                    ? CKexVector3d(0.0, 0.0, 1.0)
                                    : CKexPoint3d(node->resval.rpoint).asVector().normal();
    const CKexVector3d minor = normal.cross(major) * groups.real(40, 1.0);
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

/// A rational spline by its control points (de Boor's algorithm).
class Spline
{
public:
    explicit Spline(const Groups& groups) : degree_(groups.flags(71))
    {
        for (const resbuf* node = groups.first(); node != nullptr; node = node->rbnext) {
            if (node->restype == 10) controls_.emplace_back(node->resval.rpoint);
            if (node->restype == 40) knots_.push_back(node->resval.rreal);
            if (node->restype == 41) weights_.push_back(node->resval.rreal);
        }
        weights_.resize(controls_.size(), 1.0);
    }
    bool isGood() const
    {
        constexpr int kHighest = 25;
        return degree_ >= 1 && degree_ <= kHighest && controls_.size() > degree() &&
               knots_.size() == controls_.size() + degree() + 1 && std::ranges::is_sorted(knots_) &&
               from() < to();
    }
    bool isFlat() const
    {
        return std::ranges::all_of(controls_,
                                   [&](const CKexPoint3d& p) { return p.z == controls_[0].z; });
    }
    double from() const { return knots_[degree()]; }
    double to() const { return knots_[controls_.size()]; }
    std::vector<double> breaks() const
    {
        std::vector<double> inner;
        for (const double knot : knots_) {
            if (knot > from() && knot < to() && (inner.empty() || knot > inner.back())) {
                inner.push_back(knot);
            }
        }
        return inner;
    }
    CKexPoint3d at(double t) const
    {
        const std::size_t p = degree();
        const auto above =
            std::upper_bound(knots_.begin() + static_cast<std::ptrdiff_t>(p),
                             knots_.begin() + static_cast<std::ptrdiff_t>(controls_.size()), t);
        const auto span = static_cast<std::size_t>(above - knots_.begin()) - 1;
        std::vector<CKexVector3d> points(p + 1);
        std::vector<double> weights(p + 1);
        for (std::size_t i = 0; i <= p; ++i) {
            weights[i] = weights_[span - p + i];
            points[i] = controls_[span - p + i].asVector() * weights[i];
        }
        for (std::size_t level = 1; level <= p; ++level) {
            for (std::size_t i = p; i >= level; --i) {
                const double low = knots_[span - p + i], high = knots_[span + 1 + i - level];
                const double part = high == low ? 0.0 : (t - low) / (high - low);
                points[i] = points[i - 1] * (1.0 - part) + points[i] * part;
                weights[i] = weights[i - 1] * (1.0 - part) + weights[i] * part;
            }
        }
        const CKexVector3d v = points[p] * (1.0 / weights[p]);
        return {v.x, v.y, v.z};
    }

private:
    std::size_t degree() const { return static_cast<std::size_t>(degree_); }
    int degree_;
    std::vector<CKexPoint3d> controls_;
    std::vector<double> knots_, weights_;
};

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

std::optional<CKexVertexArray> splineOf(const Groups& groups, double dif)
{
    const Spline spline(groups);
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

std::optional<CKexVertexArray> outlineOf(const Groups& groups, const CAdsName& entity, double dif)
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
    const Groups groups(entity);
    std::optional<CKexVertexArray> outline = outlineOf(groups, entity, dif);
    if (outline && outline->isEmpty()) return std::nullopt;
    return outline;
}

} // namespace KEX
