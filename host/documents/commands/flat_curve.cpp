// SPDX-License-Identifier: LicenseRef-ORVALD
#include "commands/flat_curve.h"

#include "commands/making.h"
#include "coordinate_systems.h"
#include "document.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace orvald {

using drawing::Index;
using drawing::Kind;
using drawing::Point;
using drawing::PolylineVertex;

namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;
/// Parts of a segment nearer to each other than this count as one place.
constexpr double kSamePart = 1e-9;

double flatLength(Point v) { return std::hypot(v.x, v.y); }
double flatCross(Point a, Point b) { return a.x * b.y - a.y * b.x; }
double flatDot(Point a, Point b) { return a.x * b.x + a.y * b.y; }
double bulgeOf(double sweep) { return std::tan(0.25 * sweep); }

/// Places where a straight line through `a` along `d` meets a circle.
std::vector<Point> lineAndCircle(Point a, Point d, Point centre, double radius)
{
    const double square = flatDot(d, d);
    if (!(square > 0.0)) return {};
    const double foot = flatDot(centre - a, d) / square;
    const Point near = a + foot * d;
    const double off = flatLength(centre - near);
    if (off > radius * (1.0 + kSamePart)) return {};
    const double half = std::sqrt(std::max(0.0, radius * radius - off * off) / square);
    if (half == 0.0) return {near};
    return {near - half * d, near + half * d};
}

std::vector<Point> circleAndCircle(Point c, double r, Point k, double s)
{
    const Point between = k - c;
    const double distance = flatLength(between);
    if (distance <= kSamePart * (r + s) || distance > (r + s) * (1.0 + kSamePart) ||
        distance < std::abs(r - s) * (1.0 - kSamePart)) {
        return {};
    }
    const double along = (distance * distance + r * r - s * s) / (2.0 * distance);
    const double aside = std::sqrt(std::max(0.0, r * r - along * along));
    const Point unit = 1.0 / distance * between;
    const Point foot = c + along * unit, side{-unit.y * aside, unit.x * aside, 0.0};
    if (aside == 0.0) return {foot};
    return {foot + side, foot - side};
}

} // namespace

std::vector<Point> carriersMeet(const Segment& a, const Segment& b)
{
    if (a.isRound() && b.isRound()) {
        return circleAndCircle(a.centre(), a.radius(), b.centre(), b.radius());
    }
    if (a.isRound()) return lineAndCircle(b.a, b.b - b.a, a.centre(), a.radius());
    if (b.isRound()) return lineAndCircle(a.a, a.b - a.a, b.centre(), b.radius());
    const Point u = a.b - a.a, v = b.b - b.a;
    const double area = flatCross(u, v);
    constexpr double kParallel = 1e-12; // sine of the angle between them
    if (std::abs(area) <= kParallel * flatLength(u) * flatLength(v)) return {};
    return {a.a + flatCross(b.a - a.a, v) / area * u};
}

Point Segment::centre() const
{
    // Left of the chord for bulges between 0 and 1.
    const double toCentre = (1.0 - bulge * bulge) / (4.0 * bulge);
    const Point along = b - a;
    return {0.5 * (a.x + b.x) - along.y * toCentre, 0.5 * (a.y + b.y) + along.x * toCentre, a.z};
}
double Segment::radius() const
{
    return flatLength(b - a) * (1.0 + bulge * bulge) / (4.0 * std::abs(bulge));
}
double Segment::startAngle() const
{
    const Point c = centre();
    return std::atan2(a.y - c.y, a.x - c.x);
}
double Segment::sweep() const { return 4.0 * std::atan(bulge); }

double Segment::length() const
{
    return isRound() ? radius() * std::abs(sweep()) : flatLength(b - a);
}

Point Segment::at(double part) const
{
    if (part == 0.0) return a;
    if (part == 1.0) return b;
    if (!isRound()) return a + part * (b - a);
    const double angle = startAngle() + part * sweep(), r = radius();
    const Point c = centre();
    return {c.x + r * std::cos(angle), c.y + r * std::sin(angle), a.z};
}

