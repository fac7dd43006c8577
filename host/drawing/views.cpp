// SPDX-License-Identifier: LicenseRef-ORVALD
// Typed views of entities, read in one pass over their groups.
#include "drawing/views.h"

#include "angles.h"
#include "drawing/text.h"
#include "given.h"

#include <algorithm>
#include <cmath>

namespace orvald::drawing {
namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;

int held(std::int64_t value, int least, int most)
{
    return static_cast<int>(std::clamp<std::int64_t>(value, least, most));
}

/// `angle` moved by whole turns to the first one at or behind `start`.
double behind(double start, double angle)
{
    const double sweep = std::fmod(angle - start, kTurn);
    return start + (sweep < 0.0 ? sweep + kTurn : sweep);
}

} // namespace

LineView lineView(const Record& record) { return {record.tags.point(10), record.tags.point(11)}; }

ArcView arcView(const Record& record)
{
    ArcView view;
    view.centre = record.tags.point(10);
    view.radius = record.tags.real(40);
    view.normal = record.tags.point(210, view.normal);
    if (record.kind() == Kind::arc) {
        view.start = toRadians(record.tags.real(50));
        view.end = behind(view.start, toRadians(record.tags.real(51)));
        if (view.end == view.start) view.end += kTurn;
    } else {
        view.end = kTurn;
    }
    return view;
}

EllipseView ellipseView(const Record& record)
{
    EllipseView view;
    view.centre = record.tags.point(10);
    view.major = record.tags.point(11);
    view.normal = record.tags.point(210, view.normal);
    view.ratio = record.tags.real(40, 1.0);
    view.start = record.tags.real(41);
    const double end = record.tags.real(42, kTurn);
    view.end = behind(view.start, end);
    if (view.end == view.start) view.end += kTurn;
    return view;
}

Point EllipseView::at(double parameter) const
{
    const double size = length(normal);
    const Point unit = size > 0.0 ? 1.0 / size * normal : Point{0.0, 0.0, 1.0};
    const Point minor = ratio * cross(unit, major);
    return centre + std::cos(parameter) * major + std::sin(parameter) * minor;
}

PolylineView lwpolylineView(const Record& record)
{
    PolylineView view;
    double width = 0.0;
    for (const Tag tag : record.tags) {
        PolylineVertex* last = view.vertices.empty() ? nullptr : &view.vertices.back();
        switch (tag.code()) {
        case 70: view.closed = (tag.integer() & 1) != 0; break;
        case 38: view.elevation = tag.real(); break;
        case 43: width = tag.real(); break;
        case 210: view.normal = tag.point(); break;
        case 10: view.vertices.push_back({tag.point(), 0.0, width, width}); break;
        case 40:
            if (last != nullptr) last->startWidth = tag.real();
            break;
        case 41:
            if (last != nullptr) last->endWidth = tag.real();
            break;
        case 42:
            if (last != nullptr) last->bulge = tag.real();
            break;
        default: break;
        }
    }
    return view;
}

PolylineView polylineView(const Drawing& drawing, Index index)
{
    const Record& record = drawing.at(index);
    if (record.kind() == Kind::lwpolyline) return lwpolylineView(record);
    PolylineView view;
    const std::int64_t flags = record.tags.integer(70);
    view.closed = (flags & 1) != 0;
    view.spatial = (flags & 8) != 0;
    view.mesh = (flags & (16 | 64)) != 0;
    view.elevation = record.tags.point(10).z;
    view.normal = record.tags.point(210, view.normal);
    const double start = record.tags.real(40), end = record.tags.real(41);
    for (Index part = drawing.firstChild(index); part != kNone; part = drawing.next(part)) {
        const Record& vertex = drawing.at(part);
        constexpr std::int64_t kSplineFrame = 16; // control points are not on the line
        if (vertex.kind() != Kind::vertex || vertex.erased ||
            (vertex.tags.integer(70) & kSplineFrame) != 0)
            continue;
        view.vertices.push_back({vertex.tags.point(10), view.spatial ? 0.0 : vertex.tags.real(42),
                                 vertex.tags.real(40, start), vertex.tags.real(41, end)});
    }
    return view;
}

