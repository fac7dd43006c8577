// SPDX-License-Identifier: LicenseRef-ORVALD
// From entities to pieces, and what is asked of the whole curve.
#include "drawing/curve.h"

#include "drawing/views.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace orvald::drawing {
namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;
constexpr double kEndless = std::numeric_limits<double>::infinity();
// Shares of the size of the numbers that go in: what rounding may leave between a point and its
// curve, or a parameter and the end of its range.
constexpr double kOnCurve = 1e-8, kAtEnd = 1e-10, kFlat = 1e-9;

double sizeOf(Point p) { return std::max({std::fabs(p.x), std::fabs(p.y), std::fabs(p.z)}); }

using Pieces = std::vector<CurvePiece>;

Pieces linePieces(const Record& record)
{
    const LineView line = lineView(record);
    const Point along = record.kind() == Kind::line ? line.end - line.start : line.end;
    const double size = length(along);
    const Point unit = size > 0.0 ? 1.0 / size * along : Point{};
    if (record.kind() == Kind::line) return {{0.0, size, LinePiece{line.start, unit, 0.0}}};
    if (size == 0.0) return {};
    return {
        {record.kind() == Kind::ray ? 0.0 : -kEndless, kEndless, LinePiece{line.start, unit, 0.0}}};
}

Pieces arcPieces(const Record& record)
{
    const ArcView arc = arcView(record);
    if (!(arc.radius > 0.0)) return {};
    const Transform map = entityToWorld(arc.normal);
    return {{arc.start, arc.end,
             ConicPiece{map(arc.centre), arc.radius * map.x, arc.radius * map.y, arc.start}}};
}

Pieces ellipsePieces(const Record& record)
{
    const EllipseView ellipse = ellipseView(record);
    const Point u = ellipse.major;
    const Point v = ellipse.at(0.5 * std::numbers::pi) - ellipse.centre;
    if (!(length(u) > 0.0)) return {};
    return {{ellipse.start, ellipse.end,
             ConicPiece{ellipse.centre, u, v, ellipse.start, 1.0, ellipse.ratio == 1.0}}};
}

/// The segment number `index` from p to q, both in the entity's coordinates.
CurvePiece segment(std::size_t index, Point p, Point q, double bulge, const Transform& map)
{
    const auto from = static_cast<double>(index);
    const double chord = std::hypot(q.x - p.x, q.y - p.y);
    if (bulge == 0.0 || chord == 0.0)
        return {from, from + 1.0, LinePiece{map(p), map(q) - map(p), from}};
    // Centre left of the chord for bulges between 0 and 1.
    const double toCentre = (1.0 - bulge * bulge) / (4.0 * bulge);
    const Point along = q - p, middle = 0.5 * (p + q);
    const Point centre{middle.x - along.y * toCentre, middle.y + along.x * toCentre, p.z};
    const double radius = std::hypot(p.x - centre.x, p.y - centre.y);
    return {from, from + 1.0,
            ConicPiece{map(centre), radius * map.x, radius * map.y,
                       std::atan2(p.y - centre.y, p.x - centre.x), 4.0 * std::atan(bulge)}};
}

Pieces polylinePieces(const PolylineView& view)
{
    if (view.mesh) return {};
    const Transform map = view.spatial ? Transform{} : entityToWorld(view.normal);
    const auto at = [&](std::size_t i) {
        const Point p = view.vertices[i % view.vertices.size()].at;
        return view.spatial ? p : Point{p.x, p.y, view.elevation};
    };
    const std::size_t vertices = view.vertices.size();
    const std::size_t count = vertices < 2 ? 0 : view.closed ? vertices : vertices - 1;
    Pieces pieces;
    for (std::size_t i = 0; i < count; ++i)
        pieces.push_back(segment(i, at(i), at(i + 1), view.vertices[i].bulge, map));
    return pieces;
}

Pieces splinePieces(const SplineView& spline)
{
    Pieces pieces;
    for (BezierPiece& bezier : bezierPieces(spline)) {
        const double from = bezier.from, to = bezier.to;
        pieces.push_back({from, to, std::move(bezier)});
    }
    return pieces;
}