double Segment::direction(double part) const
{
    if (!isRound()) return std::atan2(b.y - a.y, b.x - a.x);
    const double quarter = bulge > 0.0 ? 0.25 * kTurn : -0.25 * kTurn;
    return startAngle() + part * sweep() + quarter;
}

double Segment::partOf(Point place) const
{
    if (!isRound()) {
        const Point along = b - a;
        const double square = flatDot(along, along);
        return square > 0.0 ? flatDot(place - a, along) / square : 0.0;
    }
    const Point c = centre();
    const double turned = std::atan2(place.y - c.y, place.x - c.x) - startAngle();
    const double whole = std::abs(sweep());
    double along = std::fmod(bulge > 0.0 ? turned : -turned, kTurn);
    if (along < 0.0) along += kTurn;
    // What lies behind the end belongs to the nearer one of both.
    if (along > whole && along - whole > kTurn - along) along -= kTurn;
    return along / whole;
}

std::vector<double> Segment::meets(const Segment& other, bool extended) const
{
    std::vector<double> parts;
    for (const Point place : carriersMeet(*this, other)) {
        double part = partOf(place);
        if (extended && isRound() && part < -kSamePart) part += kTurn / std::abs(sweep());
        const double there = other.partOf(place);
        const bool here = part >= -kSamePart && (extended || part <= 1.0 + kSamePart);
        if (here && there >= -kSamePart && there <= 1.0 + kSamePart) {
            parts.push_back(extended ? std::max(part, 0.0) : std::clamp(part, 0.0, 1.0));
        }
    }
    return parts;
}

Segment FlatCurve::segment(std::size_t index) const
{
    const PolylineVertex& from = vertices[index];
    return {from.at, vertices[(index + 1) % vertices.size()].at, from.bulge};
}

namespace {

/// Segment and part of a position.
std::pair<std::size_t, double> split(const FlatCurve& curve, double position)
{
    const double held = std::clamp(position, 0.0, curve.end());
    const auto index = std::min(static_cast<std::size_t>(held), curve.segmentCount() - 1);
    return {index, held - static_cast<double>(index)};
}

} // namespace

Point FlatCurve::at(double position) const
{
    const auto [index, part] = split(*this, position);
    return segment(index).at(part);
}

double FlatCurve::direction(double position) const
{
    const auto [index, part] = split(*this, position);
    return segment(index).direction(part);
}

double FlatCurve::nearest(Point place) const
{
    double best = 0.0, least = INFINITY;
    for (std::size_t i = 0; i < segmentCount(); ++i) {
        const Segment one = segment(i);
        const double part = std::clamp(one.partOf(place), 0.0, 1.0);
        const double distance = flatLength(one.at(part) - place);
        if (distance < least) {
            least = distance;
            best = static_cast<double>(i) + part;
        }
    }
    return best;
}

std::vector<double> FlatCurve::meets(const FlatCurve& other) const
{
    std::vector<double> positions;
    for (std::size_t i = 0; i < segmentCount(); ++i) {
        const Segment one = segment(i);
        for (std::size_t j = 0; j < other.segmentCount(); ++j)
            for (const double part : one.meets(other.segment(j)))
                positions.push_back(static_cast<double>(i) + part);
    }
    std::ranges::sort(positions);
    const auto same = [](double a, double b) { return b - a < kSamePart; };
    positions.erase(std::unique(positions.begin(), positions.end(), same), positions.end());
    return positions;
}