TextView textView(const Record& record)
{
    TextView view;
    const TagList& tags = record.tags;
    view.text = text8(tags.text(1));
    view.insert = tags.point(10);
    view.align = tags.point(11);
    view.height = tags.real(40);
    view.rotation = toRadians(tags.real(50));
    view.widthFactor = tags.real(41, 1.0);
    view.oblique = toRadians(tags.real(51));
    view.horizontal = held(tags.integer(72), 0, 5);
    view.vertical = held(tags.integer(record.kind() == Kind::text ? 73 : 74), 0, 3);
    const std::int64_t generation = tags.integer(71);
    view.backward = (generation & 2) != 0;
    view.upsideDown = (generation & 4) != 0;
    view.invisible = record.kind() != Kind::text && (tags.integer(70) & 1) != 0;
    view.style = tags.text(7, "Standard");
    view.normal = tags.point(210, view.normal);
    return view;
}

MTextView mtextView(const Record& record)
{
    MTextView view;
    const TagList& tags = record.tags;
    view.text = utf8(mtextOf(tags));
    view.insert = tags.point(10);
    view.height = tags.real(40);
    view.width = tags.real(41);
    view.rotation = toRadians(tags.real(50));
    if (tags.has(11)) {
        const Point direction = tags.point(11);
        view.rotation = std::atan2(direction.y, direction.x);
    }
    view.lineSpacing = tags.real(44, 1.0);
    view.attachment = held(tags.integer(71, 1), 1, 9);
    view.exactSpacing = tags.integer(73, 1) == 2;
    view.style = tags.text(7, "Standard");
    view.normal = tags.point(210, view.normal);
    return view;
}

InsertView insertView(const Record& record)
{
    InsertView view;
    const TagList& tags = record.tags;
    view.block = tags.text(2);
    view.insert = tags.point(10);
    view.scale = {tags.real(41, 1.0), tags.real(42, 1.0), tags.real(43, 1.0)};
    view.rotation = toRadians(tags.real(50));
    constexpr int kMost = 32767;
    view.columns = held(tags.integer(70, 1), 1, kMost);
    view.rows = held(tags.integer(71, 1), 1, kMost);
    view.columnSpacing = tags.real(44);
    view.rowSpacing = tags.real(45);
    view.normal = tags.point(210, view.normal);
    return view;
}

Transform InsertView::transform(Point base, int column, int row) const
{
    const double c = std::cos(rotation), s = std::sin(rotation);
    const Transform turn{{c, s, 0.0}, {-s, c, 0.0}, {0.0, 0.0, 1.0}, {}};
    const Point cell{column * columnSpacing, row * rowSpacing, 0.0};
    Transform placed;
    placed.x = scale.x * turn.x;
    placed.y = scale.y * turn.y;
    placed.z = scale.z * turn.z;
    placed.origin = insert + turn.direction(cell) - placed.direction(base);
    return entityToWorld(normal).after(placed);
}

SolidView solidView(const Record& record)
{
    SolidView view;
    for (int i = 0; i < 4; ++i) view.corners[i] = record.tags.point(10 + i);
    if (!record.tags.has(13)) view.corners[3] = view.corners[2];
    if (record.kind() == Kind::face3d) {
        view.hiddenEdges = held(record.tags.integer(70) & 15, 0, 15);
    } else {
        std::swap(view.corners[2], view.corners[3]); // the file crosses the last two
        view.normal = record.tags.point(210, view.normal);
    }
    return view;
}

Point blockBase(const Drawing& drawing, Index blockRecord)
{
    const Extras* extras = drawing.at(blockRecord).extras();
    if (extras == nullptr || extras->blockBegin == kNone) return {};
    return drawing.at(extras->blockBegin).tags.point(10);
}

} // namespace orvald::drawing
