// SPDX-License-Identifier: LicenseRef-ORVALD
// Boxes of entities. Curves count exactly: under any affine map an arc stays a conic whose extreme
// points are known. Inserts are followed into their blocks as long as a budget of entities lasts,
// then by the boxes of the blocks.
#include "drawing/views.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <unordered_map>

namespace orvald::drawing {
namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;
constexpr int kDeepest = 32;            // blocks within blocks; a circle of blocks ends here
constexpr std::size_t kBudget = 200000; // entities looked at in blocks, for one box

/// c + u cos t + v sin t for t from t0 to t1 >= t0.
void addConic(Box& box, const Transform& map, Point c, Point u, Point v, double t0, double t1)
{
    const Point centre = map(c), x = map.direction(u), y = map.direction(v);
    const auto at = [&](double t) { return centre + std::cos(t) * x + std::sin(t) * y; };
    box.add(at(t0));
    box.add(at(t1));
    for (const double extreme :
         {std::atan2(y.x, x.x), std::atan2(y.y, x.y), std::atan2(y.z, x.z)}) {
        for (const double t : {extreme, extreme + std::numbers::pi}) {
            const double turns = std::ceil((t0 - t) / kTurn); // to the first one at or behind t0
            if (t + turns * kTurn <= t1) box.add(at(t + turns * kTurn));
        }
    }
}

/// One segment of a polyline in entity coordinates.
void addSegment(Box& box, const Transform& map, Point p, Point q, double bulge)
{
    box.add(map(p));
    box.add(map(q));
    const double chord = std::hypot(q.x - p.x, q.y - p.y);
    if (bulge == 0.0 || chord == 0.0) return;
    // Centre left of the chord for bulges between 0 and 1.
    const double toCentre = (1.0 - bulge * bulge) / (4.0 * bulge);
    const Point middle = 0.5 * (p + q), along = q - p;
    const Point centre{middle.x - along.y * toCentre, middle.y + along.x * toCentre, p.z};
    const double radius = std::hypot(p.x - centre.x, p.y - centre.y);
    const double start = std::atan2(p.y - centre.y, p.x - centre.x);
    const double sweep = 4.0 * std::atan(bulge);
    addConic(box, map, centre, {radius, 0.0, 0.0}, {0.0, radius, 0.0},
             sweep > 0.0 ? start : start + sweep, sweep > 0.0 ? start + sweep : start);
}

void addPath(Box& box, const Transform& map, const std::vector<PolylineVertex>& vertices,
             bool closed, double z, bool spatial)
{
    const auto at = [&](std::size_t i) {
        const Point p = vertices[i].at;
        return spatial ? p : Point{p.x, p.y, z};
    };
    if (vertices.size() == 1) box.add(map(at(0)));
    const std::size_t count = closed ? vertices.size() : vertices.size() - 1;
    for (std::size_t i = 0; !vertices.empty() && i < count; ++i)
        addSegment(box, map, at(i), at((i + 1) % vertices.size()), vertices[i].bulge);
}

void addFrame(Box& box, const Transform& map, const TextFrame& frame)
{
    for (const Point corner : frame) box.add(map(corner));
}

class Walker
{
public:
    explicit Walker(const Drawing& drawing) : drawing_(drawing) {}

    void block(Box& box, Index blockRecord, const Transform& map, int depth)
    {
        for (Index child = drawing_.firstChild(blockRecord); child != kNone;
             child = drawing_.next(child))
            entity(box, child, map, depth);
    }

