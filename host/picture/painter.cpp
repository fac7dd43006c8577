// SPDX-License-Identifier: LicenseRef-ORVALD
// The walk itself: blocks in blocks, and what all shapes share on their way to the canvas.
#include "painter.h"

#include "dashes.h"
#include "draw_order.h"
#include "drawing/text.h"

#include <algorithm>
#include <cmath>

namespace orvald::picture {

using drawing::Index;
using drawing::Kind;
using drawing::Record;
using drawing::Transform;

namespace {

constexpr double kThinnest = 1.0;           // pixels
constexpr double kDot = 1.5;                // length of a dot in a line, in widths of the pen
constexpr std::size_t kMostNesting = 100;   // inserts in inserts
constexpr std::size_t kMostMarks = 100'000; // of one line's texts and signs
constexpr double kLengthTolerance = 0.1;    // pixels, of the chords that a length is measured by

} // namespace

Painter::Painter(const drawing::Drawing& drawing, const Options& options, const View* view,
                 Canvas& canvas, Summary& summary)
    : drawing_(drawing),
      view_(view),
      canvas_(canvas),
      summary_(summary),
      looks_(drawing, options.background),
      stepsLeft_(options.mostSteps)
{
}

bool Painter::spend(std::size_t steps)
{
    if (steps > stepsLeft_) {
        stepsLeft_ = 0;
        summary_.complete = false;
        return false;
    }
    stepsLeft_ -= steps;
    return true;
}

void Painter::space(Index blockRecord)
{
    Place place;
    if (view_ != nullptr) place.map = view_->map;
    summary_.entities = 0;
    for (Index child = drawing_.firstChild(blockRecord); child != drawing::kNone;
         child = drawing_.next(child))
        summary_.entities += drawing_.at(child).erased ? 0 : 1;
    block(blockRecord, place);
}

void Painter::block(Index blockRecord, const Place& place)
{
    // A block that holds itself shows nothing there.
    if (open_.size() >= kMostNesting ||
        std::find(open_.begin(), open_.end(), blockRecord) != open_.end())
        return;
    open_.push_back(blockRecord);
    auto order = orders_.find(blockRecord);
    if (order == orders_.end())
        order = orders_.emplace(blockRecord, drawOrder(drawing_, blockRecord)).first;
    if (order->second.empty()) {
        for (Index child = drawing_.firstChild(blockRecord); child != drawing::kNone && spend(1);
             child = drawing_.next(child))
            entity(child, place);
    }
    for (const Index child : order->second)
        if (spend(1)) entity(child, place);
    open_.pop_back();
}

void Painter::entity(Index index, const Place& place)
{
    const Record& record = drawing_.at(index);
    if (record.erased || !record.isMainEntity()) return;
    const Look look = looks_.of(record, place.block);
    if (record.kind() == Kind::insert) return insert(index, look, place);
    if (record.kind() == Kind::viewport) return viewport(index, look, place);
    if (look.hidden()) return;
    switch (record.kind()) {
    case Kind::line: return line(record, look, place);
    case Kind::point: return point(record, look, place);
    case Kind::ray:
    case Kind::xline: return endless(record, look, place);
    case Kind::circle:
    case Kind::arc: return circle(record, look, place);
    case Kind::ellipse: return ellipse(record, look, place);
    case Kind::spline: return spline(record, look, place);
    case Kind::leader: return leader(record, look, place);
    case Kind::lwpolyline:
    case Kind::polyline: return polyline(index, look, place);
    case Kind::solid:
    case Kind::trace: return solid(record, look, place);
    case Kind::face3d: return face(record, look, place);
    case Kind::hatch: return hatch(record, look, place);
    case Kind::mline: return mline(record, look, place);
    case Kind::tolerance: return tolerance(record, look, place);
    case Kind::text: return text(record, look, place);
    case Kind::mtext: return mtext(record, look, place);
    case Kind::attdef: return attributeDefinition(record, look, place);
    case Kind::dimension: return dimension(record, look, place);
    default: return other(record, look, place);
    }
}

// Kinds that nobody but pictures asks for by name.
void Painter::other(const Record& record, const Look& look, const Place& place)
{
    using Draw = void (Painter::*)(const Record&, const Look&, const Place&);
    static constexpr std::pair<std::string_view, Draw> kDraws[] = {
        {"ACAD_TABLE", &Painter::table},
        {"ARC_DIMENSION", &Painter::dimension},
        {"HELIX", &Painter::spline},
        {"IMAGE", &Painter::image},
        {"LARGE_RADIAL_DIMENSION", &Painter::dimension},
        {"MESH", &Painter::net},
        {"MULTILEADER", &Painter::multiLeader},
        {"WIPEOUT", &Painter::image},
    };
    const std::string_view type = record.typeName();
    for (const auto& [name, draw] : kDraws)
        if (name == type) return (this->*draw)(record, look, place);
    if (view_ != nullptr) ++summary_.notDrawn[std::string(type)];
}

void Painter::insert(Index index, const Look& look, const Place& place)
{
    // An insert on a layer that is off hides only what follows its layer; a frozen one hides all.
    if (look.invisible || look.frozen) return;
    const drawing::InsertView view = drawing::insertView(drawing_.at(index));
    const Index inner = drawing_.findRecord(drawing::TableId::blockRecord, view.block);
    if (inner != drawing::kNone) {
        const drawing::Point base = drawing::blockBase(drawing_, inner);
        for (int row = 0; row < std::max(view.rows, 1); ++row) {
            for (int column = 0; column < std::max(view.columns, 1); ++column) {
                if (!spend(1)) return;
                const Transform map = place.map.after(view.transform(base, column, row));
                const bool clipped = clipInsert(index, map);
                block(inner, {map, &look});
                if (clipped) closeClip();
            }
        }
    }
    for (Index part = drawing_.firstChild(index); part != drawing::kNone && spend(1);
         part = drawing_.next(part)) {
        const Record& record = drawing_.at(part);
        if (record.erased || record.kind() != Kind::attrib) continue;
        const Look own = looks_.of(record, &look);
        if (!own.hidden()) text(record, own, place);
    }
}

void Painter::attributeDefinition(const Record& record, const Look& look, const Place& place)
{
    constexpr std::int64_t kConstant = 2;
    if (place.attributes != nullptr) {
        const auto found = place.attributes->find(record.handle);
        if (found != place.attributes->end()) return text(record, look, place, &found->second);
    }
    // In an insert its place is taken by the insert's own attribute, unless it is constant.
    if (place.block == nullptr || (record.tags.integer(70) & kConstant) != 0)
        text(record, look, place);
}

void Painter::table(const Record& record, const Look& look, const Place& place)
{
    const drawing::TagList& tags = record.tags;
    const Index inner = drawing_.findRecord(drawing::TableId::blockRecord, tags.text(2));
    if (inner == drawing::kNone) return;
    drawing::InsertView insert;
    insert.insert = tags.point(10);
    const drawing::Point along = tags.point(11, {1.0, 0.0, 0.0});
    insert.rotation = std::atan2(along.y, along.x);
    block(inner, {place.map.after(insert.transform(drawing::blockBase(drawing_, inner))), &look});
}

void Painter::overlay(const std::vector<OverlaySegment>& segments)
{
    Place place;
    if (view_ != nullptr) place.map = view_->map;
    static const LineType kDashed{{6.0, -4.0}, {}}; // pixels
    static const Layer kNoLayer{};
    for (const OverlaySegment& segment : segments) {
        if (!spend(1)) return;
        Look look;
        look.layer = &kNoLayer;
        look.colour = numberedColour(segment.colour, looks_.background());
        if (segment.dashed) look.lineType = &kDashed;
        path_.clear();
        path_.moveTo(flat(place.map({segment.from[0], segment.from[1], segment.from[2]})));
        path_.lineTo(flat(place.map({segment.to[0], segment.to[1], segment.to[2]})));
        stroke(path_, look, 1.0);
    }
}

Affine Painter::planeOf(const Transform& map, drawing::Point normal, double elevation)
{
    const Transform plane = map.after(drawing::entityToWorld(normal));
    return {flat(plane.x), flat(plane.y), flat(plane({0.0, 0.0, elevation}))};
}

double Painter::scaleOf(const Transform& map)
{
    return std::sqrt(std::abs(cross(flat(map.x), flat(map.y))));
}

double Painter::penWidth(const Look& look) const
{
    if (view_ == nullptr) return 0.0;
    return std::max(look.weight / 100.0 * view_->pixelsPerMillimetre, kThinnest);
}

void Painter::stroke(const Path& path, const Look& look, double scale)
{
    strokeWith(path, look, scale, {penWidth(look), Ends::round, nullptr});
}

void Painter::strokeWide(const Path& path, const Look& look, double scale, double width)
{
    strokeWith(path, look, scale, {std::max(width, penWidth(look)), Ends::sharp, nullptr});
}

void Painter::strokeWith(const Path& path, const Look& look, double scale, Pen pen)
{
    if (path.empty() || !path.isDrawable() || !(pen.width < Path::kFar)) return;
    const LineType* type = view_ != nullptr ? look.lineType : nullptr;
    const double unit = scale * look.dashScale * lineTypeFactor_; // pixels of one of the pattern's
    std::size_t count = 0;
    Fit fit = Fit::none;
    if (type != nullptr) {
        double size = 0.0;
        count = flatten(path, kLengthTolerance, runs_);
        for (std::size_t r = 0; r < count; ++r) {
            const std::vector<Vec>& points = runs_[r].points;
            for (std::size_t i = 0; i + (runs_[r].closed ? 0 : 1) < points.size(); ++i)
                size += length(points[(i + 1) % points.size()] - points[i]);
        }
        const bool hasEnds = count == 1 && !runs_[0].closed;
        fit = fitDashes(type->lengths, unit, size, hasEnds, kDot * pen.width, dashes_);
        if (fit == Fit::dashed) pen.dashes = &dashes_;
    }
    canvas_.stroke(path, {look.colour, look.layer->name}, pen);
    if (fit != Fit::none && !type->marks.empty()) lineMarks(*type, unit, count, look);
}

// Texts and signs along the first runs of runs_, in the pattern as dashes_ was fitted.
void Painter::lineMarks(const LineType& type, double unit, std::size_t runs, const Look& look)
{
    std::vector<MarkPlace> places;
    for (std::size_t r = 0; r < runs; ++r) {
        places.clear();
        if (!markPlaces(runs_[r], dashes_, type, view_->page(), std::min(stepsLeft_, kMostMarks),
                        places))
            summary_.complete = false;
        for (const MarkPlace& place : places) {
            if (!spend(1)) return;
            const LineMark& mark = *place.mark;
            // The page's y runs downwards.
            const Vec along = unit * place.along, left{along.y, -along.x};
            const Affine line{along, left, place.at};
            const double turn = mark.upright ? mark.turn + std::atan2(along.y, along.x) : mark.turn;
            const double c = std::cos(turn), s = std::sin(turn);
            const Affine upon = line.after({{c, s}, {-s, c}, {mark.x, mark.y}});
            if (mark.sign != nullptr) {
                path_.clear();
                path_.addMapped(*mark.sign, upon.after({{mark.scale, 0.0}, {0.0, mark.scale}, {}}));
                if (!path_.isDrawable()) continue;
                canvas_.stroke(path_, {look.colour, look.layer->name},
                               {penWidth(look), Ends::round, nullptr});
                continue;
            }
            LetterLook letterLook;
            letterLook.height = mark.height;
            letterLook.widthFactor = mark.widthFactor;
            letterLook.oblique = std::clamp(mark.oblique, -1.4, 1.4);
            letters(singleLine(mark.text, letterLook), upon, look, nullptr);
        }
    }
}

void Painter::fill(const Path& path, const Look& look, FillRule rule)
{
    if (path.empty() || !path.isDrawable()) return;
    canvas_.fill(path, {look.colour, look.layer->name}, rule);
}

} // namespace orvald::picture
