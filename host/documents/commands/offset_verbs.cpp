// SPDX-License-Identifier: LicenseRef-ORVALD
// OFFSET, FILLET, STRETCH.
#include "commands/flat_curve.h"
#include "commands/making.h"
#include "commands/selecting.h"
#include "commands/verbs.h"
#include "document.h"
#include "drawing/text.h"
#include "drawing/transform.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace orvald {
namespace {

using drawing::Index;
using drawing::Kind;
using drawing::Point;

constexpr double kTurn = 2.0 * std::numbers::pi;

Point polar(Point from, double angle, double distance)
{
    return {from.x + distance * std::cos(angle), from.y + distance * std::sin(angle), from.z};
}
double flatDistance(Point a, Point b) { return std::hypot(b.x - a.x, b.y - a.y); }

// -- OFFSET

/// The segment at a distance to the left; nothing when an arc has no such radius.
std::optional<Segment> beside(const Segment& one, double left)
{
    Segment moved = one;
    if (!one.isRound()) {
        const double by = left / one.length();
        const Point across{by * (one.a.y - one.b.y), by * (one.b.x - one.a.x), 0.0};
        moved.a = one.a + across;
        moved.b = one.b + across;
        return moved;
    }
    const double radius = one.radius() - (one.bulge > 0.0 ? left : -left);
    if (!(radius > 1e-9 * one.radius())) return std::nullopt;
    const Point centre = one.centre();
    moved.a = centre + radius / one.radius() * (one.a - centre);
    moved.b = centre + radius / one.radius() * (one.b - centre);
    moved.a.z = moved.b.z = one.a.z;
    return moved;
}

/// Brings the end of one segment and the start of the next one to where their lines and circles
/// meet, next to the corner; false when they lie apart and do not meet.
bool join(Segment& one, Segment& next)
{
    constexpr double kSame = 1e-9; // by the lengths of the segments
    const double small = kSame * (one.length() + next.length());
    double least = flatDistance(one.b, next.a);
    Point corner = one.b;
    if (least > small) {
        least = INFINITY;
        for (const Point place : carriersMeet(one, next)) {
            const double far = flatDistance(place, one.b) + flatDistance(place, next.a);
            if (far >= least) continue;
            least = far;
            corner = place;
        }
        const bool straight = !one.isRound() && !next.isRound();
        if (!std::isfinite(least) && straight) {
            // On one line they are joined as they stand.
            const Point along = one.b - one.a, apart = next.a - one.a;
            const double off = along.x * apart.y - along.y * apart.x;
            return std::abs(off) <= small * length(along);
        }
        if (!std::isfinite(least)) return false;
    }
    const auto cut = [](Segment& segment, Point a, Point b) {
        if (segment.isRound()) {
            const double from = segment.partOf(a), to = segment.partOf(b);
            segment.bulge = std::tan(0.25 * (to - from) * segment.sweep());
        }
        segment.a = a;
        segment.b = b;
    };
    cut(one, one.a, corner);
    cut(next, corner, next.b);
    return true;
}

/// True when a segment still runs as the original one did.
bool keepsSense(const Segment& old, const Segment& now)
{
    if (!(now.length() > 1e-9 * old.length())) return false;
    if (old.isRound()) return now.isRound() && (now.bulge > 0.0) == (old.bulge > 0.0);
    const double turn = now.direction(0.0) - old.direction(0.0);
    return std::cos(turn) > 0.0;
}

/// The curve at a distance to the left; nothing when none of it is left. Segments that the distance
/// turns round are left out, and their neighbours meet each other.
std::optional<FlatCurve> offset(const FlatCurve& curve, double left)
{
    std::vector<Segment> originals;
    for (std::size_t i = 0; i < curve.segmentCount(); ++i)
        if (curve.segment(i).length() > 0.0) originals.push_back(curve.segment(i));
    for (;;) {
        std::vector<Segment> kept, moved;
        for (const Segment& one : originals) {
            if (const auto aside = beside(one, left)) {
                kept.push_back(one);
                moved.push_back(*aside);
            }
        }
        if (moved.empty()) return std::nullopt;
        const std::size_t count = moved.size();
        std::vector<bool> turned(count, false);
        for (std::size_t i = 0; i < (curve.closed ? count : count - 1) && count > 1; ++i) {
            const std::size_t next = (i + 1) % count;
            if (!join(moved[i], moved[next])) turned[i] = turned[next] = true;
        }
        originals.clear();
        for (std::size_t i = 0; i < count; ++i)
            if (!turned[i] && keepsSense(kept[i], moved[i])) originals.push_back(kept[i]);
        if (originals.size() < count) continue; // with fewer segments: comes to an end
        FlatCurve result;
        result.closed = curve.closed && count > 1;
        for (const Segment& one : moved) result.vertices.push_back({one.a, one.bulge});
        if (!result.closed) result.vertices.push_back({moved.back().b});
        return result;
    }
}

/// Distance of a place to the left of the curve.
double leftOf(const FlatCurve& curve, Point place)
{
    const double position = curve.nearest(place);
    const Point foot = curve.at(position);
    // At a corner the side is that of the segment which shows it better.
    double side = 0.0;
    for (const double near : {position - 1e-9, position, position + 1e-9}) {
        const double along = curve.direction(near);
        const double one =
            std::cos(along) * (place.y - foot.y) - std::sin(along) * (place.x - foot.x);
        if (std::abs(one) > std::abs(side)) side = one;
    }
    return std::copysign(flatDistance(foot, place), side);
}

// OFFSET distance|Through, then object and point in turn, up to Enter
Task<> offsetObjects(Command& command)
{
    bool through = false, erases = false, onCurrentLayer = false;
    double size = command.document().variables().real(u"OFFSETDIST");
    for (;;) {
        const Answer<double> distance = co_await command.distance(
            u"Specify offset distance or [Through/Erase/Layer]: ", u"Through Erase Layer");
        if (distance.is(u"Erase")) {
            const Answer<NoValue> erase = co_await command.option(
                u"Erase source object after offsetting? [Yes/No]: ", u"Yes No");
            erases = erase.is(u"Yes");
            continue;
        }
        if (distance.is(u"Layer")) {
            const Answer<NoValue> layer = co_await command.option(
                u"Enter layer option for offset objects [Current/Source]: ", u"Current Source");
            onCurrentLayer = layer.is(u"Current");
            continue;
        }
        if (distance) size = *distance;
        through = distance.is(u"Through") || (distance.isEnter() && size < 0.0);
        break;
    }
    if (!through && !(size > 0.0)) command.refuse(u"a distance is greater than 0");
    command.setReal(u"OFFSETDIST", through ? -1.0 : size);
    for (;;) {
        const Answer<Picked> picked =
            co_await command.entity(u"Select object to offset or [Exit/Undo]: ", u"Exit Undo");
        if (!picked) co_return;
        const Answer<Point> side = co_await command.point(
            u"Specify point on side to offset or [Exit/Multiple/Undo]: ", u"Exit Multiple Undo");
        if (!side) co_return;
        const std::optional<FlatCurve> curve = FlatCurve::of(command, picked->entity);
        if (!curve) command.refuse(u"objects of this kind are not offset in this host");
        const double left = leftOf(*curve, *side);
        const auto made = offset(*curve, through ? left : std::copysign(size, left));
        if (!made) {
            command.print(u"Nothing lies at this distance.");
            continue;
        }
        const drawing::Index parallel = makeLike(command, picked->entity, *made);
        if (onCurrentLayer && parallel != drawing::kNone) {
            const auto layer = command.drawing().header.text("$CLAYER", "0");
            changeOf(command, parallel).text(8, drawing::text16(layer)).apply(command);
        }
        if (erases) command.drawing().setErased(picked->entity, true);
    }
}

// -- FILLET

/// The arc that rounds the corner between two directions away from it.
struct Rounding
{
    Point from, to; // on the first and the second side
    double bulge = 0.0;
    double cut = 0.0; // of each side
};
std::optional<Rounding> roundingOf(Point corner, double first, double second, double radius)
{
    const double between = std::remainder(second - first, kTurn);
    const double half = 0.5 * std::abs(between);
    constexpr double kStraight = 1e-9; // radians
    if (half < kStraight || half > 0.25 * kTurn - kStraight) return std::nullopt;
    Rounding rounding;
    rounding.cut = radius / std::tan(half);
    rounding.from = polar(corner, first, rounding.cut);
    rounding.to = polar(corner, second, rounding.cut);
    // The arc turns by what the corner lacks to a straight line, away from the second side.
    const double sweep = 0.5 * kTurn - 2.0 * half;
    rounding.bulge = std::tan(0.25 * (between > 0.0 ? -sweep : sweep));
    return rounding;
}

/// Rounds all corners between straight segments that have room for it.
FlatCurve rounded(const FlatCurve& curve, double radius)
{
    FlatCurve result;
    result.closed = curve.closed;
    const std::size_t count = curve.vertices.size();
    for (std::size_t i = 0; i < count; ++i) {
        const bool corner = curve.closed || (i > 0 && i + 1 < count);
        const Segment in = curve.segment(corner ? (i + count - 1) % count : 0);
        const Segment out = curve.segment(corner ? i : 0);
        std::optional<Rounding> rounding;
        if (corner && !in.isRound() && !out.isRound()) {
            rounding =
                roundingOf(out.a, in.direction(1.0) + 0.5 * kTurn, out.direction(0.0), radius);
        }
        const double room = 0.5 * std::min(in.length(), out.length());
        if (rounding && rounding->cut <= room) {
            result.vertices.push_back({rounding->from, rounding->bulge});
            result.vertices.push_back({rounding->to, curve.vertices[i].bulge});
        } else {
            result.vertices.push_back(curve.vertices[i]);
        }
    }
    return result;
}

/// Brings a line, picked at a place, to the corner; `at` is where it ends then.
void endLine(Command& command, Index line, double direction, Point corner, Point at)
{
    FlatCurve curve = *FlatCurve::of(command, line);
    const auto along = [&](Point p) {
        return (p.x - corner.x) * std::cos(direction) + (p.y - corner.y) * std::sin(direction);
    };
    const bool first = along(curve.vertices[0].at) < along(curve.vertices[1].at);
    curve.vertices[first ? 0 : 1].at = at;
    reshape(command, line, {curve});
}

void filletLines(Command& command, const Picked& one, const Picked& other, double radius)
{
    drawing::Drawing& drawing = command.drawing();
    const auto a = FlatCurve::of(command, one.entity), b = FlatCurve::of(command, other.entity);
    const bool lines = a && b && drawing.at(one.entity).kind() == Kind::line &&
                       drawing.at(other.entity).kind() == Kind::line;
    if (!lines) command.refuse(u"only lines are rounded off in this host");
    const Segment s = a->segment(0), t = b->segment(0);
    const Point u = s.b - s.a, v = t.b - t.a;
    const double area = u.x * v.y - u.y * v.x;
    constexpr double kParallel = 1e-12;
    if (std::abs(area) <= kParallel * length(u) * length(v))
        command.refuse(u"the lines are parallel");
    const Point apart = t.a - s.a;
    const Point corner = s.a + (apart.x * v.y - apart.y * v.x) / area * u;
    // Each line keeps the side on which it was picked; without a point, its longer side.
    const auto away = [&](const Segment& line, const Picked& picked) {
        const double direction = line.direction(0.0);
        Point place = picked.at.value_or(
            flatDistance(line.a, corner) > flatDistance(line.b, corner) ? line.a : line.b);
        const double along =
            (place.x - corner.x) * std::cos(direction) + (place.y - corner.y) * std::sin(direction);
        return along < 0.0 ? direction + 0.5 * kTurn : direction;
    };
    const double first = away(s, one), second = away(t, other);
    Rounding rounding;
    rounding.from = rounding.to = corner;
    if (radius > 0.0) {
        const auto found = roundingOf(corner, first, second, radius);
        if (!found) command.refuse(u"the radius does not fit");
        rounding = *found;
        FlatCurve arc;
        arc.vertices = {{rounding.from, rounding.bulge}, {rounding.to}};
        const Segment round = arc.segment(0);
        const bool left = rounding.bulge > 0.0;
        const double start = round.startAngle(), end = start + round.sweep();
        drawArc(command, round.centre(), radius, left ? start : end, left ? end : start);
    }
    if (command.document().variables().integer(u"TRIMMODE") == 0) return;
    endLine(command, one.entity, first, corner, rounding.from);
    endLine(command, other.entity, second, corner, rounding.to);
}

// FILLET [Radius r] [Trim Trim|No] object object|Polyline object
Task<> fillet(Command& command)
{
    SystemVariables& variables = command.document().variables();
    for (;;) {
        const Answer<Picked> first = co_await command.entity(
            u"Select first object or [Undo/Polyline/Radius/Trim/Multiple]: ",
            u"Undo Polyline Radius Trim Multiple");
        if (first.isEnter()) co_return;
        if (first.is(u"Radius")) {
            const Answer<double> radius = co_await command.distance(u"Specify fillet radius: ");
            if (radius && !command.setReal(u"FILLETRAD", *radius)) {
                command.refuse(u"a radius is not less than 0");
            }
        } else if (first.is(u"Trim")) {
            const Answer<NoValue> mode =
                co_await command.option(u"Enter Trim mode option [Trim/No trim]: ", u"Trim No");
            resbuf value = {};
            value.restype = RTSHORT;
            value.resval.rint = mode.is(u"No") ? 0 : 1;
            if (!mode.isEnter()) variables.set(u"TRIMMODE", value);
        } else if (first.is(u"Polyline")) {
            const Answer<Picked> picked = co_await command.entity(u"Select 2D polyline: ");
            if (!picked) co_return;
            const auto curve = FlatCurve::of(command, picked->entity);
            if (!curve || command.drawing().at(picked->entity).kind() != Kind::lwpolyline) {
                command.refuse(u"the object is not a polyline of the plane");
            }
            reshape(command, picked->entity, {rounded(*curve, variables.real(u"FILLETRAD"))});
            co_return;
        } else if (first) {
            const Answer<Picked> second = co_await command.entity(u"Select second object: ");
            if (second) filletLines(command, *first, *second, variables.real(u"FILLETRAD"));
            co_return;
        } else if (!first.is(u"Multiple")) {
            command.refuse(u"this option is not available in this host");
        }
    }
}

// -- STRETCH

/// True for a place inside a polygon, by the number of sides to its right.
bool isInside(const std::vector<Point>& polygon, Point place)
{
    bool inside = false;
    for (std::size_t i = 0, j = polygon.size() - 1; i < polygon.size(); j = i++) {
        const Point a = polygon[i], b = polygon[j];
        if ((a.y > place.y) == (b.y > place.y)) continue;
        if (place.x < a.x + (place.y - a.y) / (b.y - a.y) * (b.x - a.x)) inside = !inside;
    }
    return inside;
}

/// Moves what of an object stands in the window.
void stretchOne(Command& command, Index entity, const std::vector<Point>& window, Point by)
{
    drawing::Drawing& drawing = command.drawing();
    const UserPlane plane(drawing);
    const Kind kind = drawing.at(entity).kind();
    if (kind == Kind::line) {
        Groups change = changeOf(command, entity);
        for (const int code : {10, 11}) {
            const Point end = plane.user(drawing.at(entity).tags.point(code));
            if (isInside(window, end)) change.point(code, plane.world(end + by));
        }
        change.apply(command);
        return;
    }
    const bool round = kind == Kind::arc;
    std::optional<FlatCurve> curve;
    if (round || kind == Kind::lwpolyline) curve = FlatCurve::of(command, entity);
    if (curve) {
        if (round) { // one segment between its ends
            double sweep = 0.0;
            for (std::size_t i = 0; i < curve->segmentCount(); ++i)
                sweep += curve->segment(i).sweep();
            curve->vertices = {{curve->vertices.front().at, std::tan(0.25 * sweep)},
                               {curve->vertices.back().at}};
        }
        for (drawing::PolylineVertex& vertex : curve->vertices)
            if (isInside(window, vertex.at)) vertex.at = vertex.at + by;
        reshape(command, entity, {*curve});
        return;
    }
    // All else moves as a whole, with its first point.
    const drawing::Record& record = drawing.at(entity);
    const bool plain = kind == Kind::point || kind == Kind::mtext || kind == Kind::ellipse;
    const Point at = plain ? record.tags.point(10)
                           : drawing::entityToWorld(record.tags.point(210, {0.0, 0.0, 1.0}))(
                                 record.tags.point(10));
    if (!isInside(window, plane.user(at))) return;
    drawing::Transform shift;
    shift.origin = by;
    transformEntity(drawing, entity, plane.worldMap(shift));
}

// STRETCH objects by a crossing window, base|Displacement [point|Enter]
Task<> stretch(Command& command)
{
    const std::vector<Index> objects = co_await command.changeable();
    const std::vector<Point> window = command.crossing();
    if (objects.empty()) co_return;
    if (window.empty()) command.refuse(u"objects are selected by a crossing window");
    const Answer<Point> base =
        co_await command.point(u"Specify base point or [Displacement]: ", u"Displacement");
    Point by;
    if (base.is(u"Displacement")) {
        const Answer<Point> displacement = co_await command.point(u"Specify displacement: ");
        by = displacement.value.value_or(Point{});
    } else if (base) {
        const Answer<Point> to =
            co_await command.point(u"Specify second point or <use first point as displacement>: ");
        by = to ? *to - *base : *base;
    }
    for (const Index object : objects) stretchOne(command, object, window, by);
}

constexpr Verb kTable[] = {{u"FILLET", fillet}, {u"OFFSET", offsetObjects}, {u"STRETCH", stretch}};

} // namespace

std::span<const Verb> offsetVerbs() { return kTable; }

} // namespace orvald