    void entity(Box& box, Index index, const Transform& map, int depth)
    {
        const Record& record = drawing_.at(index);
        if (record.erased) return;
        const auto plane = [&](Point normal) { return map.after(entityToWorld(normal)); };
        switch (record.kind()) {
        case Kind::line:
            for (const int code : {10, 11}) box.add(map(record.tags.point(code)));
            break;
        case Kind::point: box.add(map(record.tags.point(10))); break;
        case Kind::circle:
        case Kind::arc: {
            const ArcView arc = arcView(record);
            addConic(box, plane(arc.normal), arc.centre, {arc.radius, 0.0, 0.0},
                     {0.0, arc.radius, 0.0}, arc.start, arc.end);
            break;
        }
        case Kind::ellipse: {
            const EllipseView ellipse = ellipseView(record);
            const Point minor = ellipse.at(std::numbers::pi / 2) - ellipse.centre;
            addConic(box, map, ellipse.centre, ellipse.major, minor, ellipse.start, ellipse.end);
            break;
        }
        case Kind::lwpolyline:
        case Kind::polyline: {
            const PolylineView line = polylineView(drawing_, index);
            const bool points = line.spatial || line.mesh;
            addPath(box, points ? map : plane(line.normal), line.vertices,
                    line.closed && !line.mesh, line.elevation, points);
            break;
        }
        case Kind::text:
        case Kind::attrib:
        case Kind::attdef: {
            const TextView text = textView(record);
            if (!text.invisible) addFrame(box, plane(text.normal), textFrame(text));
            break;
        }
        case Kind::mtext: addFrame(box, map, mtextFrame(mtextView(record))); break;
        case Kind::solid:
        case Kind::trace:
        case Kind::face3d: {
            const SolidView solid = solidView(record);
            const Transform place = record.kind() == Kind::face3d ? map : plane(solid.normal);
            for (const Point corner : solid.corners) box.add(place(corner));
            break;
        }
        case Kind::hatch: hatch(box, record, map); break;
        case Kind::insert: insert(box, index, map, depth); break;
        case Kind::spline:
        case Kind::leader:
        case Kind::mline: // control and vertex points hold the curve
            for (const Tag tag : record.tags)
                if (tag.code() == 10 || tag.code() == 11) box.add(map(tag.point()));
            break;
        case Kind::dimension: {
            const Index drawn = drawing_.findRecord(TableId::blockRecord, record.tags.text(2));
            if (drawn != kNone) followBlock(box, drawn, map, depth);
            break;
        }
        default: break;
        }
    }

private:
    void hatch(Box& box, const Record& record, const Transform& outer)
    {
        const HatchView view = hatchView(record);
        Transform map = outer.after(entityToWorld(view.normal));
        map.origin = map({0.0, 0.0, view.elevation});
        for (const HatchPath& path : view.paths) {
            addPath(box, map, path.vertices, path.closed, 0.0, false);
            for (const HatchEdge& edge : path.edges) {
                const double low = std::min(edge.from, edge.to),
                             high = std::max(edge.from, edge.to);
                const Point turned{-edge.end.y, edge.end.x, 0.0};
                switch (edge.type) {
                case HatchEdge::Type::line: addSegment(box, map, edge.start, edge.end, 0.0); break;
                case HatchEdge::Type::arc:
                    addConic(box, map, edge.start, {edge.radius, 0.0, 0.0}, {0.0, edge.radius, 0.0},
                             low, high);
                    break;
                case HatchEdge::Type::ellipse:
                    addConic(box, map, edge.start, edge.end, edge.radius * turned, low, high);
                    break;
                case HatchEdge::Type::spline:
                    for (const Point p : edge.controls) box.add(map(p));
                    break;
                }
            }
        }
    }

    void insert(Box& box, Index index, const Transform& map, int depth)
    {
        const InsertView view = insertView(drawing_.at(index));
        const Index blockRecord = drawing_.findRecord(TableId::blockRecord, view.block);
        if (blockRecord != kNone && depth < kDeepest) {
            const Point base = blockBase(drawing_, blockRecord);
            // The corners of an array hold all of it.
            for (const int column : {0, view.columns - 1}) {
                for (const int row : {0, view.rows - 1}) {
                    followBlock(box, blockRecord, map.after(view.transform(base, column, row)),
                                depth);
                    if (view.rows == 1) break;
                }
                if (view.columns == 1) break;
            }
        }
        for (Index part = drawing_.firstChild(index); part != kNone; part = drawing_.next(part))
            if (drawing_.at(part).kind() == Kind::attrib) entity(box, part, map, depth);
    }

    void followBlock(Box& box, Index blockRecord, const Transform& map, int depth)
    {
        if (depth >= kDeepest) return;
        const Box* whole = known(blockRecord);
        if (whole == nullptr) {
            Index child = drawing_.firstChild(blockRecord);
            for (; child != kNone && budget_ != 0; child = drawing_.next(child)) {
                --budget_;
                entity(box, child, map, depth + 1);
            }
            if (child == kNone) return;
            whole = &boxOf(blockRecord, depth); // the budget is spent: by its box from here on
        }
        if (whole->empty()) return;
        const Point low = whole->min(), high = whole->max();
        for (const double x : {low.x, high.x})
            for (const double y : {low.y, high.y})
                for (const double z : {low.z, high.z}) box.add(map({x, y, z}));
    }
    const Box* known(Index blockRecord) const
    {
        const auto found = boxes_.find(blockRecord);
        return found == boxes_.end() ? nullptr : &found->second;
    }
    /// Box of a block in its own coordinates, made once.
    const Box& boxOf(Index blockRecord, int depth)
    {
        const auto [place, fresh] = boxes_.try_emplace(blockRecord);
        if (!fresh) return place->second; // also while it is being made: a block inside itself
        Box box;
        block(box, blockRecord, {}, depth + 1);
        return boxes_[blockRecord] = box;
    }

    const Drawing& drawing_;
    std::size_t budget_ = kBudget;
    std::unordered_map<Index, Box> boxes_; // of blocks, once the budget is spent
};

} // namespace

Box extents(const Drawing& drawing, Index entity)
{
    Box box;
    Walker(drawing).entity(box, entity, {}, 0);
    return box;
}

Box blockExtents(const Drawing& drawing, Index blockRecord)
{
    Box box;
    Walker(drawing).block(box, blockRecord, {}, 0);
    return box;
}

} // namespace orvald::drawing
