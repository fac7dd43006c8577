// SPDX-License-Identifier: LicenseRef-ORVALD
#include "select_objects.h"

#include "document.h"
#include "drawing/selection.h"
#include "input_rules.h"
#include "prompt.h"
#include "screen_picking.h"
#include "typed_points.h"

#include <algorithm>

namespace orvald {

using drawing::Border;
using drawing::ObjectId;
using drawing::Point;
using lisp::World;

namespace {

class Selecting
{
public:
    Selecting(World& world, const std::function<bool(ObjectId)>& fits)
        : world_(world), document_(Document::of(world)), fits_(fits)
    {
    }

    std::vector<ObjectId> run(bool single)
    {
        for (;;) {
            const std::u16string typed = askLine(world_, u"Select objects: ");
            const std::size_t start = typed.find_first_not_of(u' ');
            if (start == std::u16string::npos) return std::move(chosen_);
            const std::size_t end = typed.find_last_not_of(u' ');
            answer(std::u16string_view(typed).substr(start, end - start + 1));
            if (single && !chosen_.empty()) return std::move(chosen_);
        }
    }

private:
    Point askCorner(std::u16string_view prompt, std::optional<Point> base)
    {
        for (;;) {
            if (const auto point = pointFrom(document_, askLine(world_, prompt), base))
                return *point;
            complain(u"Invalid point.");
        }
    }

    void rectangle(Border border)
    {
        const Point first = askCorner(u"Specify first corner: ", {});
        put(objectsIn(document_, border,
                      {{first, askCorner(u"Specify opposite corner: ", first)}}));
    }

    void chain(Border border)
    {
        std::vector<Point> points;
        for (;;) {
            const std::u16string typed = askLine(world_, u"Next point: ");
            if (typed.find_first_not_of(u' ') == std::u16string::npos) break;
            const std::optional<Point> base =
                points.empty() ? std::nullopt : std::optional(points.back());
            if (const auto point = pointFrom(document_, typed, base)) points.push_back(*point);
            else complain(u"Invalid point.");
        }
        put(objectsIn(document_, border, points));
    }

    void pick(Point place)
    {
        if (const auto hit = objectAt(document_, place))
            return put({document_.drawing().idOf(hit->entity)});
        // Nothing there: the first corner of a window, to the left of a crossing one.
        const Point opposite = askCorner(u"Specify opposite corner: ", place);
        put(objectsIn(document_, opposite.x < place.x ? Border::crossing : Border::window,
                      {{place, opposite}}));
    }

    bool word(std::u16string_view typed)
    {
        static const Keywords words(u"Window Crossing WPolygon CPolygon Fence Last Previous ALL "
                                    u"Add Remove Undo SIngle AUto");
        if (typed.starts_with(u'_')) typed.remove_prefix(1);
        const std::u16string word = words.match(typed).value_or(u"");
        if (word.empty()) return false;
        if (word == u"Window") rectangle(Border::window);
        else if (word == u"Crossing") rectangle(Border::crossing);
        else if (word == u"WPolygon") chain(Border::window);
        else if (word == u"CPolygon") chain(Border::crossing);
        else if (word == u"Fence") chain(Border::fence);
        else if (word == u"Last") put({document_.entities().entLast()});
        else if (word == u"Previous") put(previous());
        else if (word == u"ALL") put(all());
        else if (word == u"Undo") chosen_ = before_;
        else if (word == u"Add" || word == u"Remove") removing_ = word == u"Remove";
        return true;
    }

    void answer(std::u16string_view typed)
    {
        if (typed.starts_with(u'\'')) {
            ObjectId id;
            document_.entities().handEnt(typed.substr(1), id);
            return put({id});
        }
        if (word(typed)) return;
        if (const auto point = pointFrom(document_, typed, {})) return pick(*point);
        complain(u"A point, a window, Last, ALL, 'HANDLE or another word is wanted.");
    }

    std::vector<ObjectId> previous() const
    {
        std::vector<ObjectId> ids;
        for (const std::uint64_t entity : document_.user().previous) ids.push_back({entity});
        return ids;
    }

    std::vector<ObjectId> all() const
    {
        std::vector<ObjectId> ids;
        drawing::selectAll(document_.drawing(), nullptr, ids);
        return ids;
    }

    void put(const std::vector<ObjectId>& ids)
    {
        before_ = chosen_;
        for (const ObjectId id : ids) {
            if (id.isNull() || !fits_(id)) continue;
            const auto known = std::ranges::find(chosen_, id);
            if (removing_ && known != chosen_.end()) chosen_.erase(known);
            else if (!removing_ && known == chosen_.end()) chosen_.push_back(id);
        }
    }

    World& world_;
    Document& document_;
    const std::function<bool(ObjectId)>& fits_;
    bool removing_ = false;
    std::vector<ObjectId> chosen_, before_; // before_: as of the last answer that changed it
};

} // namespace

std::vector<ObjectId> askObjects(World& world, const std::function<bool(ObjectId)>& fits,
                                 bool single)
{
    return Selecting(world, fits).run(single);
}

} // namespace orvald