FlatCurve FlatCurve::part(double from, double to) const
{
    FlatCurve result;
    const auto add = [&](std::size_t index, double a, double b) {
        if (b - a < kSamePart) return;
        const Segment one = segment(index);
        const PolylineVertex& vertex = vertices[index];
        const auto width = [&](double part) {
            return vertex.startWidth + part * (vertex.endWidth - vertex.startWidth);
        };
        const double bulge = a == 0.0 && b == 1.0 ? one.bulge
                             : one.isRound()      ? bulgeOf((b - a) * one.sweep())
                                                  : 0.0;
        if (result.vertices.empty()) result.vertices.push_back({one.at(a), 0.0, 0.0, 0.0});
        PolylineVertex& start = result.vertices.back();
        start.bulge = bulge;
        start.startWidth = width(a);
        start.endWidth = width(b);
        result.vertices.push_back({one.at(b), 0.0, width(b), width(b)});
    };
    const auto stretch = [&](double a, double b) {
        const auto [first, start] = split(*this, a);
        const auto [last, stop] = split(*this, b);
        for (std::size_t i = first; i <= last; ++i)
            add(i, i == first ? start : 0.0, i == last ? stop : 1.0);
    };
    if (from < to) {
        stretch(from, to);
    } else if (closed) {
        stretch(from, end());
        stretch(0.0, to);
    }
    return result;
}

double FlatCurve::length() const
{
    double sum = 0.0;
    for (std::size_t i = 0; i < segmentCount(); ++i) sum += segment(i).length();
    return sum;
}

void FlatCurve::reverse()
{
    std::vector<PolylineVertex> turned(vertices.rbegin(), vertices.rend());
    const std::size_t count = turned.size();
    for (std::size_t i = 0; i < count; ++i) {
        // The segment behind a vertex is the one that ended in it.
        const PolylineVertex& before = vertices[(2 * count - 2 - i) % count];
        turned[i].bulge = -before.bulge;
        turned[i].startWidth = before.endWidth;
        turned[i].endWidth = before.startWidth;
    }
    vertices = std::move(turned);
}

namespace {

Point normalOf(const drawing::Record& record) { return record.tags.point(210, {0.0, 0.0, 1.0}); }

/// From the coordinates of plane entities with that normal to the user's, and back; nothing when
/// the planes are not parallel. `sign`: -1 when one is seen from behind.
struct PlaneMaps
{
    drawing::Transform toUser, toEntity;
    double sign = 1.0;
};
std::optional<PlaneMaps> mapsOf(const drawing::Drawing& drawing, Point normal)
{
    const drawing::Transform user = userToWorld(drawing), entity = drawing::entityToWorld(normal);
    constexpr double kAskew = 1e-9; // sine of the angle between the planes
    if (length(cross(user.z, entity.z)) > kAskew) return std::nullopt;
    PlaneMaps maps;
    maps.toUser = inverseRigid(user).after(entity);
    maps.toEntity = inverseRigid(maps.toUser);
    maps.sign = dot(user.z, entity.z) < 0.0 ? -1.0 : 1.0;
    return maps;
}

void setVertices(drawing::Drawing& drawing, Index polyline, const FlatCurve& curve,
                 const PlaneMaps& maps)
{
    drawing::TagList fresh, normal;
    bool inside = false;
    const drawing::TagList& old = drawing.at(polyline).tags;
    const bool even = old.has(43) && old.real(43) != 0.0;
    for (const drawing::Tag tag : old) {
        const int code = tag.code();
        if (code == 100) inside = tag.text() == "AcDbPolyline";
        if (!inside) fresh.add(tag);
        else if (code == 90) fresh.addInteger(90, static_cast<std::int64_t>(curve.vertices.size()));
        else if (code == 70) fresh.addInteger(70, (tag.integer() & ~1) | (curve.closed ? 1 : 0));
        else if (code == 210) normal.add(tag);
        else if (code != 10 && (code < 40 || code > 43) && code != 91) fresh.add(tag);
        else if (code == 43 && even) fresh.add(tag);
    }
    for (const PolylineVertex& vertex : curve.vertices) {
        fresh.addPoint(10, maps.toEntity(vertex.at), true);
        if (!even && (vertex.startWidth != 0.0 || vertex.endWidth != 0.0)) {
            fresh.addReal(40, vertex.startWidth);
            fresh.addReal(41, vertex.endWidth);
        }
        if (vertex.bulge != 0.0) fresh.addReal(42, maps.sign * vertex.bulge);
    }
    fresh.append(normal);
    drawing.edit(polyline).tags = std::move(fresh);
}

/// Angles of an arc that runs from the first to the last vertex.
struct ArcEnds
{
    double start, end;
};
ArcEnds arcEnds(const FlatCurve& curve, const PlaneMaps& maps)
{
    const Segment one = curve.segment(0);
    const Point centre = maps.toEntity(one.centre());
    const auto angle = [&](Point user) {
        const Point p = maps.toEntity(user);
        return withinTurn(std::atan2(p.y - centre.y, p.x - centre.x));
    };
    const double first = angle(curve.vertices.front().at), last = angle(curve.vertices.back().at);
    return one.bulge * maps.sign > 0.0 ? ArcEnds{first, last} : ArcEnds{last, first};
}

} // namespace

