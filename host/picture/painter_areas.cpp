// SPDX-License-Identifier: LicenseRef-ORVALD
// Filled entities: solids, faces, hatches.
#include "gradients.h"
#include "hatch_lines.h"
#include "painter.h"
#include "splines.h"

#include <algorithm>
#include <cmath>

namespace orvald::picture {

using drawing::HatchEdge;
using drawing::HatchPath;
using drawing::Point;
using drawing::Record;

namespace {

constexpr double kTolerance = 0.1; // pixels, of flattened boundaries
// Pixels: lines that are closer than this give an even tone.
constexpr double kToneDistance = 1.0;
constexpr double kFinestDashes = 0.7;              // pixels
constexpr std::size_t kMostHatchLines = 1'000'000; // of one hatch

enum PathFlags
{
    external = 1,
    outermost = 16
};

void appendEdge(Path& path, const HatchEdge& edge, double scale)
{
    const auto begin = [&](Vec p) {
        if (path.empty() || path.pieces().back().step == Path::Step::close) path.moveTo(p);
        else if (!(path.pieces().back().to == p)) path.lineTo(p);
    };
    switch (edge.type) {
    case HatchEdge::Type::line:
        begin(flat(edge.start));
        path.lineTo(flat(edge.end));
        break;
    case HatchEdge::Type::arc: {
        const Arc arc{flat(edge.start), {edge.radius, 0.0}, {0.0, edge.radius}, edge.from, edge.to};
        begin(arc.at(arc.from));
        path.arcTo(arc);
        break;
    }
    case HatchEdge::Type::ellipse: {
        const Vec major = flat(edge.end);
        const Arc arc{flat(edge.start), major, edge.radius * Vec{-major.y, major.x}, edge.from,
                      edge.to};
        begin(arc.at(arc.from));
        path.arcTo(arc);
        break;
    }
    case HatchEdge::Type::spline: {
        drawing::SplineView spline;
        spline.degree = edge.degree;
        spline.knots = edge.knots;
        spline.weights = edge.weights;
        spline.controls = edge.controls;
        const std::vector<Point> points = splinePoints(spline, scale);
        if (points.empty()) break;
        begin(flat(points.front()));
        for (std::size_t i = 1; i < points.size(); ++i) path.lineTo(flat(points[i]));
        break;
    }
    }
}

// The loops that count under the hatch's style, in its own plane.
void boundaryInto(Path& path, const drawing::HatchView& view, double scale)
{
    constexpr int kOuterOnly = 1, kIgnoreInner = 2; // styles
    const bool anyExternal =
        std::any_of(view.paths.begin(), view.paths.end(),
                    [](const HatchPath& p) { return (p.flags & external) != 0; });
    for (const HatchPath& loop : view.paths) {
        const bool inner = (loop.flags & (external | outermost)) == 0;
        if (anyExternal && view.style == kOuterOnly && inner) continue;
        if (anyExternal && view.style == kIgnoreInner && (loop.flags & external) == 0) continue;
        const std::size_t count = loop.vertices.size();
        for (std::size_t i = 0; i < count; ++i) {
            if (i == 0) path.moveTo(flat(loop.vertices[i].at));
            path.bulgeTo(flat(loop.vertices[(i + 1) % count].at), loop.vertices[i].bulge);
        }
        for (const HatchEdge& edge : loop.edges) appendEdge(path, edge, scale);
        path.close();
    }
}

} // namespace

void Painter::solid(const Record& record, const Look& look, const Place& place)
{
    const drawing::SolidView view = drawing::solidView(record);
    const Affine plane = planeOf(place.map, view.normal, view.corners[0].z);
    path_.clear();
    path_.moveTo(plane(flat(view.corners[0])));
    for (int i = 1; i < 4; ++i) path_.lineTo(plane(flat(view.corners[i])));
    path_.close();
    fill(path_, look, FillRule::nonZero);
}

void Painter::face(const Record& record, const Look& look, const Place& place)
{
    const drawing::SolidView view = drawing::solidView(record);
    path_.clear();
    for (int i = 0; i < 4; ++i) {
        const Point from = view.corners[i], to = view.corners[(i + 1) % 4];
        if ((view.hiddenEdges >> i & 1) != 0 || from == to) continue;
        path_.moveTo(flat(place.map(from)));
        path_.lineTo(flat(place.map(to)));
    }
    Look unbroken = look;
    unbroken.lineType = nullptr;
    stroke(path_, unbroken, 0.0);
}

void Painter::hatch(const Record& record, const Look& look, const Place& place)
{
    const drawing::HatchView view = drawing::hatchView(record);
    const Affine plane = planeOf(place.map, view.normal, view.elevation);
    const double scale = plane.scale();
    if (!(scale > 0.0)) return; // seen from the side
    local_.clear();
    boundaryInto(local_, view, scale);
    if (local_.empty() || !spend(local_.pieces().size())) return;

    if (view_ != nullptr && !view.gradient.shape.empty() && local_.isDrawable()) {
        const std::size_t runs = flatten(local_, kTolerance / scale, runs_);
        Gradient gradient = gradientOf(view.gradient, {runs_.data(), runs}, look.colour);
        const double radius = length(gradient.to - gradient.from) * scale;
        gradient.from = plane(gradient.from);
        gradient.to = gradient.radial ? gradient.from + Vec{radius, 0.0} : plane(gradient.to);
        path_.clear();
        path_.addMapped(local_, plane);
        if (path_.isDrawable())
            canvas_.fill(path_, {look.colour, look.layer->name, &gradient}, FillRule::evenOdd);
        return;
    }
    double closest = 0.0; // distance of the closest lines, pixels
    for (const drawing::HatchLine& family : view.lines) {
        const double distance = lineDistance(family) * scale;
        if (distance > 0.0) closest = closest > 0.0 ? std::min(closest, distance) : distance;
    }
    const bool tone = closest > 0.0 && closest < kToneDistance;
    if (view_ == nullptr || view.solid || tone) {
        path_.clear();
        path_.addMapped(local_, plane);
        fill(path_, look, FillRule::evenOdd);
        return;
    }
    if (!local_.isDrawable()) return;
    const std::size_t runs = flatten(local_, kTolerance / scale, runs_);
    const Affine back = plane.inverse();
    Bounds window;
    for (const Vec corner :
         {Vec{0.0, 0.0}, Vec{double(view_->width), 0.0}, Vec{0.0, double(view_->height)},
          Vec{double(view_->width), double(view_->height)}})
        window.add(back(corner));
    std::vector<HatchSegment> segments;
    for (const drawing::HatchLine& family : view.lines) {
        if (!hatchLines({runs_.data(), runs}, family, kFinestDashes / scale, window,
                        std::min(stepsLeft_, kMostHatchLines), segments))
            summary_.complete = false;
    }
    if (!spend(segments.size())) return;
    path_.clear();
    for (const HatchSegment& segment : segments) {
        path_.moveTo(plane(segment.from));
        path_.lineTo(plane(segment.to));
    }
    Look unbroken = look;
    unbroken.lineType = nullptr;
    stroke(path_, unbroken, scale);
}

} // namespace orvald::picture
