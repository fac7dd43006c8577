// SPDX-License-Identifier: LicenseRef-ORVALD
// Polylines: thin ones as strokes with exact arcs, wide ones as wide strokes or, where the width
// changes or the place distorts it, as areas.
#include "painter.h"

#include <algorithm>
#include <cmath>

namespace orvald::picture {

using drawing::Index;
using drawing::PolylineVertex;

void Painter::polyline(Index index, const Look& look, const Place& place)
{
    const drawing::PolylineView view = drawing::polylineView(drawing_, index);
    if (view.mesh) return mesh(index, look, place);
    const std::vector<PolylineVertex>& vertices = view.vertices;
    if (vertices.empty()) return;
    if (view.spatial) {
        std::vector<drawing::Point> corners;
        for (const PolylineVertex& vertex : vertices) corners.push_back(vertex.at);
        return points(corners, view.closed, look, place);
    }
    if (!spend(vertices.size())) return;
    const Affine plane = planeOf(place.map, view.normal, view.elevation);
    const std::size_t segments = vertices.size() - (view.closed ? 0 : 1);
    const auto end = [&](std::size_t i) { return flat(vertices[(i + 1) % vertices.size()].at); };

    const double width = vertices.front().startWidth;
    bool wide = false, even = true;
    for (std::size_t i = 0; i < segments; ++i) {
        wide = wide || vertices[i].startWidth > 0.0 || vertices[i].endWidth > 0.0;
        even = even && vertices[i].startWidth == width && vertices[i].endWidth == width;
    }
    if (wide && !(even && plane.isSimilarity())) {
        // One area of them all, so that no seam shows between two segments.
        path_.clear();
        for (std::size_t i = 0; i < segments; ++i) addWideSegment(plane, vertices[i], end(i));
        fill(path_, look, FillRule::nonZero);
        return;
    }
    const auto draw = [&] {
        path_.clear();
        path_.addMapped(local_, plane);
        if (wide) strokeWide(path_, look, plane.scale(), width * plane.scale());
        else stroke(path_, look, plane.scale());
    };
    constexpr int kThroughCorners = 128; // of flags: a line type runs on round the corners
    const bool runsOn = (drawing_.at(index).tags.integer(70) & kThroughCorners) != 0;
    const bool whole = look.lineType == nullptr || runsOn || wide;
    local_.clear();
    for (std::size_t i = 0; i < segments; ++i) {
        if (i == 0 || !whole) {
            local_.clear();
            local_.moveTo(flat(vertices[i].at));
        }
        local_.bulgeTo(end(i), vertices[i].bulge);
        if (!whole) draw();
    }
    if (!whole) return;
    if (view.closed) local_.close();
    draw();
}

void Painter::addWideSegment(const Affine& plane, const PolylineVertex& from, Vec to)
{
    const Vec start = flat(from.at);
    const double w0 = from.startWidth / 2.0, w1 = from.endWidth / 2.0;
    local_.clear();
    local_.moveTo(start);
    local_.bulgeTo(to, from.bulge);
    const Path::Piece segment = local_.pieces().back();
    local_.clear();
    if (segment.step == Path::Step::line) {
        const Vec along = to - start;
        const double size = length(along);
        if (!(size > 0.0)) return;
        const Vec side = 1.0 / size * Vec{-along.y, along.x};
        local_.moveTo(start + w0 * side);
        local_.lineTo(to + w1 * side);
        local_.lineTo(to - w1 * side);
        local_.lineTo(start - w0 * side);
    } else {
        const Arc& arc = segment.arc;
        const double radius = length(arc.u);
        if (!(radius > 0.0)) return;
        constexpr double kTolerance = 0.1; // pixels
        const int chords = view_ == nullptr ? 16 : chordCount(plane.mapped(arc), kTolerance);
        if (!spend(2 * std::size_t(chords))) return;
        const double left = from.bulge > 0.0 ? -1.0 : 1.0; // the centre is on the left
        const auto edge = [&](int i, double sign) {
            const double share = double(i) / chords;
            const Vec out = arc.at(arc.to * share) - arc.centre;
            return arc.centre + (1.0 + sign * (w0 + (w1 - w0) * share) / radius) * out;
        };
        local_.moveTo(edge(0, left));
        for (int i = 1; i <= chords; ++i) local_.lineTo(edge(i, left));
        for (int i = chords; i >= 0; --i) local_.lineTo(edge(i, -left));
    }
    local_.close();
    path_.addMapped(local_, plane);
}

// Polygon meshes are rows and columns of vertices, polyface meshes vertices and then faces.
void Painter::mesh(Index index, const Look& look, const Place& place)
{
    const drawing::TagList& head = drawing_.at(index).tags;
    const auto flags = head.integer(70);
    constexpr int kClosedRows = 1, kClosedColumns = 32, kPolyface = 64;
    constexpr int kFramePoint = 16, kPosition = 64; // of vertices
    std::vector<Vec> at;
    struct Face
    {
        std::int64_t corners[4];
    };
    std::vector<Face> faces;
    for (Index part = drawing_.firstChild(index); part != drawing::kNone && spend(1);
         part = drawing_.next(part)) {
        const drawing::Record& record = drawing_.at(part);
        if (record.erased || record.kind() != drawing::Kind::vertex) continue;
        const auto vertexFlags = record.tags.integer(70);
        if ((vertexFlags & kFramePoint) != 0) continue;
        if ((flags & kPolyface) == 0 || (vertexFlags & kPosition) != 0) {
            at.push_back(flat(place.map(record.tags.point(10))));
        } else {
            const drawing::TagList& tags = record.tags;
            faces.push_back(
                {{tags.integer(71), tags.integer(72), tags.integer(73), tags.integer(74)}});
        }
    }
    path_.clear();
    const auto edge = [&](std::size_t a, std::size_t b) {
        if (a >= at.size() || b >= at.size()) return;
        path_.moveTo(at[a]);
        path_.lineTo(at[b]);
    };
    for (const Face& face : faces) {
        // Numbers count from 1, a negative one begins an invisible edge, 0 is no corner.
        const int count = face.corners[3] != 0 ? 4 : face.corners[2] != 0 ? 3 : 2;
        for (int i = 0; i < count; ++i) {
            const auto from = face.corners[i], to = face.corners[(i + 1) % count];
            if (from > 0) edge(std::size_t(from - 1), std::size_t(std::abs(to) - 1));
        }
    }
    if ((flags & kPolyface) == 0) {
        // Smoothed meshes count their vertices in other groups.
        const bool smooth = head.integer(75) != 0;
        const auto rows = std::size_t(std::max<std::int64_t>(head.integer(smooth ? 73 : 71), 0));
        const auto columns = std::size_t(std::max<std::int64_t>(head.integer(smooth ? 74 : 72), 0));
        if (rows == 0 || columns == 0 || at.size() / columns < rows) return;
        for (std::size_t r = 0; r < rows; ++r) {
            for (std::size_t c = 0; c < columns; ++c) {
                const std::size_t here = r * columns + c;
                if (c + 1 < columns) edge(here, here + 1);
                else if ((flags & kClosedColumns) != 0) edge(here, r * columns);
                if (r + 1 < rows) edge(here, here + columns);
                else if ((flags & kClosedRows) != 0) edge(here, c);
            }
        }
    }
    Look unbroken = look;
    unbroken.lineType = nullptr;
    stroke(path_, unbroken, 0.0);
}

void Painter::net(const drawing::Record& record, const Look& look, const Place& place)
{
    // Counts stand in front of lists: of faces, each its number of corners and their vertices, and
    // of edges, which the faces have as well.
    constexpr int kFaces = 93, kEdges = 94, kItem = 90;
    std::vector<Vec> at;
    std::vector<std::size_t> face;
    std::int64_t expected = 0;
    bool inFaces = false;
    path_.clear();
    for (const drawing::Tag tag : record.tags) {
        if (tag.code() == 10) at.push_back(flat(place.map(tag.point())));
        else if (tag.code() == kFaces) inFaces = true;
        else if (tag.code() == kEdges) inFaces = false;
        else if (tag.code() == kItem && inFaces) {
            if (expected <= 0) {
                expected = tag.integer();
                face.clear();
                continue;
            }
            if (const auto corner = tag.integer(); corner >= 0 && std::size_t(corner) < at.size())
                face.push_back(std::size_t(corner));
            if (--expected > 0 || face.size() < 2) continue;
            if (!spend(face.size())) return;
            path_.moveTo(at[face[0]]);
            for (std::size_t i = 1; i < face.size(); ++i) path_.lineTo(at[face[i]]);
            path_.close();
        }
    }
    Look unbroken = look;
    unbroken.lineType = nullptr;
    stroke(path_, unbroken, 0.0);
}

} // namespace orvald::picture
