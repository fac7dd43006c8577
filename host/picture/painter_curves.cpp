// SPDX-License-Identifier: LicenseRef-ORVALD
// Lines, circles, ellipses, splines, points: entities that are one stroke.
#include "dashes.h"
#include "painter.h"
#include "splines.h"

#include "drawing/text.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace orvald::picture {

using drawing::Point;
using drawing::Record;

namespace {

constexpr double kFullTurn = 2.0 * std::numbers::pi;

// An arc of a whole turn ends where it begins, whatever rounding says.
void arcInto(Path& path, const Arc& arc)
{
    const Vec start = arc.at(arc.from);
    const bool full = std::abs(arc.to - arc.from) >= kFullTurn;
    path.clear();
    path.moveTo(start);
    path.arcTo(arc, full ? start : arc.at(arc.to));
    if (full) path.close();
}

} // namespace

void Painter::line(const Record& record, const Look& look, const Place& place)
{
    const drawing::LineView view = drawing::lineView(record);
    path_.clear();
    path_.moveTo(flat(place.map(view.start)));
    path_.lineTo(flat(place.map(view.end)));
    stroke(path_, look, scaleOf(place.map));
}

// RAY and XLINE: what the page shows of them.
void Painter::endless(const Record& record, const Look& look, const Place& place)
{
    const drawing::LineView view = drawing::lineView(record);
    const Vec start = flat(place.map(view.start));
    const Vec along = flat(place.map.direction(view.end));
    path_.clear();
    path_.moveTo(start);
    if (view_ != nullptr) {
        const double size = length(along);
        if (!(size > 0.0)) return;
        // Far enough to cross the page from wherever the line starts.
        const double reach = length(start) + view_->width + view_->height;
        const Vec far = reach / size * along;
        const Vec from = record.kind() == drawing::Kind::ray ? start : start - far;
        Bounds page = view_->page();
        page.grow(10.0);
        double first = 0.0, last = 1.0;
        const Vec to = start + far;
        if (!clipSegment(from, to, page, first, last)) return;
        path_.clear();
        path_.moveTo(from + first * (to - from));
        path_.lineTo(from + last * (to - from));
    }
    stroke(path_, look, scaleOf(place.map));
}

// PDMODE: 0 a dot, 1 nothing, 2 a cross, 3 a diagonal cross, 4 a tick; 32 a circle and 64 a square
// around it. PDSIZE: drawing units, or percent of the page's height when it is not above 0.
void Painter::point(const Record& record, const Look& look, const Place& place)
{
    // Dimensions mark what they measure by points on this layer, which is never plotted.
    if (drawing::sameName(look.layer->name, "Defpoints")) return;
    const Vec centre = flat(place.map(record.tags.point(10)));
    const auto mode = drawing_.header.integer("$PDMODE");
    const double size = drawing_.header.real("$PDSIZE");
    path_.clear();
    path_.moveTo(centre);
    if (view_ == nullptr) {
        stroke(path_, look, 0.0);
        return;
    }
    const double half = (size > 0.0   ? size * scaleOf(place.map)
                         : size < 0.0 ? -size / 100.0 * view_->height
                                      : 0.05 * view_->height) /
                        2.0;
    const auto across = [&](Vec to) {
        path_.moveTo(centre - to);
        path_.lineTo(centre + to);
    };
    switch (mode & 7) {
    case 2:
        path_.clear();
        across({half, 0.0});
        across({0.0, half});
        break;
    case 3:
        path_.clear();
        across({half, half});
        across({half, -half});
        break;
    case 4: path_.lineTo(centre - Vec{0.0, half}); break;
    case 1: path_.clear(); break;
    default: {
        path_.lineTo(centre);
        if (!path_.isDrawable()) return;
        constexpr double kDot = 2.0; // pixels
        canvas_.stroke(path_, {look.colour, look.layer->name},
                       {std::max(penWidth(look), kDot), Ends::round, nullptr});
        path_.clear();
    }
    }
    if ((mode & 32) != 0) {
        path_.moveTo(centre + Vec{half, 0.0});
        path_.arcTo({centre, {half, 0.0}, {0.0, half}, 0.0, kFullTurn}, centre + Vec{half, 0.0});
        path_.close();
    }
    if ((mode & 64) != 0) {
        path_.moveTo(centre + Vec{-half, -half});
        path_.lineTo(centre + Vec{half, -half});
        path_.lineTo(centre + Vec{half, half});
        path_.lineTo(centre + Vec{-half, half});
        path_.close();
    }
    Look unbroken = look;
    unbroken.lineType = nullptr;
    stroke(path_, unbroken, 0.0);
}

void Painter::circle(const Record& record, const Look& look, const Place& place)
{
    const drawing::ArcView view = drawing::arcView(record);
    const Affine plane = planeOf(place.map, view.normal, view.centre.z);
    const double radius = std::abs(view.radius);
    const Arc arc{flat(view.centre), {radius, 0.0}, {0.0, radius}, view.start, view.end};
    arcInto(path_, plane.mapped(arc));
    stroke(path_, look, plane.scale());
}

void Painter::ellipse(const Record& record, const Look& look, const Place& place)
{
    const drawing::EllipseView view = drawing::ellipseView(record);
    const Point quarter = view.at(std::numbers::pi / 2.0) - view.centre;
    const drawing::Transform& map = place.map;
    arcInto(path_, {flat(map(view.centre)), flat(map.direction(view.major)),
                    flat(map.direction(quarter)), view.start, view.end});
    stroke(path_, look, scaleOf(map));
}

void Painter::points(const std::vector<Point>& points, bool closed, const Look& look,
                     const Place& place)
{
    if (!spend(points.size())) return;
    path_.clear();
    for (const Point& p : points) {
        if (path_.empty()) path_.moveTo(flat(place.map(p)));
        else path_.lineTo(flat(place.map(p)));
    }
    if (closed) path_.close();
    stroke(path_, look, scaleOf(place.map));
}

void Painter::spline(const Record& record, const Look& look, const Place& place)
{
    points(splinePoints(drawing::splineView(record), scaleOf(place.map)), false, look, place);
}

} // namespace orvald::picture
