// SPDX-License-Identifier: LicenseRef-ORVALD
// What shows or covers a part of something else: view ports of layouts, clipped inserts, images,
// wipeouts.
#include "painter.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace orvald::picture {

using drawing::Index;
using drawing::Point;
using drawing::Record;
using drawing::Transform;

namespace {

constexpr double kDegree = std::numbers::pi / 180.0;

void polygonInto(Path& path, const std::vector<Vec>& corners)
{
    path.clear();
    for (const Vec corner : corners) {
        if (path.empty()) path.moveTo(corner);
        else path.lineTo(corner);
    }
    path.close();
}

std::vector<Vec> rectangle(Vec a, Vec b) { return {a, {b.x, a.y}, b, {a.x, b.y}}; }

// Points of a group; two of them are corners of a rectangle.
std::vector<Vec> outlineOf(const Record& record, int code)
{
    std::vector<Vec> corners;
    for (const drawing::Tag tag : record.tags)
        if (tag.code() == code) corners.push_back(flat(tag.point()));
    if (corners.size() == 2) return rectangle(corners[0], corners[1]);
    return corners;
}

// From the model to the coordinates of the layout, by what the view port looks at.
Transform throughViewport(const drawing::TagList& tags)
{
    const Transform towards = drawing::entityToWorld(tags.point(16, {0.0, 0.0, 1.0}));
    // The inverse of a turn is its transpose.
    Transform turned{{towards.x.x, towards.y.x, towards.z.x},
                     {towards.x.y, towards.y.y, towards.z.y},
                     {towards.x.z, towards.y.z, towards.z.z},
                     {}};
    turned.origin = Point{} - turned.direction(tags.point(17));
    const double twist = tags.real(51) * kDegree, c = std::cos(twist), s = std::sin(twist);
    const double scale = tags.real(41) / tags.real(45);
    Transform placed{
        {c * scale, s * scale, 0.0}, {-s * scale, c * scale, 0.0}, {0.0, 0.0, scale}, {}};
    const Point centre = tags.point(12);
    placed.origin = tags.point(10) - scale * Point{centre.x, centre.y, 0.0};
    return placed.after(turned);
}

} // namespace

bool Painter::openClip(const Path& path)
{
    if (clips_ >= kMostClips || path.empty() || !path.isDrawable()) return false;
    ++clips_;
    canvas_.pushClip(path);
    return true;
}

void Painter::closeClip()
{
    canvas_.popClip();
    --clips_;
}

void Painter::viewport(Index index, const Look& look, const Place& place)
{
    const drawing::TagList& tags = drawing_.at(index).tags;
    constexpr int kWholeSheet = 1; // number of the view port that is the layout itself
    constexpr std::int64_t kOff = 0x20000;
    const double width = tags.real(40), height = tags.real(41);
    if (tags.integer(69) == kWholeSheet || !(width > 0.0) || !(height > 0.0)) return;

    // Its outline: another entity's, or its own rectangle.
    const Index outline = drawing_.byHandle(tags.handle(340));
    std::vector<Vec> corners;
    if (outline == drawing::kNone || !outlineInto(path_, outline, place)) {
        const Vec centre = flat(tags.point(10)), half{width / 2.0, height / 2.0};
        corners = rectangle(centre - half, centre + half);
        for (Vec& corner : corners) corner = flat(place.map({corner.x, corner.y, 0.0}));
        polygonInto(path_, corners);
    }
    const Path frame = path_;
    const bool shows = tags.integer(68, 1) != 0 && (tags.integer(90) & kOff) == 0 &&
                       tags.real(45) > 0.0 && view_ != nullptr && place.block == nullptr;
    if (shows && openClip(frame)) {
        std::vector<Index> frozen;
        for (const drawing::Tag tag : tags)
            if (tag.code() == 331) frozen.push_back(drawing_.byHandle(tag.handle()));
        std::erase(frozen, drawing::kNone);
        Place inside;
        inside.map = place.map.after(throughViewport(tags));
        // Line types look alike in all view ports unless the drawing says otherwise.
        if (drawing_.header.integer("$PSLTSCALE", 1) != 0)
            lineTypeFactor_ = scaleOf(place.map) / scaleOf(inside.map);
        looks_.freeze(std::move(frozen));
        block(drawing_.modelSpace(), inside);
        looks_.freeze({});
        lineTypeFactor_ = 1.0;
        closeClip();
    }
    if (!look.hidden() && outline == drawing::kNone) stroke(frame, look, scaleOf(place.map));
}