std::optional<FlatCurve> FlatCurve::of(Command& command, Index entity)
{
    const drawing::Drawing& drawing = command.drawing();
    const drawing::Record& record = drawing.at(entity);
    FlatCurve curve;
    if (record.kind() == Kind::line) {
        const UserPlane plane(drawing);
        const Point a = plane.user(record.tags.point(10)), b = plane.user(record.tags.point(11));
        constexpr double kLevel = 1e-9; // difference of heights by length
        if (std::abs(a.z - b.z) > kLevel * drawing::length(b - a)) return std::nullopt;
        curve.vertices = {{a}, {b}};
        return curve;
    }
    const std::optional<PlaneMaps> maps = mapsOf(drawing, normalOf(record));
    if (!maps) return std::nullopt;
    switch (record.kind()) {
    case Kind::arc:
    case Kind::circle: {
        const drawing::ArcView arc = drawing::arcView(record);
        if (!(arc.radius > 0.0)) return std::nullopt;
        const auto at = [&](double angle) {
            return maps->toUser({arc.centre.x + arc.radius * std::cos(angle),
                                 arc.centre.y + arc.radius * std::sin(angle), arc.centre.z});
        };
        curve.closed = record.kind() == Kind::circle;
        if (curve.closed) {
            curve.vertices = {{at(0.0), maps->sign}, {at(0.5 * kTurn), maps->sign}};
            return curve;
        }
        double sweep = std::fmod(arc.end - arc.start, kTurn);
        if (sweep <= 0.0) sweep += kTurn;
        // Two halves, so that no bulge grows without bound.
        const double half = maps->sign * bulgeOf(0.5 * sweep);
        curve.vertices = {
            {at(arc.start), half}, {at(arc.start + 0.5 * sweep), half}, {at(arc.start + sweep)}};
        return curve;
    }
    case Kind::lwpolyline:
    case Kind::polyline: {
        const drawing::PolylineView view = drawing::polylineView(drawing, entity);
        if (view.mesh || view.spatial || view.vertices.size() < 2) return std::nullopt;
        curve.closed = view.closed;
        for (PolylineVertex vertex : view.vertices) {
            vertex.at = maps->toUser({vertex.at.x, vertex.at.y, view.elevation});
            vertex.bulge *= maps->sign;
            curve.vertices.push_back(vertex);
        }
        return curve;
    }
    default: return std::nullopt;
    }
}

