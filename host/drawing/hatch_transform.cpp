// SPDX-License-Identifier: LicenseRef-ORVALD
// A HATCH's groups mean what the groups in front of them say: head, boundary paths, pattern.
#include "hatch_transform.h"

#include "angles.h"

#include <algorithm>

namespace orvald::drawing {
namespace {

class HatchImage
{
public:
    HatchImage(const PlaneMap& map, double elevation) : map_(map), elevation_(elevation) {}

    void take(Tag tag)
    {
        if (tag.code() == 75) place_ = Place::pattern;
        else if (tag.code() == 92) place_ = Place::path;
        switch (place_) {
        case Place::head: head(tag); break;
        case Place::path: path(tag); break;
        case Place::pattern: pattern(tag); break;
        }
    }
    TagList image() && { return std::move(image_); }

private:
    enum class Place
    {
        head,
        path,
        pattern
    };
    enum EdgeType
    {
        kArc = 2,
        kEllipse = 3
    };

    void point(Tag tag)
    {
        const Point p = tag.point();
        image_.addPoint(tag.code(), map_({p.x, p.y, elevation_}), tag.kind() == TagKind::point2);
    }
    void direction(Tag tag)
    {
        image_.addPoint(tag.code(), map_.direction(tag.point()), tag.kind() == TagKind::point2);
    }
    void length(Tag tag) { image_.addReal(tag.code(), tag.real() * map_.scale()); }
    void degrees(Tag tag)
    {
        image_.addReal(tag.code(), toDegrees(map_.angle(toRadians(tag.real()))));
    }

    void head(Tag tag)
    {
        if (tag.code() == 10) image_.addPoint(10, {0.0, 0.0, map_({0.0, 0.0, elevation_}).z});
        else if (tag.code() == 210) image_.addPoint(210, map_.normal());
        else image_.add(tag);
    }

    void path(Tag tag)
    {
        switch (tag.code()) {
        case 92:
            isPolyline_ = (tag.integer() & 2) != 0;
            edge_ = 0;
            image_.add(tag);
            break;
        case 72:
            edge_ = isPolyline_ ? 0 : tag.integer();
            image_.add(tag);
            break;
        case 10: point(tag); break;
        case 11:
            if (edge_ == kEllipse) direction(tag);
            else point(tag);
            break;
        case 12:
        case 13: direction(tag); break;
        case 40:
            if (edge_ == kArc) length(tag);
            else image_.add(tag);
            break;
        case 42:
            if (isPolyline_ && map_.isMirrored()) image_.addReal(42, 0.0 - tag.real());
            else image_.add(tag);
            break;
        case 50:
        case 51:
            // The sense follows in 73: until then they are kept.
            if (edge_ == kArc) angles_[tag.code() - 50] = tag.real();
            else image_.add(tag);
            break;
        case 73: sense(tag); break;
        default: image_.add(tag);
        }
    }

    /// The running sense of an arc or an ellipse; whether a polyline is closed, whether a spline is
    /// rational. Angles of clockwise edges are kept mirrored at the X axis.
    void sense(Tag tag)
    {
        if (edge_ != kArc && edge_ != kEllipse) return image_.add(tag);
        const bool forward = tag.integer() != 0;
        const bool forwardImage = forward != map_.isMirrored();
        if (edge_ == kArc) {
            const double start = toRadians(forward ? angles_[0] : -angles_[0]);
            const double mapped = toDegrees(map_.angle(start));
            const double from = forwardImage ? mapped : -mapped;
            image_.addReal(50, from);
            image_.addReal(51, from + (angles_[1] - angles_[0]));
        }
        image_.addInteger(73, forwardImage ? 1 : 0);
    }

    void pattern(Tag tag)
    {
        switch (tag.code()) {
        case 10: point(tag); break; // seeds
        case 41:
        case 47:
        case 49: length(tag); break;
        case 52:
        case 53: degrees(tag); break;
        case 43:
        case 45: x_ = tag.real(); break; // its y follows
        case 44: pair(43, map_({x_, tag.real(), elevation_})); break;
        case 46: pair(45, map_.direction({x_, tag.real(), 0.0})); break;
        case 460: image_.addReal(460, map_.angle(tag.real())); break;
        default: image_.add(tag);
        }
    }
    void pair(int code, Point p)
    {
        image_.addReal(code, p.x);
        image_.addReal(code + 1, p.y);
    }

    const PlaneMap& map_;
    double elevation_;
    TagList image_;
    Place place_ = Place::head;
    bool isPolyline_ = false;
    std::int64_t edge_ = 0;
    double angles_[2] = {0.0, 0.0};
    double x_ = 0.0;
};

} // namespace

std::optional<TagList> hatchImage(const TagList& tags, const PlaneMap& map)
{
    if (!map.isSimilar()) return std::nullopt;
    HatchImage writer(map, tags.point(10).z);
    for (const Tag tag : tags) writer.take(tag);
    TagList image = std::move(writer).image();
    if (!image.has(210) && map.normal() != Point{0.0, 0.0, 1.0}) {
        TagList normal;
        normal.addPoint(210, map.normal());
        image.insert(std::next(image.find(10)), normal);
    }
    return image;
}

} // namespace orvald::drawing
