// SPDX-License-Identifier: LicenseRef-ORVALD
#include "outline.h"

#include "drawing/views.h"

#include <algorithm>
#include <cmath>

namespace orvald::drawing {
namespace {

constexpr std::size_t kDeepest = 32;    // blocks within blocks; a circle of blocks ends here
constexpr std::size_t kBudget = 200000; // entities in blocks, for one main entity
constexpr double kMostChords = 4096.0;
constexpr double kFar = 1e7; // half of what is told of an endless line

int chordCount(double wanted)
{
    if (!(wanted > 1.0)) return 1; // also for not-a-number
    return static_cast<int>(std::ceil(std::min(wanted, kMostChords)));
}

} // namespace

bool isSeen(const Drawing& drawing, const Record& record)
{
    if (record.erased || record.tags.integer(60) != 0) return false;
    const Index layer = drawing.findRecord(TableId::layer, record.layer());
    if (layer == kNone) return true;
    constexpr std::int64_t kFrozen = 1;
    const TagList& tags = drawing.at(layer).tags;
    return (tags.integer(70) & kFrozen) == 0 && tags.integer(62, 7) >= 0; // negative: off
}

bool Outline::walk(Index entity, const Visitor& visitor)
{
    visitor_ = &visitor;
    map_ = {};
    inserts_.clear();
    budget_ = kBudget;
    return follow(entity);
}

bool Outline::tell(OutlinePath path)
{
    const Transform map = toView_.after(map_);
    for (Point& point : path.points) point = map(point);
    return (*visitor_)(path);
}

void Outline::chords(const CurvePiece& piece, std::vector<Point>& points) const
{
    if (std::isinf(piece.from) || std::isinf(piece.to)) {
        points.push_back(piece.at(std::max(piece.from, -kFar)).at);
        points.push_back(piece.at(std::min(piece.to, kFar)).at);
        return;
    }
    // A chord over an angle a of radius r leaves r a^2 / 8; a free curve is taken by its length.
    double wanted = 1.0;
    if (const auto* conic = std::get_if<ConicPiece>(&piece.form)) {
        const double radius = std::max(length(conic->u), length(conic->v));
        const double sweep = std::fabs(conic->rate) * (piece.to - piece.from);
        wanted = std::max(8.0 * sweep, sweep * std::sqrt(radius / (8.0 * tolerance_)));
    } else if (const auto* bezier = std::get_if<BezierPiece>(&piece.form)) {
        const double way = piece.length(piece.from, piece.to);
        wanted = 4.0 * static_cast<double>(bezier->points.size()) + std::sqrt(way / tolerance_);
    }
    const int count = chordCount(wanted);
    if (points.empty()) points.push_back(piece.at(piece.from).at);
    for (int i = 1; i <= count; ++i)
        points.push_back(piece.at(piece.from + (piece.to - piece.from) * i / count).at);
}

bool Outline::curve(const Curve& curve)
{
    OutlinePath path;
    path.endless = std::isinf(curve.start()) || std::isinf(curve.end());
    for (const CurvePiece& piece : curve.pieces()) chords(piece, path.points);
    return tell(std::move(path));
}

bool Outline::corners(std::span<const Point> points, const Transform& map)
{
    OutlinePath path;
    path.area = true;
    for (const Point point : points) path.points.push_back(map(point));
    return tell(std::move(path));
}

bool Outline::mesh(Index index)
{
    for (const PolylineVertex& vertex : polylineView(drawing_, index).vertices)
        if (!tell({{vertex.at}})) return false;
    return true;
}

bool Outline::box(Index index)
{
    const Box box = extents(drawing_, index);
    if (box.empty()) return true;
    const Point low = box.min(), high = box.max();
    return tell({{low, {high.x, low.y, low.z}, high, {low.x, high.y, high.z}, low}});
}

bool Outline::block(Index blockRecord, const Transform& placed)
{
    if (inserts_.size() >= kDeepest) return true;
    const Transform outer = std::exchange(map_, map_.after(placed));
    bool go = true;
    for (Index child = drawing_.firstChild(blockRecord); go && child != kNone && budget_ != 0;
         child = drawing_.next(child)) {
        --budget_;
        if (isSeen(drawing_, drawing_.at(child))) go = follow(child);
    }
    if (go) map_ = outer; // else it tells where the walk has ended
    return go;
}

bool Outline::insert(Index index)
{
    const InsertView view = insertView(drawing_.at(index));
    for (Index part = drawing_.firstChild(index); part != kNone; part = drawing_.next(part))
        if (drawing_.at(part).kind() == Kind::attrib && isSeen(drawing_, drawing_.at(part)) &&
            !follow(part))
            return false;
    const Index blockRecord = drawing_.findRecord(TableId::blockRecord, view.block);
    if (blockRecord == kNone) return true;
    const Point base = blockBase(drawing_, blockRecord);
    inserts_.push_back(index);
    bool go = true;
    for (int column = 0; go && column < view.columns && budget_ != 0; ++column)
        for (int row = 0; go && row < view.rows && budget_ != 0; ++row) {
            --budget_; // an array of an empty block ends as well
            go = block(blockRecord, view.transform(base, column, row));
        }
    if (go) inserts_.pop_back();
    return go;
}

bool Outline::follow(Index index)
{
    const Record& record = drawing_.at(index);
    part_ = index;
    switch (record.kind()) {
    case Kind::insert: return insert(index);
    case Kind::dimension: {
        const Index drawn = drawing_.findRecord(TableId::blockRecord, record.tags.text(2));
        if (drawn == kNone) return true;
        inserts_.push_back(index);
        const bool go = block(drawn, {});
        if (go) inserts_.pop_back();
        return go;
    }
    case Kind::text:
    case Kind::attrib:
    case Kind::attdef: {
        const TextView text = textView(record);
        if (text.invisible) return true;
        const bool only = record.kind() == Kind::attdef && !inserts_.empty();
        return only || corners(textFrame(text), entityToWorld(text.normal));
    }
    case Kind::mtext: return corners(mtextFrame(mtextView(record)), {});
    case Kind::solid:
    case Kind::trace:
    case Kind::face3d: {
        const SolidView solid = solidView(record);
        return corners(solid.corners,
                       record.kind() == Kind::face3d ? Transform{} : entityToWorld(solid.normal));
    }
    case Kind::point: return tell({{record.tags.point(10)}});
    case Kind::polyline:
        if (polylineView(drawing_, index).mesh) return mesh(index);
        break;
    default: break;
    }
    const std::optional<Curve> known = Curve::of(drawing_, index);
    return known ? curve(*known) : box(index);
}

} // namespace orvald::drawing
