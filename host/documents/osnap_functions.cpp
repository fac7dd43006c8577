// SPDX-License-Identifier: LicenseRef-ORVALD
// The point of an object that a user would have snapped to. In the user's plane; curves at the top
// of the drawing and points of inserts and texts count, the inside of blocks does not.
#include "coordinate_systems.h"
#include "document.h"
#include "drawing/curve.h"
#include "drawing_functions.h"
#include "entity_list.h"
#include "osnap.h"
#include "screen_picking.h"
#include "text/letters.h"

#include <cmath>
#include <limits>
#include <numbers>

namespace orvald {
namespace {

using drawing::Curve;
using drawing::CurvePiece;
using drawing::Jet;
using drawing::Point;
using lisp::Args;
using lisp::Value;
using lisp::World;

enum Mode : SnapModes
{
    kEnd = 1,
    kMiddle = 2,
    kCentre = 4,
    kNode = 8,
    kQuadrant = 16,
    kIntersection = 32,
    kInsertion = 64,
    kPerpendicular = 128,
    kNearest = 256
};

struct ModeName
{
    std::u16string_view start; // of the word, three letters
    SnapModes mode;
};
constexpr ModeName kModes[] = {
    {u"END", kEnd},       {u"MID", kMiddle},        {u"CEN", kCentre},
    {u"NOD", kNode},      {u"QUA", kQuadrant},      {u"INT", kIntersection},
    {u"INS", kInsertion}, {u"PER", kPerpendicular}, {u"NEA", kNearest}};

/// The candidates of one call, of which the nearest to the place wins.
class Snapping
{
public:
    Snapping(Point place, Point last, double reach) : place_(place), last_(last), reach_(reach) {}

    void offer(Point candidate)
    {
        const double distance = std::hypot(candidate.x - place_.x, candidate.y - place_.y);
        if (distance > least_) return;
        least_ = distance;
        best_ = candidate;
    }
    void offerNear(Point candidate)
    {
        if (std::hypot(candidate.x - place_.x, candidate.y - place_.y) <= reach_) offer(candidate);
    }

    void curve(const Curve& curve, SnapModes modes)
    {
        for (const CurvePiece& piece : curve.pieces()) this->piece(piece, modes);
        if ((modes & kNearest) != 0) offer(curve.nearest(place_, false));
        if ((modes & kPerpendicular) != 0) offer(curve.nearest(last_, true));
    }

    /// Newton's steps from the places that are nearest to the one asked for.
    void crossing(const Curve& a, const Curve& b)
    {
        auto t = a.parameterOf(a.nearest(place_, false));
        auto u = b.parameterOf(b.nearest(place_, false));
        constexpr int kSteps = 30;
        constexpr double kMeeting = 1e-9;
        for (int step = 0; t && u && step < kSteps; ++step) {
            const auto p = a.at(*t), q = b.at(*u);
            if (!p || !q) return;
            const Point gap = q->at - p->at;
            if (std::hypot(gap.x, gap.y) <= kMeeting * std::max(1.0, reach_))
                return offerNear(p->at);
            const double along = p->first.y * q->first.x - p->first.x * q->first.y;
            if (along == 0.0) return;
            *t += (q->first.x * gap.y - q->first.y * gap.x) / along;
            *u += (p->first.x * gap.y - p->first.y * gap.x) / along;
        }
    }