// Closed curves that a user may choose as the border of a view port.
bool Painter::outlineInto(Path& path, Index index, const Place& place)
{
    const Record& record = drawing_.at(index);
    path.clear();
    if (record.kind() == drawing::Kind::circle) {
        const drawing::ArcView circle = drawing::arcView(record);
        const double r = std::abs(circle.radius);
        const Arc arc{flat(circle.centre), {r, 0.0}, {0.0, r}, 0.0, 2.0 * std::numbers::pi};
        const Arc mapped = planeOf(place.map, circle.normal, circle.centre.z).mapped(arc);
        path.moveTo(mapped.at(0.0));
        path.arcTo(mapped, mapped.at(0.0));
    } else if (record.kind() == drawing::Kind::lwpolyline ||
               record.kind() == drawing::Kind::polyline) {
        const drawing::PolylineView view = drawing::polylineView(drawing_, index);
        const std::size_t count = view.vertices.size();
        local_.clear();
        for (std::size_t i = 0; i < count && !view.mesh; ++i) {
            if (i == 0) local_.moveTo(flat(view.vertices[0].at));
            local_.bulgeTo(flat(view.vertices[(i + 1) % count].at), view.vertices[i].bulge);
        }
        path.addMapped(local_, planeOf(place.map, view.normal, view.elevation));
    }
    if (path.empty()) return false;
    path.close();
    return true;
}

// The filter of an insert of which a part is shown: a polygon in the world of the day on which it
// was drawn, with the map from there to the block.
bool Painter::clipInsert(Index insert, const Transform& blockToCanvas)
{
    const drawing::Handle extension = drawing_.at(insert).extensionDictionary();
    if (extension == 0) return false;
    const Index filters = drawing_.dictionaryEntry(drawing_.byHandle(extension), "ACAD_FILTER");
    if (filters == drawing::kNone) return false;
    const Index filter = drawing_.dictionaryEntry(filters, "SPATIAL");
    if (filter == drawing::kNone) return false;
    const Record& record = drawing_.at(filter);
    if (record.tags.integer(71, 1) == 0) return false; // switched off
    std::vector<double> rows;                          // three rows of four
    bool depth = false; // a front plane's distance follows, which is no part of the map
    for (const drawing::Tag tag : record.tags) {
        if (tag.code() == 72) depth = tag.integer() != 0;
        else if (tag.code() == 40 && depth) depth = false;
        else if (tag.code() == 40 && rows.size() < 12) rows.push_back(tag.real());
    }
    std::vector<Vec> corners = outlineOf(record, 10);
    if (rows.size() < 12 || corners.size() < 3) return false;
    const Transform toBlock{{rows[0], rows[4], rows[8]},
                            {rows[1], rows[5], rows[9]},
                            {rows[2], rows[6], rows[10]},
                            {rows[3], rows[7], rows[11]}};
    for (Vec& corner : corners) corner = flat(blockToCanvas(toBlock({corner.x, corner.y, 0.0})));
    polygonInto(path_, corners);
    return openClip(path_);
}

// IMAGE and WIPEOUT: the outline in pixels of the image, whose first one is the upper left.
void Painter::image(const Record& record, const Look& look, const Place& place)
{
    const drawing::TagList& tags = record.tags;
    const bool covers = record.typeName() == "WIPEOUT";
    const Point size = tags.point(13, {1.0, 1.0, 0.0});
    std::vector<Vec> corners = outlineOf(record, 14);
    if (tags.integer(280) == 0 && !covers) corners.clear();
    if (corners.size() < 3) corners = rectangle({-0.5, -0.5}, {size.x - 0.5, size.y - 0.5});
    const Point origin = tags.point(10), right = tags.point(11), up = tags.point(12);
    for (Vec& corner : corners)
        corner =
            flat(place.map(origin + (corner.x + 0.5) * right + (size.y - corner.y - 0.5) * up));
    polygonInto(path_, corners);
    Look thin = look;
    thin.lineType = nullptr;
    if (covers) {
        thin.colour = backgroundColour(looks_.background());
        fill(path_, thin, FillRule::evenOdd);
        const Index frame =
            drawing_.dictionaryEntry(drawing_.rootDictionary(), "ACAD_WIPEOUT_VARS");
        if (frame == drawing::kNone || drawing_.at(frame).tags.integer(70) == 0) return;
        thin.colour = look.colour;
    } else if (view_ != nullptr) {
        ++summary_.notDrawn["IMAGE (its frame is)"];
    }
    stroke(path_, thin, 0.0);
}

} // namespace orvald::picture