Pieces leaderPieces(const Record& record)
{
    std::vector<Point> bends;
    for (const Tag tag : record.tags)
        if (tag.code() == 10) bends.push_back(tag.point());
    if (constexpr int kSmooth = 1; record.tags.integer(72) == kSmooth) {
        SplineView spline;
        spline.fits = std::move(bends);
        return splinePieces(spline);
    }
    PolylineView view;
    view.spatial = true;
    for (const Point bend : bends) view.vertices.push_back({bend});
    return polylinePieces(view);
}

Pieces piecesOf(const Drawing& drawing, Index entity)
{
    const Record& record = drawing.at(entity);
    switch (record.kind()) {
    case Kind::line:
    case Kind::ray:
    case Kind::xline: return linePieces(record);
    case Kind::arc:
    case Kind::circle: return arcPieces(record);
    case Kind::ellipse: return ellipsePieces(record);
    case Kind::lwpolyline:
    case Kind::polyline: return polylinePieces(polylineView(drawing, entity));
    case Kind::leader: return leaderPieces(record);
    case Kind::spline: return splinePieces(splineView(record));
    default: return {};
    }
}

/// Points that lie in a plane when, and only when, the piece does.
void addFrame(const CurvePiece& piece, std::vector<Point>& frame)
{
    if (const auto* line = std::get_if<LinePiece>(&piece.form)) {
        frame.push_back(line->start);
        frame.push_back(line->start + line->along);
    } else if (const auto* conic = std::get_if<ConicPiece>(&piece.form)) {
        frame.insert(frame.end(),
                     {conic->centre, conic->centre + conic->u, conic->centre + conic->v});
    } else {
        for (const WeightedPoint& point : std::get<BezierPiece>(piece.form).points)
            frame.push_back(point.weight != 0.0 ? 1.0 / point.weight * point.at : point.at);
    }
}

} // namespace

std::optional<Curve> Curve::of(const Drawing& drawing, Index entity)
{
    Curve curve;
    curve.pieces_ = piecesOf(drawing, entity);
    if (curve.pieces_.empty()) return std::nullopt;
    const auto* conic = std::get_if<ConicPiece>(&curve.pieces_.front().form);
    const Kind kind = drawing.at(entity).kind();
    if (kind == Kind::spline) curve.periodic_ = splineView(drawing.at(entity)).periodic;
    else if (curve.pieces_.size() == 1 && conic != nullptr)
        curve.periodic_ = kind != Kind::lwpolyline && kind != Kind::polyline &&
                          curve.end() - curve.start() >= kTurn - kAtEnd;
    return curve;
}

bool Curve::isClosed() const
{
    if (std::isinf(start()) || std::isinf(end())) return false;
    const Point a = pieces_.front().at(start()).at, b = pieces_.back().at(end()).at;
    return length(b - a) <= kOnCurve * std::max(1.0, sizeOf(a)) && end() > start();
}

const CurvePiece* Curve::pieceOf(double& parameter) const
{
    const double span =
        std::isinf(end()) ? 1.0 : std::max({1.0, std::fabs(start()), std::fabs(end())});
    if (!(parameter >= start() - kAtEnd * span && parameter <= end() + kAtEnd * span))
        return nullptr;
    parameter = std::clamp(parameter, start(), end());
    // The last piece that begins at or before it.
    const auto behind = std::ranges::upper_bound(pieces_, parameter, {}, &CurvePiece::from);
    return behind == pieces_.begin() ? &pieces_.front() : &*std::prev(behind);
}

std::optional<Jet> Curve::at(double parameter) const
{
    if (std::isinf(parameter)) return std::nullopt;
    const CurvePiece* piece = pieceOf(parameter);
    return piece == nullptr ? std::nullopt : std::optional(piece->at(parameter));
}

std::optional<double> Curve::lengthTo(double parameter) const
{
    if (std::isinf(parameter) || std::isinf(start())) return std::nullopt;
    const CurvePiece* last = pieceOf(parameter);
    if (last == nullptr) return std::nullopt;
    double sum = 0.0;
    for (const CurvePiece* piece = pieces_.data(); piece != last; ++piece)
        sum += piece->length(piece->from, piece->to);
    return sum + last->length(last->from, parameter);
}

