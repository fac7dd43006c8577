// SPDX-License-Identifier: LicenseRef-ORVALD
// LINE, CIRCLE, ARC, POINT, RECTANG.
#include "commands/making.h"
#include "commands/verbs.h"
#include "document.h"

#include <cmath>
#include <numbers>

namespace orvald {
namespace {

using drawing::Index;
using drawing::Point;

constexpr double kTurn = 2.0 * std::numbers::pi;

double angleTo(Point from, Point to) { return std::atan2(to.y - from.y, to.x - from.x); }
double flatDistance(Point a, Point b) { return std::hypot(b.x - a.x, b.y - a.y); }
Point polar(Point from, double angle, double distance)
{
    return {from.x + distance * std::cos(angle), from.y + distance * std::sin(angle), from.z};
}
/// Centre of the circle through three points of a plane parallel to the user's; nothing when they
/// lie on a line.
std::optional<Point> centreOf(Point a, Point b, Point c)
{
    const Point u = b - a, v = c - a;
    const double area = 2.0 * (u.x * v.y - u.y * v.x);
    if (area == 0.0) return std::nullopt;
    const double uu = u.x * u.x + u.y * u.y, vv = v.x * v.x + v.y * v.y;
    const Point centre{a.x + (v.y * uu - u.y * vv) / area, a.y + (u.x * vv - v.x * uu) / area, a.z};
    if (!std::isfinite(centre.x + centre.y)) return std::nullopt;
    return centre;
}

// LINE p1 p2 ... Close|Enter; Enter at once goes on from the last point
Task<> line(Command& command)
{
    SystemVariables& variables = command.document().variables();
    const Answer<Point> first = co_await command.point(u"Specify first point: ");
    std::vector<Point> points{first ? *first : variables.point(u"LASTPOINT")};
    std::vector<Index> lines;
    for (;;) {
        const Answer<Point> next =
            co_await command.point(u"Specify next point or [Close/Undo]: ", u"Close Undo");
        if (next) {
            lines.push_back(drawLine(command, points.back(), *next));
            points.push_back(*next);
        } else if (next.is(u"Undo")) {
            if (lines.empty()) continue;
            command.drawing().setErased(lines.back(), true);
            lines.pop_back();
            points.pop_back();
            variables.setPoint(u"LASTPOINT", points.back());
        } else {
            if (next.is(u"Close") && lines.size() >= 2) {
                drawLine(command, points.back(), points.front());
                variables.setPoint(u"LASTPOINT", points.front());
            }
            co_return;
        }
    }
}

/// A circle through three points of its outline.
void circleThrough(Command& command, Point a, Point b, Point c)
{
    const std::optional<Point> centre = centreOf(a, b, c);
    if (!centre) command.refuse(u"the points lie on a line");
    drawCircle(command, *centre, flatDistance(*centre, a));
}

// CIRCLE centre radius|Diameter d; 2P p p; 3P p p p
Task<> circle(Command& command)
{
    SystemVariables& variables = command.document().variables();
    const Answer<Point> centre =
        co_await command.point(u"Specify center point for circle or [3P/2P/Ttr]: ", u"3P 2P Ttr");
    if (centre.is(u"Ttr")) command.refuse(u"the option Ttr is not available in this host");
    if (centre.is(u"2P") || centre.is(u"3P")) {
        const Answer<Point> a = co_await command.point(u"Specify first point on circle: ");
        const Answer<Point> b = co_await command.point(u"Specify second point on circle: ");
        if (!a || !b) co_return;
        if (centre.is(u"2P")) {
            drawCircle(command, 0.5 * (*a + *b), 0.5 * flatDistance(*a, *b));
            co_return;
        }
        const Answer<Point> c = co_await command.point(u"Specify third point on circle: ");
        if (c) circleThrough(command, *a, *b, *c);
        co_return;
    }
    if (!centre) co_return;
    Answer<double> radius = co_await command.distance(u"Specify radius of circle or [Diameter]: ",
                                                      u"Diameter", *centre);
    if (radius.is(u"Diameter")) {
        radius = co_await command.distance(u"Specify diameter of circle: ", {}, *centre);
        if (radius) radius.value = 0.5 * *radius;
    }
    const double size = radius ? *radius : variables.real(u"CIRCLERAD");
    if (!(size > 0.0)) command.refuse(u"a radius is greater than 0");
    drawCircle(command, *centre, size);
    command.setReal(u"CIRCLERAD", size);
    variables.setPoint(u"LASTPOINT", *centre);
}

/// Draws from `start` to `end` about the centre, counter-clockwise unless the sweep is negative.
void arcAbout(Command& command, Point centre, Point start, double sweep)
{
    const double radius = flatDistance(centre, start), from = angleTo(centre, start);
    if (!(radius > 0.0) || sweep == 0.0) command.refuse(u"these values make no arc");
    if (sweep > 0.0) drawArc(command, centre, radius, from, from + sweep);
    else drawArc(command, centre, radius, from + sweep, from);
    command.document().variables().setPoint(u"LASTPOINT", polar(centre, from + sweep, radius));
}

/// Centre of the arc over the chord with that sweep.
Point centreOfSweep(Command& command, Point start, Point end, double sweep)
{
    if (!(sweep != 0.0)) command.refuse(u"these values make no arc");
    const Point middle = 0.5 * (start + end), along = end - start;
    const double toCentre = 0.5 / std::tan(0.5 * sweep); // to the left, in chords
    return {middle.x - along.y * toCentre, middle.y + along.x * toCentre, start.z};
}

// ... centre known, start known: end point, Angle or chord Length
Task<> arcFromCentre(Command& command, Point centre, Point start)
{
    const Answer<Point> end = co_await command.point(
        u"Specify end point of arc or [Angle/chord Length]: ", u"Angle Length");
    if (end) {
        const double sweep = withinTurn(angleTo(centre, *end) - angleTo(centre, start));
        arcAbout(command, centre, start, sweep);
    } else if (end.is(u"Angle")) {
        const Answer<double> sweep =
            co_await command.angle(u"Specify included angle: ", {}, centre);
        if (sweep) arcAbout(command, centre, start, *sweep);
    } else if (end.is(u"Length")) {
        const Answer<double> chord =
            co_await command.distance(u"Specify length of chord: ", {}, start);
        if (!chord) co_return;
        // A negative chord is that of the larger arc.
        const double radius = flatDistance(centre, start);
        const double half = radius > 0.0 ? std::asin(0.5 * std::abs(*chord) / radius) : 0.0;
        if (!(half > 0.0)) command.refuse(u"no arc has this chord");
        arcAbout(command, centre, start, *chord > 0.0 ? 2.0 * half : kTurn - 2.0 * half);
    }
}

// ... start and end known: centre, Angle, Direction or Radius
Task<> arcToEnd(Command& command, Point start, Point end)
{
    Answer<Point> centre =
        co_await command.point(u"Specify center point of arc or [Angle/Direction/Radius]: ",
                               u"Center Angle Direction Radius");
    if (centre.is(u"Center")) {
        centre = co_await command.point(u"Specify center point of arc: ");
    }
    const double chord = flatDistance(start, end), along = angleTo(start, end);
    if (centre) {
        const double sweep = withinTurn(angleTo(*centre, end) - angleTo(*centre, start));
        arcAbout(command, *centre, start, sweep);
    } else if (centre.is(u"Angle")) {
        const Answer<double> sweep = co_await command.angle(u"Specify included angle: ", {}, start);
        if (sweep) arcAbout(command, centreOfSweep(command, start, end, *sweep), start, *sweep);
    } else if (centre.is(u"Direction")) {
        const Answer<double> tangent =
            co_await command.direction(u"Specify tangent direction: ", {}, start);
        if (!tangent) co_return;
        // The chord is half of the sweep away from the tangent.
        const double sweep = 2.0 * std::remainder(along - *tangent, kTurn);
        arcAbout(command, centreOfSweep(command, start, end, sweep), start, sweep);
    } else if (centre.is(u"Radius")) {
        const Answer<double> radius = co_await command.distance(u"Specify radius: ", {}, end);
        if (!radius) co_return;
        const double half = *radius != 0.0 ? std::asin(0.5 * chord / std::abs(*radius)) : 0.0;
        if (!(half > 0.0)) command.refuse(u"no arc has this radius");
        const double sweep = *radius > 0.0 ? 2.0 * half : kTurn - 2.0 * half;
        arcAbout(command, centreOfSweep(command, start, end, sweep), start, sweep);
    }
}

// ARC p1 p2 p3; p1 C centre ...; p1 E end ...; C centre start ...
Task<> arc(Command& command)
{
    const Answer<Point> start =
        co_await command.point(u"Specify start point of arc or [Center]: ", u"Center");
    if (start.is(u"Center")) {
        const Answer<Point> centre = co_await command.point(u"Specify center point of arc: ");
        const Answer<Point> from = co_await command.point(u"Specify start point of arc: ");
        if (centre && from) co_await arcFromCentre(command, *centre, *from);
        co_return;
    }
    if (!start) co_return;
    const Answer<Point> second =
        co_await command.point(u"Specify second point of arc or [Center/End]: ", u"Center End");
    if (second.is(u"Center")) {
        const Answer<Point> centre = co_await command.point(u"Specify center point of arc: ");
        if (centre) co_await arcFromCentre(command, *centre, *start);
    } else if (second.is(u"End")) {
        const Answer<Point> end = co_await command.point(u"Specify end point of arc: ");
        if (end) co_await arcToEnd(command, *start, *end);
    } else if (second) {
        const Answer<Point> end = co_await command.point(u"Specify end point of arc: ");
        if (!end) co_return;
        const std::optional<Point> centre = centreOf(*start, *second, *end);
        if (!centre) command.refuse(u"the points lie on a line");
        const double from = angleTo(*centre, *start);
        const double sweep = withinTurn(angleTo(*centre, *end) - from);
        const bool left = withinTurn(angleTo(*centre, *second) - from) <= sweep;
        arcAbout(command, *centre, *start, left ? sweep : sweep - kTurn);
    }
}

// POINT p
Task<> point(Command& command)
{
    const Answer<Point> at = co_await command.point(u"Specify a point: ");
    if (!at) co_return;
    const UserPlane plane(command.drawing());
    Groups entity = newEntity(u"POINT", u"AcDbPoint");
    entity.point(10, plane.world(*at));
    if (plane.normal() != Point{0.0, 0.0, 1.0}) entity.point(210, plane.normal());
    entity.make(command);
}

// -- RECTANG

/// What RECTANG keeps while its options are set.
struct Rectangle
{
    double fillet = 0.0, chamferA = 0.0, chamferB = 0.0, width = 0.0, rotation = 0.0;
};

/// Counter-clockwise from the first corner, with cut or rounded corners where they fit.
void drawRectangle(Command& command, const Rectangle& how, Point corner, double length,
                   double height)
{
    const double c = std::cos(how.rotation), s = std::sin(how.rotation);
    const auto place = [&](double x, double y) {
        return Point{corner.x + x * c - y * s, corner.y + x * s + y * c, corner.z};
    };
    const double xs[] = {0.0, length, length, 0.0}, ys[] = {0.0, 0.0, height, height};
    const double sides[] = {std::abs(length), std::abs(height)};
    const bool round = how.fillet > 0.0;
    const double before = round ? how.fillet : how.chamferA;
    const double behind = round ? how.fillet : how.chamferB;
    const bool cut = (before > 0.0 || behind > 0.0) && before + behind <= sides[0] &&
                     before + behind <= sides[1];
    const bool clockwise = (length < 0.0) != (height < 0.0);
    constexpr double kQuarterBulge = 0.41421356237309503; // tan(90 degrees / 4)
    std::vector<drawing::PolylineVertex> vertices;
    for (int i = 0; i < 4; ++i) {
        const auto add = [&](double x, double y, double bulge) {
            vertices.push_back({place(x, y), bulge, how.width, how.width});
        };
        if (!cut) {
            add(xs[i], ys[i], 0.0);
            continue;
        }
        // Along the outline: the side that comes in, the corner, the side that goes out.
        const int last = (i + 3) % 4, next = (i + 1) % 4;
        const double in = sides[(i + 1) % 2], out = sides[i % 2];
        const double p = before / in, q = behind / out;
        add(xs[i] + p * (xs[last] - xs[i]), ys[i] + p * (ys[last] - ys[i]),
            !round      ? 0.0
            : clockwise ? -kQuarterBulge
                        : kQuarterBulge);
        add(xs[i] + q * (xs[next] - xs[i]), ys[i] + q * (ys[next] - ys[i]), 0.0);
    }
    drawPolyline(command, vertices, true);
}

// RECTANG [Chamfer a b|Fillet r|Width w] corner [Area|Dimensions l h corner|Rotation a] corner
Task<> rectang(Command& command)
{
    Rectangle how;
    Answer<Point> first;
    for (;;) {
        first = co_await command.point(
            u"Specify first corner point or [Chamfer/Elevation/Fillet/Thickness/Width]: ",
            u"Chamfer Elevation Fillet Thickness Width");
        if (first || first.isEnter()) break;
        const Answer<double> size = co_await command.distance(u"Specify the size: ");
        if (first.is(u"Fillet")) how.fillet = size.value.value_or(0.0);
        else if (first.is(u"Width")) how.width = size.value.value_or(0.0);
        else if (first.is(u"Chamfer")) {
            const Answer<double> second = co_await command.distance(u"Specify second distance: ");
            how.chamferA = size.value.value_or(0.0);
            how.chamferB = second.value.value_or(how.chamferA);
        } else command.refuse(u"this option is not available in this host");
    }
    if (!first) co_return;
    double length = 0.0, height = 0.0;
    bool sized = false;
    for (;;) {
        const Answer<Point> other =
            co_await command.point(u"Specify other corner point or [Area/Dimensions/Rotation]: ",
                                   u"Area Dimensions Rotation");
        if (other.isEnter()) co_return;
        if (other) {
            const double c = std::cos(how.rotation), s = std::sin(how.rotation);
            const Point across = *other - *first;
            const double x = across.x * c + across.y * s, y = across.y * c - across.x * s;
            length = sized ? std::copysign(length, x) : x;
            height = sized ? std::copysign(height, y) : y;
            break;
        }
        if (other.is(u"Area")) command.refuse(u"the option Area is not available in this host");
        if (other.is(u"Rotation")) {
            const Answer<double> turn =
                co_await command.direction(u"Specify rotation angle: ", {}, *first);
            how.rotation = turn.value.value_or(how.rotation);
        } else {
            const Answer<double> l = co_await command.distance(u"Specify length: ");
            const Answer<double> h = co_await command.distance(u"Specify width: ");
            if (!l || !h) co_return;
            length = *l;
            height = *h;
            sized = true;
        }
    }
    if (length == 0.0 || height == 0.0) command.refuse(u"a rectangle has a length and a width");
    drawRectangle(command, how, *first, length, height);
}

constexpr Verb kTable[] = {
    {u"ARC", arc},     {u"CIRCLE", circle},   {u"LINE", line},
    {u"POINT", point}, {u"RECTANG", rectang}, {u"RECTANGLE", rectang},
};

} // namespace

std::span<const Verb> curveVerbs() { return kTable; }

} // namespace orvald
