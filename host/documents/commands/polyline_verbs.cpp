// SPDX-License-Identifier: LicenseRef-ORVALD
// PLINE: lines and arcs with widths, gathered up to Enter and drawn as one.
#include "commands/making.h"
#include "commands/verbs.h"
#include "document.h"

#include <cmath>
#include <numbers>

namespace orvald {
namespace {

using drawing::Point;
using drawing::PolylineVertex;

constexpr double kTurn = 2.0 * std::numbers::pi;

double angleTo(Point from, Point to) { return std::atan2(to.y - from.y, to.x - from.x); }
double bulgeOf(double sweep) { return std::tan(0.25 * sweep); }

/// The outline so far; each vertex holds what the segment behind it is.
class Outline
{
public:
    Outline(Command& command, Point first)
        : command_(command), width_(command.document().variables().real(u"PLINEWID"))
    {
        vertices_.push_back({first, 0.0, width_, width_});
        endWidth_ = width_;
    }

    Point last() const { return vertices_.back().at; }
    /// Direction in which the outline goes on without a bend.
    double tangent() const { return tangent_; }
    bool canClose() const { return vertices_.size() >= 2; }

    void lineTo(Point to)
    {
        tangent_ = angleTo(last(), to);
        add(to, 0.0);
    }
    /// `sweep`: positive to the left.
    void arcTo(Point to, double sweep)
    {
        tangent_ = angleTo(last(), to) + 0.5 * sweep;
        add(to, bulgeOf(sweep));
    }
    /// The arc to `to` that leaves in the direction `start`.
    void arcAlong(Point to, double start)
    {
        arcTo(to, 2.0 * std::remainder(angleTo(last(), to) - start, kTurn));
    }
    void setWidths(double start, double end)
    {
        width_ = start;
        endWidth_ = end;
    }
    double width() const { return width_; }
    void undo()
    {
        if (vertices_.size() > 1) vertices_.pop_back();
        command_.document().variables().setPoint(u"LASTPOINT", last());
    }
    /// The last segment, back to the first vertex, is an arc along the tangent or straight.
    void close(bool byArc)
    {
        if (byArc) arcAlong(vertices_.front().at, tangent_);
        else lineTo(vertices_.front().at);
        vertices_.pop_back();
        closed_ = true;
    }
    void draw()
    {
        if (drawn_) return;
        drawn_ = true;
        drawPolyline(command_, vertices_, closed_);
        command_.setReal(u"PLINEWID", endWidth_);
    }

private:
    void add(Point to, double bulge)
    {
        PolylineVertex& from = vertices_.back();
        from.bulge = bulge;
        from.startWidth = width_;
        from.endWidth = endWidth_;
        width_ = endWidth_; // the next segment goes on as this one ends
        to.z = vertices_.front().at.z;
        vertices_.push_back({to, 0.0, width_, width_});
        command_.document().variables().setPoint(u"LASTPOINT", to);
    }

