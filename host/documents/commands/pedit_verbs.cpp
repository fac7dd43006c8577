// SPDX-License-Identifier: LicenseRef-ORVALD
// PEDIT: closing, opening, joining, widths and sense of polylines.
#include "commands/flat_curve.h"
#include "commands/making.h"
#include "commands/selecting.h"
#include "commands/verbs.h"
#include "document.h"

#include <algorithm>
#include <cmath>

namespace orvald {
namespace {

using drawing::Index;
using drawing::Kind;
using drawing::Point;

/// Ends that are nearer to each other than this part of the curve's length are one point.
constexpr double kSameEnd = 1e-8;

bool isPolyline(Command& command, Index entity)
{
    return command.drawing().at(entity).kind() == Kind::lwpolyline;
}

/// Appends the other curve where an end of it is the end of this one; false when none is.
bool append(FlatCurve& curve, FlatCurve other, double fuzz)
{
    const auto near = [fuzz](Point a, Point b) { return std::hypot(b.x - a.x, b.y - a.y) <= fuzz; };
    if (!near(curve.vertices.back().at, other.vertices.front().at)) {
        if (!near(curve.vertices.back().at, other.vertices.back().at)) return false;
        other.reverse();
    }
    drawing::PolylineVertex& seam = curve.vertices.back();
    const Point place = seam.at;
    seam = other.vertices.front();
    seam.at = place;
    curve.vertices.insert(curve.vertices.end(), std::next(other.vertices.begin()),
                          other.vertices.end());
    return true;
}

/// Joins all that can be reached from the ends; what was joined is erased.
std::size_t joinTo(Command& command, Index polyline, const std::vector<Index>& objects)
{
    FlatCurve curve = *FlatCurve::of(command, polyline);
    if (curve.closed) return 0;
    std::vector<std::pair<Index, FlatCurve>> others;
    for (const Index object : objects) {
        const Kind kind = command.drawing().at(object).kind();
        const auto other = FlatCurve::of(command, object);
        if (object == polyline || !other || other->closed || kind == Kind::polyline) continue;
        others.emplace_back(object, *other);
    }
    std::size_t joined = 0;
    const double fuzz = kSameEnd * std::max(curve.length(), 1.0);
    for (bool more = true; more;) {
        more = false;
        for (auto other = others.begin(); other != others.end(); ++other) {
            bool fits = append(curve, other->second, fuzz);
            if (!fits) {
                curve.reverse();
                fits = append(curve, other->second, fuzz);
                curve.reverse();
            }
            if (!fits) continue;
            command.drawing().setErased(other->first, true);
            others.erase(other);
            ++joined;
            more = true;
            break;
        }
    }
    const Point start = curve.vertices.front().at, end = curve.vertices.back().at;
    if (curve.vertices.size() > 2 && std::hypot(end.x - start.x, end.y - start.y) <= fuzz) {
        curve.vertices.pop_back();
        curve.closed = true;
    }
    if (joined != 0) reshape(command, polyline, {curve});
    return joined;
}

/// One width for the whole polyline.
void setWidth(Command& command, Index polyline, double width)
{
    FlatCurve curve = *FlatCurve::of(command, polyline);
    for (drawing::PolylineVertex& vertex : curve.vertices)
        vertex.startWidth = vertex.endWidth = 0.0;
    reshape(command, polyline, {curve});
    drawing::TagList& tags = command.drawing().edit(polyline).tags;
    drawing::TagList group;
    group.addReal(43, width);
    if (const auto at = tags.find(43); at != tags.end()) {
        tags.replace(at, group);
    } else if (const auto flags = tags.find(70); flags != tags.end()) {
        tags.insert(std::next(flags), group);
    }
}

void setClosed(Command& command, Index polyline, bool closed)
{
    FlatCurve curve = *FlatCurve::of(command, polyline);
    curve.closed = closed;
    reshape(command, polyline, {curve});
}

void setGenerated(Command& command, Index polyline, bool on)
{
    constexpr int kGenerated = 128;
    const auto flags = static_cast<int>(command.drawing().at(polyline).tags.integer(70));
    changeOf(command, polyline)
        .integer(70, on ? flags | kGenerated : flags & ~kGenerated)
        .apply(command);
}

/// The polyline that stands for a line or an arc, or the entity itself; kNone for others.
Index polylineFor(Command& command, Index entity)
{
    if (isPolyline(command, entity)) return entity;
    const Kind kind = command.drawing().at(entity).kind();
    const auto curve = FlatCurve::of(command, entity);
    if (!curve || kind == Kind::circle) return drawing::kNone;
    const Index made = makePolylineLike(command, entity, *curve);
    command.drawing().setErased(entity, true);
    return made;
}

// ... the options, up to eXit or Enter
Task<> editPolylines(Command& command, const std::vector<Index>& polylines)
{
    for (;;) {
        const Answer<NoValue> option = co_await command.option(
            u"Enter an option [Close/Join/Width/Edit vertex/Fit/Spline/Decurve/Ltype gen/Reverse/"
            u"Undo]: ",
            u"Close Open Join Width Edit Fit Spline Decurve Ltype Reverse Undo eXit");
        if (option.isEnter() || option.is(u"eXit")) co_return;
        if (option.is(u"Close") || option.is(u"Open")) {
            for (const Index one : polylines) setClosed(command, one, option.is(u"Close"));
        } else if (option.is(u"Reverse")) {
            for (const Index one : polylines) {
                FlatCurve curve = *FlatCurve::of(command, one);
                curve.reverse();
                reshape(command, one, {curve});
            }
        } else if (option.is(u"Width")) {
            const Answer<double> width =
                co_await command.distance(u"Specify new width for all segments: ");
            if (width && *width < 0.0) command.refuse(u"a width is not less than 0");
            if (width)
                for (const Index one : polylines) setWidth(command, one, *width);
        } else if (option.is(u"Ltype")) {
            const Answer<NoValue> on = co_await command.option(
                u"Enter polyline linetype generation option [ON/OFF]: ", u"ON OFF");
            for (const Index one : polylines) setGenerated(command, one, on.is(u"ON"));
        } else if (option.is(u"Join")) {
            std::vector<Index> objects = polylines;
            if (polylines.size() == 1) {
                objects = co_await command.changeable();
            } else {
                const Answer<double> fuzz =
                    co_await command.distance(u"Enter fuzz distance or [Jointype]: ");
                if (fuzz && *fuzz != 0.0) {
                    command.refuse(u"a fuzz distance is not available in this host");
                }
            }
            std::size_t joined = 0;
            for (const Index one : polylines)
                if (!command.drawing().isGone(one)) joined += joinTo(command, one, objects);
            if (joined == 0) command.print(u"Nothing was joined.");
            std::erase_if(objects, [&](Index one) { return command.drawing().isGone(one); });
        } else {
            command.refuse(u"the option " + option.keyword + u" is not available in this host");
        }
    }
}

// PEDIT polyline|line|arc [Yes]|Multiple objects [Yes], then the options
Task<> pedit(Command& command)
{
    const bool accepts = command.document().variables().integer(u"PEDITACCEPT") != 0;
    const Answer<Picked> picked =
        co_await command.entity(u"Select polyline or [Multiple]: ", u"Multiple");
    std::vector<Index> objects;
    if (picked.is(u"Multiple")) objects = co_await command.changeable();
    else if (picked) objects.push_back(picked->entity);
    const bool all =
        std::ranges::all_of(objects, [&](Index one) { return isPolyline(command, one); });
    if (!all && !accepts) {
        const Answer<NoValue> turned =
            co_await command.option(u"Do you want to turn it into a polyline? <Y>: ", u"Yes No");
        if (turned.is(u"No")) {
            std::erase_if(objects, [&](Index one) { return !isPolyline(command, one); });
        }
    }
    std::vector<Index> polylines;
    for (const Index object : objects) {
        const Index polyline = polylineFor(command, object);
        if (polyline != drawing::kNone && FlatCurve::of(command, polyline)) {
            polylines.push_back(polyline);
        }
    }
    if (polylines.empty()) command.refuse(u"the object is not a polyline of the plane");
    co_await editPolylines(command, polylines);
}

constexpr Verb kTable[] = {{u"PEDIT", pedit}};

} // namespace

std::span<const Verb> peditVerbs() { return kTable; }

} // namespace orvald
