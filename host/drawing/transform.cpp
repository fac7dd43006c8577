// SPDX-License-Identifier: LicenseRef-ORVALD
// Each kind has a function that writes the groups of its image; groups that a map does not touch go
// over as they are.
#include "drawing/transform.h"

#include "angles.h"
#include "drawing/views.h"
#include "hatch_transform.h"
#include "plane_map.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace orvald::drawing {
namespace {

/// The groups of the image; nothing when there is none.
using Image = std::optional<TagList>;

constexpr double kHalfTurn = std::numbers::pi;
constexpr double kTurn = 2.0 * kHalfTurn;

/// Degrees from 0 up to a full turn.
double turnDegrees(double radians)
{
    const double turns = std::fmod(radians, kTurn);
    return toDegrees(turns < 0.0 ? turns + kTurn : turns);
}

/// The groups with the first of a code replaced; a value that stays to the last bit leaves them
/// alone. A new one goes to the end of the section that has the first point: all that is put here
/// belongs there, while an arc and a text have a further section.
void put(TagList& tags, const TagList& group)
{
    const Tag fresh = *group.begin();
    const TagList::Iterator at = tags.find(fresh.code());
    if (at == tags.end()) tags.insert(tags.find(100, tags.find(10)), group);
    else if (!(*at == fresh)) tags.replace(at, group);
}
void putReal(TagList& tags, int code, double value)
{
    TagList group;
    group.addReal(code, value);
    put(tags, group);
}
void putPoint(TagList& tags, int code, Point value)
{
    TagList group;
    group.addPoint(code, value);
    put(tags, group);
}
void putNormal(TagList& tags, Point normal)
{
    if (tags.has(210) || normal != Point{0.0, 0.0, 1.0}) putPoint(tags, 210, normal);
}

/// Thickness; false when it would stand askew.
bool putThickness(TagList& tags, const PlaneMap& map)
{
    const double thickness = tags.real(39);
    if (thickness == 0.0) return true;
    double factor = 1.0;
    if (!map.alongNormal(factor)) return false;
    putReal(tags, 39, thickness * factor);
    return true;
}

Point normalOf(const TagList& tags) { return tags.point(210, {0.0, 0.0, 1.0}); }

/// Every point of the given codes through `map`, in the kind of point that it was.
template <class Map>
TagList mapPoints(const TagList& tags, std::initializer_list<int> codes, const Map& map)
{
    TagList image;
    for (const Tag tag : tags) {
        const bool wanted = std::ranges::find(codes, tag.code()) != codes.end();
        if (wanted && tag.isPoint())
            image.addPoint(tag.code(), map(tag.point()), tag.kind() == TagKind::point2);
        else image.add(tag);
    }
    return image;
}

Image straight(const TagList& tags, const Transform& map)
{
    TagList image = mapPoints(tags, {10, 11}, map);
    const PlaneMap plane(map, normalOf(tags));
    if (!plane.isSound() || !putThickness(image, plane)) return std::nullopt;
    putNormal(image, plane.normal());
    return image;
}

Image endless(const TagList& tags, const Transform& map)
{
    TagList image = mapPoints(tags, {10}, map);
    const Point direction = map.direction(tags.point(11));
    const double size = length(direction);
    if (!(size > 0.0)) return std::nullopt;
    putPoint(image, 11, 1.0 / size * direction);
    return image;
}

Image round(Kind kind, const TagList& tags, const PlaneMap& map)
{
    if (!map.isSimilar()) return std::nullopt;
    TagList image = mapPoints(tags, {10}, map);
    putReal(image, 40, tags.real(40) * map.scale());
    if (kind == Kind::arc) {
        const double start = map.angle(toRadians(tags.real(50)));
        const double end = map.angle(toRadians(tags.real(51)));
        putReal(image, 50, turnDegrees(map.isMirrored() ? end : start));
        putReal(image, 51, turnDegrees(map.isMirrored() ? start : end));
    }
    if (!putThickness(image, map)) return std::nullopt;
    putNormal(image, map.normal());
    return image;
}

/// An ellipse from two half diameters of which each halves the chords along the other one: the axes
/// are where |u cos t + v sin t| is largest and smallest.
Image ellipse(const Record& record, const Transform& map)
{
    const TagList& tags = record.tags;
    const EllipseView view = ellipseView(record);
    const PlaneMap plane(map, view.normal);
    if (!plane.isSound()) return std::nullopt;
    const Point u = map.direction(view.major);
    const Point v = map.direction(view.at(kHalfTurn / 2.0) - view.centre);
    const double shift = 0.5 * std::atan2(2.0 * dot(u, v), dot(u, u) - dot(v, v));
    const Point major = std::cos(shift) * u + std::sin(shift) * v;
    const Point minor = std::cos(shift) * v - std::sin(shift) * u;
    // Parameters count counter-clockwise about the normal of the image.
    const bool turned = dot(cross(major, minor), plane.normal()) < 0.0;
    const double ratio = length(minor) / length(major);
    if (!(ratio > 0.0)) return std::nullopt;

    TagList image = mapPoints(tags, {10}, map);
    putPoint(image, 11, major);
    putReal(image, 40, std::min(ratio, 1.0));
    constexpr double kWhole = 1e-12; // a sweep that misses a turn by less is one
    if (std::fabs(view.end - view.start - kTurn) > kWhole) {
        double start = view.start - shift, end = view.end - shift;
        if (turned) start = -std::exchange(end, -start);
        const double back = std::floor(start / kTurn) * kTurn;
        putReal(image, 41, start - back);
        putReal(image, 42, end - back);
    }
    putNormal(image, plane.normal());
    return image;
}

Image lwpolyline(const TagList& tags, const PlaneMap& map)
{
    double elevation = tags.real(38);
    const bool similar = map.isSimilar();
    TagList image;
    for (const Tag tag : tags) {
        switch (tag.code()) {
        case 10: {
            const Point p = tag.point();
            image.addPoint(10, map({p.x, p.y, elevation}), true);
            break;
        }
        case 40:
        case 41:
        case 43:
            if (tag.real() != 0.0 && !similar) return std::nullopt;
            image.addReal(tag.code(), tag.real() * map.scale());
            break;
        case 42:
            if (tag.real() != 0.0 && !similar) return std::nullopt;
            image.addReal(42, map.isMirrored() ? 0.0 - tag.real() : tag.real());
            break;
        default: image.add(tag);
        }
    }
    elevation = map({0.0, 0.0, elevation}).z;
    if (image.has(38)) {
        putReal(image, 38, elevation);
    } else if (elevation != 0.0) {
        TagList group;
        group.addReal(38, elevation);
        image.insert(image.find(10), group); // belongs to the head, in front of the vertices
    }
    if (!putThickness(image, map)) return std::nullopt;
    putNormal(image, map.normal());
    return image;
}

Image lettering(const TagList& tags, const PlaneMap& map)
{
    if (!map.isSimilar()) return std::nullopt;
    TagList image = mapPoints(tags, {10, 11}, map);
    double turn = map.angle(toRadians(tags.real(50)));
    if (map.isMirrored()) {
        constexpr std::int64_t kBackward = 2;
        TagList group;
        group.addInteger(71, tags.integer(71) ^ kBackward);
        put(image, group);
        turn += kHalfTurn;
    }
    putReal(image, 50, turnDegrees(turn));
    putReal(image, 40, tags.real(40) * map.scale());
    if (!putThickness(image, map)) return std::nullopt;
    putNormal(image, map.normal());
    return image;
}

Image paragraph(const TagList& tags, const Transform& map)
{
    const PlaneMap plane(map, normalOf(tags));
    if (!plane.isSound() || !plane.isSimilar()) return std::nullopt;
    TagList image = mapPoints(tags, {10}, map);
    const double turn = toRadians(tags.real(50));
    const Point along =
        tags.has(11)
            ? tags.point(11)
            : entityToWorld(normalOf(tags)).direction({std::cos(turn), std::sin(turn), 0.0});
    // A direction of its own outdoes the angle.
    const TagList::Iterator angle = image.find(50);
    if (angle != image.end()) image.erase(angle);
    const Point direction = map.direction(along);
    putPoint(image, 11, 1.0 / length(direction) * direction);
    for (const int code : {40, 41, 42, 43, 46})
        if (image.has(code)) putReal(image, code, tags.real(code) * plane.scale());
    putNormal(image, plane.normal());
    return image;
}

Image insert(const Record& record, const Transform& map)
{
    const TagList& tags = record.tags;
    const InsertView view = insertView(record);
    const PlaneMap plane(map, view.normal);
    if (!plane.isSound()) return std::nullopt;
    const double c = std::cos(view.rotation), s = std::sin(view.rotation);
    // Images of the axes of the block at scale 1.
    const Point x = plane.direction({c, s, 0.0}), y = plane.direction({-s, c, 0.0});
    double up = 1.0;
    const bool square = std::fabs(dot(x, y)) <= kMapNoise * length(x) * length(y);
    if (!square || !plane.alongNormal(up)) return std::nullopt;
    const double alongX = length(x), alongY = plane.isMirrored() ? -length(y) : length(y);

    TagList image = mapPoints(tags, {10}, plane);
    putReal(image, 41, view.scale.x * alongX);
    putReal(image, 42, view.scale.y * alongY);
    putReal(image, 43, view.scale.z * up);
    putReal(image, 50, turnDegrees(std::atan2(x.y, x.x)));
    if (view.columnSpacing != 0.0) putReal(image, 44, view.columnSpacing * alongX);
    if (view.rowSpacing != 0.0) putReal(image, 45, view.rowSpacing * alongY);
    putNormal(image, plane.normal());
    return image;
}

Image corners(const TagList& tags, const PlaneMap& map)
{
    TagList image = mapPoints(tags, {10, 11, 12, 13}, map);
    if (!putThickness(image, map)) return std::nullopt;
    putNormal(image, map.normal());
    return image;
}

Image spline(const TagList& tags, const Transform& map)
{
    TagList image;
    for (const Tag tag : tags) {
        const int code = tag.code();
        if (code == 10 || code == 11) image.addPoint(code, map(tag.point()));
        else if (code == 12 || code == 13) image.addPoint(code, map.direction(tag.point()));
        else image.add(tag);
    }
    if (tags.has(210)) {
        const PlaneMap plane(map, normalOf(tags));
        if (!plane.isSound()) return std::nullopt;
        putNormal(image, plane.normal());
    }
    return image;
}

Image leader(const TagList& tags, const Transform& map)
{
    TagList image = mapPoints(tags, {10}, map);
    for (const int code : {211, 212, 213})
        if (image.has(code)) putPoint(image, code, map.direction(tags.point(code)));
    const PlaneMap plane(map, normalOf(tags));
    if (!plane.isSound()) return std::nullopt;
    putNormal(image, plane.normal());
    return image;
}

constexpr std::int64_t kSpatial = 8, kMeshes = 16 | 64;
bool isPointwise(const TagList& polyline)
{
    return (polyline.integer(70) & (kSpatial | kMeshes)) != 0;
}

/// The head of a POLYLINE, whose vertices follow.
Image polylineHead(const TagList& tags, const PlaneMap& plane)
{
    if (isPointwise(tags)) return tags;
    TagList image = mapPoints(tags, {10}, [&](Point p) {
        return Point{0.0, 0.0, plane({0.0, 0.0, p.z}).z}; // the elevation
    });
    for (const int code : {40, 41})
        if (image.has(code)) putReal(image, code, tags.real(code) * plane.scale());
    if (!putThickness(image, plane)) return std::nullopt;
    putNormal(image, plane.normal());
    return image;
}

Image vertex(const TagList& tags, const TagList& head, const Transform& map, const PlaneMap& plane)
{
    if (isPointwise(head)) return mapPoints(tags, {10}, map);
    const bool round = std::ranges::any_of(std::initializer_list<int>{40, 41, 42},
                                           [&](int code) { return tags.real(code) != 0.0; });
    if (round && !plane.isSimilar()) return std::nullopt;
    const double elevation = head.point(10).z;
    TagList image = mapPoints(tags, {10}, [&](Point p) { return plane({p.x, p.y, elevation}); });
    for (const int code : {40, 41})
        if (image.has(code)) putReal(image, code, tags.real(code) * plane.scale());
    if (plane.isMirrored() && image.has(42)) putReal(image, 42, 0.0 - tags.real(42));
    if (image.has(50)) putReal(image, 50, turnDegrees(plane.angle(toRadians(tags.real(50)))));
    return image;
}

Image imageOf(const Record& record, const Transform& map, bool& known)
{
    const TagList& tags = record.tags;
    const PlaneMap plane(map, normalOf(tags));
    switch (record.kind()) {
    case Kind::line:
    case Kind::point: return straight(tags, map);
    case Kind::ray:
    case Kind::xline: return endless(tags, map);
    case Kind::ellipse: return ellipse(record, map);
    case Kind::face3d: return mapPoints(tags, {10, 11, 12, 13}, map);
    case Kind::spline: return spline(tags, map);
    case Kind::mtext: return paragraph(tags, map);
    case Kind::leader: return leader(tags, map);
    case Kind::insert: return insert(record, map);
    default: break;
    }
    if (!plane.isSound()) return std::nullopt;
    switch (record.kind()) {
    case Kind::circle:
    case Kind::arc: return round(record.kind(), tags, plane);
    case Kind::lwpolyline: return lwpolyline(tags, plane);
    case Kind::polyline: return polylineHead(tags, plane);
    case Kind::text:
    case Kind::attrib:
    case Kind::attdef: return lettering(tags, plane);
    case Kind::solid:
    case Kind::trace: return corners(tags, plane);
    case Kind::hatch: return hatchImage(tags, plane);
    default: known = false; return std::nullopt;
    }
}

/// Extended data with points and lengths that go along with their entity.
TagList extendedData(const TagList& tags, const Transform& map)
{
    const double volume = std::fabs(dot(cross(map.x, map.y), map.z));
    const double scale = std::cbrt(volume);
    TagList image;
    for (const Tag tag : tags) {
        switch (tag.code()) {
        case 1011: image.addPoint(1011, map(tag.point())); break;
        case 1012: image.addPoint(1012, map.direction(tag.point())); break;
        case 1013: {
            const Point direction = map.direction(tag.point());
            const double size = length(direction);
            image.addPoint(1013, size > 0.0 ? length(tag.point()) / size * direction : direction);
            break;
        }
        case 1041:
        case 1042: image.addReal(tag.code(), tag.real() * scale); break;
        default: image.add(tag);
        }
    }
    return image;
}

void setImage(Drawing& drawing, Index index, TagList&& tags, const Transform& map)
{
    Record& record = drawing.edit(index);
    record.tags = std::move(tags);
    if (record.extras() != nullptr && !record.extras()->xdata.empty())
        record.needExtras().xdata = extendedData(record.extras()->xdata, map);
}

} // namespace

Transformed transformEntity(Drawing& drawing, Index entity, const Transform& map)
{
    const Record& record = drawing.at(entity);
    bool known = true;
    const double volume = dot(cross(map.x, map.y), map.z);
    if (!std::isfinite(volume) || volume == 0.0) return Transformed::unsuitable;
    Image image = imageOf(record, map, known);
    if (!known) return Transformed::unknown;
    if (!image) return Transformed::unsuitable;

    std::vector<std::pair<Index, TagList>> parts;
    const PlaneMap plane(map, normalOf(record.tags));
    for (Index part = drawing.firstChild(entity); part != kNone; part = drawing.next(part)) {
        const Record& child = drawing.at(part);
        Image changed;
        if (child.kind() == Kind::vertex) changed = vertex(child.tags, record.tags, map, plane);
        else if (child.kind() == Kind::attrib) changed = imageOf(child, map, known);
        else continue;
        if (!changed) return Transformed::unsuitable;
        parts.emplace_back(part, std::move(*changed));
    }
    setImage(drawing, entity, std::move(*image), map);
    for (auto& [part, tags] : parts) setImage(drawing, part, std::move(tags), map);
    return Transformed::done;
}

} // namespace orvald::drawing