Index makePolylineLike(Command& command, Index entity, const FlatCurve& curve)
{
    const drawing::Record like = command.drawing().at(entity);
    const bool spatial = like.kind() == Kind::line;
    const Point normal = spatial ? UserPlane(command.drawing()).normal() : normalOf(like);
    const std::optional<PlaneMaps> maps = mapsOf(command.drawing(), normal);
    if (!maps || curve.vertices.size() < 2) return drawing::kNone;
    Groups made = newEntity(u"LWPOLYLINE", u"AcDbPolyline");
    made.like(like).integer(90, static_cast<int>(curve.vertices.size()));
    made.integer(70, (curve.closed ? 1 : 0) | (static_cast<int>(like.tags.integer(70)) & 128));
    const double elevation = maps->toEntity(curve.vertices.front().at).z;
    if (elevation != 0.0) made.real(38, elevation);
    if (like.tags.real(39) != 0.0) made.real(39, like.tags.real(39));
    for (const PolylineVertex& vertex : curve.vertices) {
        made.point(10, maps->toEntity(vertex.at));
        if (vertex.startWidth != 0.0 || vertex.endWidth != 0.0) {
            made.real(40, vertex.startWidth).real(41, vertex.endWidth);
        }
        if (vertex.bulge != 0.0) made.real(42, maps->sign * vertex.bulge);
    }
    return made.point(210, normal).make(command);
}

Index makeLike(Command& command, Index entity, const FlatCurve& curve)
{
    const drawing::Record like = command.drawing().at(entity);
    if (curve.vertices.size() < 2) return drawing::kNone;
    const UserPlane plane(command.drawing());
    if (like.kind() == Kind::line) {
        Groups line = newEntity(u"LINE", u"AcDbLine");
        line.like(like).point(10, plane.world(curve.vertices.front().at));
        line.point(11, plane.world(curve.vertices.back().at));
        if (like.tags.real(39) != 0.0) line.real(39, like.tags.real(39));
        return line.point(210, normalOf(like)).make(command);
    }
    const std::optional<PlaneMaps> maps = mapsOf(command.drawing(), normalOf(like));
    if ((like.kind() == Kind::arc || like.kind() == Kind::circle) && maps) {
        const Segment one = curve.segment(0);
        const char16_t* const kind = curve.closed ? u"CIRCLE" : u"ARC";
        Groups arc = newEntity(kind, u"AcDbCircle");
        arc.like(like).point(10, maps->toEntity(one.centre())).real(40, one.radius());
        if (like.tags.real(39) != 0.0) arc.real(39, like.tags.real(39));
        arc.point(210, normalOf(like));
        if (!curve.closed) {
            const ArcEnds ends = arcEnds(curve, *maps);
            arc.text(100, u"AcDbArc").real(50, ends.start).real(51, ends.end);
        }
        return arc.make(command);
    }
    return makePolylineLike(command, entity, curve);
}

void reshape(Command& command, Index entity, const std::vector<FlatCurve>& pieces)
{
    drawing::Drawing& drawing = command.drawing();
    bool kept = false;
    for (const FlatCurve& piece : pieces) {
        if (piece.vertices.size() < 2) continue;
        const Kind kind = drawing.at(entity).kind();
        const auto maps = mapsOf(drawing, normalOf(drawing.at(entity)));
        if (kept || (kind == Kind::circle && !piece.closed) || kind == Kind::polyline) {
            makeLike(command, entity, piece);
            continue;
        }
        kept = true;
        if (kind == Kind::line) {
            const UserPlane plane(drawing);
            changeOf(command, entity)
                .point(10, plane.world(piece.vertices.front().at))
                .point(11, plane.world(piece.vertices.back().at))
                .apply(command);
        } else if (kind == Kind::lwpolyline && maps) {
            setVertices(drawing, entity, piece, *maps);
        } else if (maps) {
            const Segment one = piece.segment(0);
            Groups change = changeOf(command, entity);
            change.point(10, maps->toEntity(one.centre())).real(40, one.radius());
            if (kind == Kind::arc) {
                const ArcEnds ends = arcEnds(piece, *maps);
                change.real(50, ends.start).real(51, ends.end);
            }
            change.apply(command);
        }
    }
    if (!kept) drawing.setErased(entity, true);
}

} // namespace orvald
