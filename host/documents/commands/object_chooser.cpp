// SPDX-License-Identifier: LicenseRef-ORVALD
#include "commands/object_chooser.h"

#include "document.h"
#include "drawing/selection.h"
#include "input_rules.h"
#include "screen_picking.h"
#include "typed_points.h"

#include <algorithm>
#include <unordered_set>

namespace orvald {

using drawing::Border;
using drawing::Index;
using drawing::ObjectId;
using drawing::Point;

namespace {

std::vector<Index> placesOf(const drawing::Drawing& drawing, const std::vector<ObjectId>& ids)
{
    std::vector<Index> places;
    places.reserve(ids.size());
    for (const ObjectId id : ids) places.push_back(drawing.indexOf(id));
    return places;
}

} // namespace

std::u16string_view ObjectChooser::prompt() const
{
    switch (wants_) {
    case Wants::objects: return u"Select objects: ";
    case Wants::corners:
    case Wants::implied:
        return points_.empty() ? u"Specify first corner: " : u"Specify opposite corner: ";
    case Wants::chain: return u"Specify next point: ";
    }
    return {};
}

std::optional<Point> ObjectChooser::pointOf(const Token& token)
{
    if (token.kind == Token::Kind::point) {
        document_.variables().setPoint(u"LASTPOINT", *token.point);
        return token.point;
    }
    if (token.kind != Token::Kind::text) return std::nullopt;
    return pointFrom(document_, token.text, std::nullopt);
}

Taken ObjectChooser::take(const Token& token)
{
    if (token.isEnter()) {
        const Wants wanted = std::exchange(wants_, Wants::objects);
        if (wanted == Wants::chain) putBorder();
        else if (wanted == Wants::corners) return Taken::refused;
        return wanted == Wants::chain ? Taken::more : Taken::done;
    }
    if (wants_ != Wants::objects) return takeCorner(token);
    if (token.kind == Token::Kind::entity || token.kind == Token::Kind::set) {
        put(placesOf(document_.drawing(), token.entities));
        return Taken::more;
    }
    return takeWord(token);
}

Taken ObjectChooser::takeCorner(const Token& token)
{
    const std::optional<Point> point = pointOf(token);
    if (!point) return Taken::refused;
    points_.push_back(*point);
    if (wants_ == Wants::chain || points_.size() < 2) return Taken::more;
    // A window that is drawn to the left is a crossing one.
    if (wants_ == Wants::implied && points_[1].x < points_[0].x) border_ = Border::crossing;
    wants_ = Wants::objects;
    putBorder();
    return Taken::more;
}

void ObjectChooser::begin(Wants wants, Border border)
{
    wants_ = wants;
    border_ = border;
    points_.clear();
}

void ObjectChooser::putBorder()
{
    const std::size_t least = border_ == Border::fence || points_.size() == 2 ? 2 : 3;
    if (points_.size() < least) return;
    if (border_ == Border::crossing) {
        crossing_ = points_;
        if (points_.size() == 2) {
            crossing_ = {
                points_[0], {points_[1].x, points_[0].y}, points_[1], {points_[0].x, points_[1].y}};
        }
    }
    put(placesOf(document_.drawing(), objectsIn(document_, border_, points_)));
}

Taken ObjectChooser::takePoint(Point place)
{
    if (const auto hit = objectAt(document_, place)) {
        put({hit->entity});
        return Taken::more;
    }
    begin(Wants::implied, Border::window);
    points_.push_back(place);
    return Taken::more;
}

Taken ObjectChooser::takeWord(const Token& token)
{
    static const Keywords words(
        u"Window Crossing WPolygon CPolygon Fence BOX Last Previous ALL Add "
        u"Remove Undo SIngle AUto Multiple");
    const drawing::Drawing& drawing = document_.drawing();
    const bool typed = token.kind == Token::Kind::text;
    const std::u16string word = typed ? words.match(token.text).value_or(u"") : u"";
    std::vector<ObjectId> ids;
    if (word == u"Window") begin(Wants::corners, Border::window);
    else if (word == u"Crossing") begin(Wants::corners, Border::crossing);
    else if (word == u"BOX") begin(Wants::implied, Border::window);
    else if (word == u"WPolygon") begin(Wants::chain, Border::window);
    else if (word == u"CPolygon") begin(Wants::chain, Border::crossing);
    else if (word == u"Fence") begin(Wants::chain, Border::fence);
    else if (word == u"Add" || word == u"Remove") removing_ = word == u"Remove";
    else if (word == u"Undo") chosen_ = before_;
    else if (word == u"Last") put({drawing.indexOf(document_.entities().entLast())});
    else if (word == u"ALL") {
        drawing::selectAll(drawing, nullptr, ids);
        put(placesOf(drawing, ids));
    } else if (word == u"Previous") {
        for (const std::uint64_t id : document_.user().previous) ids.push_back({id});
        put(placesOf(drawing, ids));
    } else if (typed && token.text.starts_with(u'\'')) {
        ids.emplace_back();
        document_.entities().handEnt(std::u16string_view(token.text).substr(1), ids.back());
        if (ids.back().isNull()) return Taken::refused;
        put(placesOf(drawing, ids));
    } else if (word.empty()) {
        const std::optional<Point> point = pointOf(token);
        return point ? takePoint(*point) : Taken::refused;
    }
    return Taken::more;
}

void ObjectChooser::put(const std::vector<Index>& entities)
{
    before_ = chosen_;
    std::unordered_set<Index> given;
    for (const Index entity : entities)
        if (entity != drawing::kNone && fits_(entity)) given.insert(entity);
    if (removing_) {
        std::erase_if(chosen_, [&](Index entity) { return given.contains(entity); });
        return;
    }
    for (const Index entity : chosen_) given.erase(entity);
    for (const Index entity : entities)
        if (given.erase(entity) != 0) chosen_.push_back(entity);
}

} // namespace orvald