    Command& command_;
    std::vector<PolylineVertex> vertices_;
    double width_, endWidth_ = 0.0;
    double tangent_ = 0.0;
    bool closed_ = false, drawn_ = false;
};

Task<> askWidths(Command& command, Outline& outline, double factor)
{
    const Answer<double> start =
        co_await command.distance(u"Specify starting width: ", {}, outline.last());
    const double from = start ? factor * *start : outline.width();
    const Answer<double> end =
        co_await command.distance(u"Specify ending width: ", {}, outline.last());
    outline.setWidths(from, end ? factor * *end : from);
}

/// Sweep of the arc over the chord about the centre, counter-clockwise.
double sweepAbout(Point centre, Point from, Point to)
{
    return withinTurn(angleTo(centre, to) - angleTo(centre, from));
}

// ... Angle a, then end point, CEnter or Radius
Task<> arcOfAngle(Command& command, Outline& outline)
{
    const Answer<double> sweep =
        co_await command.angle(u"Specify included angle: ", {}, outline.last());
    if (!sweep) co_return;
    const Answer<Point> end =
        co_await command.point(u"Specify endpoint of arc or [CEnter/Radius]: ", u"CEnter Radius");
    const Point from = outline.last();
    if (end) {
        outline.arcTo(*end, *sweep);
    } else if (end.is(u"CEnter")) {
        const Answer<Point> centre = co_await command.point(u"Specify center point of arc: ");
        if (!centre) co_return;
        const double radius = std::hypot(from.x - centre->x, from.y - centre->y);
        const double to = angleTo(*centre, from) + *sweep;
        outline.arcTo({centre->x + radius * std::cos(to), centre->y + radius * std::sin(to)},
                      *sweep);
    } else if (end.is(u"Radius")) {
        const Answer<double> radius = co_await command.distance(u"Specify radius of arc: ");
        const Answer<double> chord =
            co_await command.direction(u"Specify direction of chord for arc: ", {}, from);
        if (!radius || !chord) co_return;
        const double length = 2.0 * *radius * std::abs(std::sin(0.5 * *sweep));
        outline.arcTo({from.x + length * std::cos(*chord), from.y + length * std::sin(*chord)},
                      *sweep);
    }
}

// ... CEnter c, then end point, Angle or chord Length
Task<> arcOfCentre(Command& command, Outline& outline)
{
    const Answer<Point> centre = co_await command.point(u"Specify center point of arc: ");
    if (!centre) co_return;
    const Answer<Point> end =
        co_await command.point(u"Specify endpoint of arc or [Angle/Length]: ", u"Angle Length");
    const Point from = outline.last();
    const double radius = std::hypot(from.x - centre->x, from.y - centre->y);
    double sweep = 0.0;
    if (end) {
        sweep = sweepAbout(*centre, from, *end);
    } else if (end.is(u"Angle")) {
        const Answer<double> angle =
            co_await command.angle(u"Specify included angle: ", {}, *centre);
        sweep = angle.value.value_or(0.0);
    } else if (end.is(u"Length")) {
        const Answer<double> chord = co_await command.distance(u"Specify length of chord: ");
        const double size = 0.5 * std::abs(chord.value.value_or(0.0));
        const double half = radius > 0.0 ? std::asin(size / radius) : 0.0;
        sweep = chord.value.value_or(0.0) < 0.0 ? kTurn - 2.0 * half : 2.0 * half;
    }
    if (!(sweep != 0.0)) co_return;
    const double to = angleTo(*centre, from) + sweep;
    outline.arcTo({centre->x + radius * std::cos(to), centre->y + radius * std::sin(to)}, sweep);
}

// ... Second p, end point
Task<> arcThrough(Command& command, Outline& outline)
{
    const Answer<Point> second = co_await command.point(u"Specify second point on arc: ");
    const Answer<Point> end = co_await command.point(u"Specify end point of arc: ");
    if (!second || !end) co_return;
    // The angle at the second point over the chord is half of what the sweep leaves of a turn.
    const double inscribed =
        std::remainder(angleTo(*second, *end) - angleTo(*second, outline.last()), kTurn);
    outline.arcTo(*end, 2.0 * inscribed + (inscribed < 0.0 ? kTurn : -kTurn));
}

// ... Radius r, then end point or Angle
Task<> arcOfRadius(Command& command, Outline& outline)
{
    const Answer<double> radius = co_await command.distance(u"Specify radius of arc: ");
    const Answer<Point> end =
        co_await command.point(u"Specify endpoint of arc or [Angle]: ", u"Angle");
    if (!radius || !end) command.refuse(u"this option is not available in this host");
    const Point from = outline.last();
    const double chord = std::hypot(end->x - from.x, end->y - from.y);
    const double half = *radius != 0.0 ? std::asin(0.5 * chord / *radius) : 0.0;
    if (!(half > 0.0)) command.refuse(u"no arc has this radius");
    // To the side to which the outline was bending.
    const double turn = std::remainder(angleTo(from, *end) - outline.tangent(), kTurn);
    outline.arcTo(*end, turn < 0.0 ? -2.0 * half : 2.0 * half);
}

/// What one answer of the arc prompt asks for; true when the outline is closed.
Task<bool> arcSegment(Command& command, Outline& outline, Answer<Point> answer)
{
    if (answer) {
        outline.arcAlong(*answer, outline.tangent());
    } else if (answer.is(u"CLose")) {
        if (!outline.canClose()) co_return false;
        outline.close(true);
        co_return true;
    } else if (answer.is(u"Angle")) {
        co_await arcOfAngle(command, outline);
    } else if (answer.is(u"CEnter")) {
        co_await arcOfCentre(command, outline);
    } else if (answer.is(u"Second")) {
        co_await arcThrough(command, outline);
    } else if (answer.is(u"Radius")) {
        co_await arcOfRadius(command, outline);
    } else if (answer.is(u"Direction")) {
        const Answer<double> tangent = co_await command.direction(
            u"Specify tangent direction for start point: ", {}, outline.last());
        const Answer<Point> end = co_await command.point(u"Specify end point of arc: ");
        if (tangent && end) outline.arcAlong(*end, *tangent);
    }
    co_return false;
}

/// The same for the line prompt.
Task<bool> lineSegment(Command& command, Outline& outline, Answer<Point> answer)
{
    if (answer) {
        outline.lineTo(*answer);
    } else if (answer.is(u"Close")) {
        if (!outline.canClose()) co_return false;
        outline.close(false);
        co_return true;
    } else if (answer.is(u"Length")) {
        const Answer<double> length = co_await command.distance(u"Specify length of line: ");
        const Point from = outline.last();
        const double by = length.value.value_or(0.0), along = outline.tangent();
        if (by != 0.0) {
            outline.lineTo({from.x + by * std::cos(along), from.y + by * std::sin(along)});
        }
    }
    co_return false;
}

Task<> segments(Command& command, Outline& outline)
{
    bool arcs = false, closed = false;
    while (!closed) {
        Answer<Point> answer;
        if (arcs) {
            answer = co_await command.point(
                u"Specify endpoint of arc or [Angle/CEnter/CLose/Direction/Halfwidth/Line/Radius/"
                u"Second pt/Undo/Width]: ",
                u"Angle CEnter CLose Direction Halfwidth Line Radius Second Undo Width");
        } else {
            answer = co_await command.point(
                u"Specify next point or [Arc/Close/Halfwidth/Length/Undo/Width]: ",
                u"Arc Close Halfwidth Length Undo Width");
        }
        if (answer.isEnter()) co_return;
        if (answer.is(u"Arc")) arcs = true;
        else if (answer.is(u"Line")) arcs = false;
        else if (answer.is(u"Undo")) outline.undo();
        else if (answer.is(u"Width")) co_await askWidths(command, outline, 1.0);
        else if (answer.is(u"Halfwidth")) co_await askWidths(command, outline, 2.0);
        else if (arcs) closed = co_await arcSegment(command, outline, answer);
        else closed = co_await lineSegment(command, outline, answer);
    }
}

// PLINE p1 p2|options ... Close|Enter
Task<> pline(Command& command)
{
    const Answer<Point> first = co_await command.point(u"Specify start point: ");
    Outline outline(command, first ? *first : command.document().variables().point(u"LASTPOINT"));
    try {
        co_await segments(command, outline);
    } catch (const CommandCancelled&) {
        outline.draw(); // what was drawn until then stays
        throw;
    }
    outline.draw();
}

constexpr Verb kTable[] = {{u"PLINE", pline}};

} // namespace

std::span<const Verb> polylineVerbs() { return kTable; }

} // namespace orvald