    bool found() const { return std::isfinite(least_); }
    Point best() const { return best_; }

private:
    void piece(const CurvePiece& piece, SnapModes modes)
    {
        const bool hasEnds = !std::isinf(piece.from) && !std::isinf(piece.to);
        if (hasEnds && (modes & kEnd) != 0) {
            offer(piece.at(piece.from).at);
            offer(piece.at(piece.to).at);
        }
        if (hasEnds && (modes & kMiddle) != 0)
            offer(piece.at(piece.parameterAt(0.5 * piece.length(piece.from, piece.to))).at);
        const auto* conic = std::get_if<drawing::ConicPiece>(&piece.form);
        if (conic == nullptr) return;
        if ((modes & kCentre) != 0) offer(conic->centre);
        if ((modes & kQuadrant) == 0) return;
        const double low =
            std::min(conic->angle, conic->angle + conic->rate * (piece.to - piece.from));
        const double high = low + std::fabs(conic->rate) * (piece.to - piece.from);
        constexpr double kQuarter = std::numbers::pi / 2, kRounding = 1e-9;
        for (double a = std::ceil(low / kQuarter - kRounding) * kQuarter; a <= high + kRounding;
             a += kQuarter)
            offer(conic->centre + std::cos(a) * conic->u + std::sin(a) * conic->v);
    }

    Point place_, last_;
    double reach_;
    double least_ = std::numeric_limits<double>::infinity();
    Point best_;
};

// (osnap point modes) -> point or nil
Value osnap(World& world, Args args)
{
    const std::optional<SnapModes> modes = readSnapModes(args.string(1));
    if (!modes) return Value::nil();
    const Args::Point place = args.point(0);
    const auto point = snapped(Document::of(world), {place.x, place.y, place.z}, *modes);
    return point ? pointValue(world, *point) : Value::nil();
}

constexpr lisp::Builtin kTable[] = {{"osnap", osnap, 2, 2}};

} // namespace

std::optional<SnapModes> readSnapModes(std::u16string_view text)
{
    const std::u16string upper = text::upperText(text);
    SnapModes modes = 0;
    for (std::size_t at = 0; at <= upper.size();) {
        const std::size_t comma = std::min(upper.find(u',', at), upper.size());
        std::u16string_view word = std::u16string_view(upper).substr(at, comma - at);
        while (word.starts_with(u'_') || word.starts_with(u' ')) word.remove_prefix(1);
        SnapModes known = word.starts_with(u"QUI") || word.starts_with(u"NON") ? ~0u : 0u;
        for (const ModeName& one : kModes)
            if (word.starts_with(one.start)) known = one.mode;
        if (known == 0) return std::nullopt;
        if (known != ~0u) modes |= known; // "quick" and "none" name no point
        at = comma + 1;
    }
    return modes;
}

std::optional<Point> snapped(Document& document, Point user, SnapModes modes)
{
    const drawing::Drawing& drawing = document.drawing();
    const SystemVariables& variables = document.variables();
    const double reach = std::max(1, variables.integer(u"APERTURE")) * pixelSize(document);
    const Point corners[] = {user - Point{reach, reach, 0.0}, user + Point{reach, reach, 0.0}};
    const drawing::Transform toWorld = userToWorld(drawing);
    Snapping snapping(toWorld(user), toWorld(variables.point(u"LASTPOINT")), reach);

    std::vector<Curve> curves;
    for (const drawing::ObjectId id : objectsIn(document, drawing::Border::crossing, corners)) {
        const drawing::Record& record = *drawing.find(id);
        const drawing::Kind kind = record.kind();
        const bool placed = kind == drawing::Kind::insert || kind == drawing::Kind::text ||
                            kind == drawing::Kind::mtext;
        const bool node = kind == drawing::Kind::point && (modes & kNode) != 0;
        if ((placed && (modes & kInsertion) != 0) || node)
            snapping.offer(entityToWorld(record)(record.tags.point(10)));
        if (auto curve = Curve::of(drawing, drawing.indexOf(id))) {
            snapping.curve(*curve, modes);
            curves.push_back(*std::move(curve));
        }
    }
    if ((modes & kIntersection) != 0)
        for (std::size_t i = 0; i < curves.size(); ++i)
            for (std::size_t j = 0; j < i; ++j) snapping.crossing(curves[i], curves[j]);
    if (!snapping.found()) return std::nullopt;
    return inverseRigid(toWorld)(snapping.best());
}

std::span<const lisp::Builtin> osnapFunctions() { return kTable; }

} // namespace orvald