std::optional<double> Curve::parameterAtLength(double wanted) const
{
    if (std::isinf(start()) || !std::isfinite(wanted)) return std::nullopt;
    double sum = 0.0;
    for (const CurvePiece& piece : pieces_) {
        const double here = piece.length(piece.from, piece.to);
        const double slack = kAtEnd * std::max(1.0, sum + here);
        if (wanted < sum - slack)
            return std::nullopt; // before the start; no other piece lies there
        const bool last = &piece == &pieces_.back();
        if (wanted < sum + here || (last && wanted <= sum + here + slack))
            return piece.parameterAt(std::clamp(wanted - sum, 0.0, here));
        sum += here;
    }
    return std::nullopt;
}

Curve::Place Curve::nearestPlace(Point place, bool extended, const Point* sight) const
{
    const auto distance = [&](Point p) {
        const Point d = p - place;
        return sight == nullptr ? length(d) : length(d - dot(d, *sight) * *sight);
    };
    const bool open = extended && !isClosed();
    Place best;
    double least = kEndless;
    for (const CurvePiece& piece : pieces_) {
        double low = piece.from, high = piece.to;
        const bool first = open && &piece == &pieces_.front();
        const bool last = open && &piece == &pieces_.back();
        if (std::holds_alternative<LinePiece>(piece.form)) {
            if (first) low = -kEndless;
            if (last) high = kEndless;
        } else if (const auto* conic = std::get_if<ConicPiece>(&piece.form)) {
            if (first || last) high = low + kTurn / std::fabs(conic->rate);
        }
        const double t = piece.nearest(place, low, high, sight);
        const Point at = piece.at(t).at;
        if (const double found = distance(at); found < least) {
            least = found;
            best = {t, at};
        }
    }
    return best;
}

Point Curve::nearest(Point place, bool extended, const Point* normal) const
{
    const double size = normal == nullptr ? 0.0 : length(*normal);
    if (!(size > 0.0)) return nearestPlace(place, extended, nullptr).at;
    const Point sight = 1.0 / size * *normal;
    return nearestPlace(place, extended, &sight).at;
}

std::optional<double> Curve::parameterOf(Point place) const
{
    const Place found = nearestPlace(place, false, nullptr);
    const bool on = length(found.at - place) <= kOnCurve * std::max(1.0, sizeOf(place));
    return on ? std::optional(found.parameter) : std::nullopt;
}

std::optional<Curve::Plane> Curve::plane() const
{
    std::vector<Point> frame;
    for (const CurvePiece& piece : pieces_) addFrame(piece, frame);
    const Point origin = frame.front();
    Point reach; // to the point farthest from the first one
    for (const Point p : frame)
        if (length(p - origin) > length(reach)) reach = p - origin;
    Point normal;
    for (const Point p : frame) {
        const Point candidate = cross(reach, p - origin);
        if (length(candidate) > length(normal)) normal = candidate;
    }
    const double size = length(reach), area = length(normal);
    if (area <= kFlat * size * size) return Plane{};
    normal = 1.0 / area * normal;
    for (const Point p : frame)
        if (std::fabs(dot(p - origin, normal)) > kFlat * std::max(size, sizeOf(origin)))
            return std::nullopt;
    return Plane{normal};
}

bool Curve::isPlanar() const { return plane().has_value(); }

std::optional<double> Curve::area() const
{
    if (std::isinf(start()) || std::isinf(end())) return std::nullopt;
    const std::optional<Plane> plane = this->plane();
    if (!plane) return std::nullopt;
    // Twice the area that the ray from the first point sweeps.
    const Point origin = pieces_.front().at(start()).at;
    double sum = 0.0;
    for (const CurvePiece& piece : pieces_) {
        sum += piece.sweep(origin, plane->normal);
    }
    return 0.5 * std::fabs(sum);
}

} // namespace orvald::drawing
