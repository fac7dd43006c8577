// SPDX-License-Identifier: LicenseRef-ORVALD
// Changing records by lists. A value that equals what programs are told stays as it is stored, so a
// list that goes back unchanged changes no bit.
#include "drawing/entity_functions.h"
#include "drawing/text.h"
#include "given.h"
#include "sections.h"

#include <algorithm>
#include <map>

namespace orvald::drawing {
namespace {

class Modifier
{
public:
    Modifier(Record& record, const TagList& groups)
        : record_(record), groups_(groups), schema_(schemaOf(record.kind()))
    {
    }

    void run()
    {
        const Form form = schema_ == nullptr ? Form::list : schema_->form;
        if (form == Form::lwpolyline && groups_.has(10)) return changeLwpolyline();
        if (form == Form::mtext && (groups_.has(1) || groups_.has(3))) changeText();
        if (form == Form::list && sameMarkers()) return replaceBody();
        for (const Tag tag : groups_) {
            const bool mtextPiece = form == Form::mtext && (tag.code() == 1 || tag.code() == 3);
            if (tag.code() != 100 && !mtextPiece) change(tag);
        }
    }

private:
    /// The n-th group with the code of `tag`, n counting the calls for that code.
    TagList::Iterator nextOf(Tag tag)
    {
        std::size_t count = seen_[tag.code()]++;
        auto it = record_.tags.find(tag.code(), record_.body());
        while (it != record_.tags.end() && count-- != 0)
            it = record_.tags.find(tag.code(), std::next(it));
        return it;
    }

    static bool isDefault(const GroupRule* rule, Tag tag)
    {
        if (rule == nullptr || !rule->hasDefault()) return false;
        TagList value;
        rule->addDefault(value);
        const Tag none = *value.begin();
        if (none.isText()) return tag.isText() && sameName(none.text(), tag.text());
        return sameValue(none, tag);
    }

    void change(Tag tag)
    {
        const auto place = nextOf(tag);
        const GroupRule* rule = schema_ == nullptr ? nullptr : schema_->find(tag.code());
        if (place != record_.tags.end()) {
            if (sameValue(*place, tag)) return;
            TagList fresh;
            addLike(fresh, *place, tag);
            if (rule != nullptr && rule->need == Need::hidden && isDefault(rule, tag)) {
                record_.tags.erase(place);
                --seen_[tag.code()];
            } else {
                record_.tags.replace(place, fresh);
            }
            return;
        }
        TagList fresh;
        fresh.add(tag);
        if (schema_ != nullptr && !isDefault(rule, tag)) insertBySchema(record_, *schema_, fresh);
        if (schema_ == nullptr && isCommon(tag.code())) insertCommon(fresh);
    }

    static bool isCommon(int code) { return commonSection().find(code) != SectionRule::npos; }
    /// Puts a common property of a kind without schema behind the layer.
    void insertCommon(const TagList& fresh)
    {
        if (!record_.isEntity() || isDefault(commonRule((*fresh.begin()).code()), *fresh.begin()))
            return;
        const auto layer = record_.tags.find(8);
        if (layer != record_.tags.end()) record_.tags.insert(std::next(layer), fresh);
    }
    static const GroupRule* commonRule(int code)
    {
        return &commonSection().groups[commonSection().find(code)];
    }

    /// A new value in the form that the old one has.
    static void addLike(TagList& tags, Tag old, Tag value)
    {
        if (value.isPoint() && old.kind() == TagKind::point2)
            tags.addPoint(value.code(), value.point(), true);
        else tags.add(value);
    }

    /// True when the list has the markers of the record, so that its groups can take their places.
    bool sameMarkers() const
    {
        const auto markers = [](TagList::Iterator it, TagList::Iterator end) {
            std::string all;
            for (; it != end; ++it)
                if ((*it).code() == 100) all.append((*it).text()).append("\n");
            return all;
        };
        const std::string mine = markers(record_.body(), record_.tags.end());
        return !mine.empty() && mine == markers(groups_.begin(), groups_.end());
    }

    /// The groups of the list in its order; values that are the same keep their stored form.
    void replaceBody()
    {
        std::map<int, TagList::Iterator> last; // where to look on for the next group of a code
        TagList fresh;
        // What stands in front of the first marker is not the list's to change.
        const auto firstMarker = record_.tags.find(100);
        for (auto it = record_.tags.begin(); it != firstMarker; ++it) fresh.add(*it);
        for (auto it = groups_.find(100); it != groups_.end(); ++it) {
            const Tag tag = *it;
            const auto [place, first] = last.try_emplace(tag.code(), firstMarker);
            if (!first && place->second != record_.tags.end()) ++place->second;
            place->second = record_.tags.find(tag.code(), place->second);
            const bool known = place->second != record_.tags.end();
            const bool hiddenDefault = record_.isEntity() && isCommon(tag.code()) && !known &&
                                       commonRule(tag.code())->need == Need::hidden &&
                                       isDefault(commonRule(tag.code()), tag);
            if (known && sameValue(*place->second, tag)) fresh.add(*place->second);
            else if (known) addLike(fresh, *place->second, tag);
            else if (!hiddenDefault) fresh.add(tag);
        }
        keepUntold(fresh);
        record_.tags = std::move(fresh);
    }
    /// Space and layout are not part of the list's groups: they stay.
    void keepUntold(TagList& fresh) const
    {
        for (const int code : {410, 67}) {
            const auto old = record_.tags.find(code);
            const auto marker = fresh.find(100);
            if (old == record_.tags.end() || marker == fresh.end() || fresh.has(code)) continue;
            TagList group;
            group.add(*old);
            fresh.insert(std::next(marker), group);
        }
    }

    /// Vertices are replaced as a whole, the other groups one by one.
    void changeLwpolyline()
    {
        const double oldWidth = record_.tags.real(43);
        TagList vertices;
        bool inVertices = false, widthsFollow = true;
        for (const Tag tag : groups_) {
            const int code = tag.code();
            inVertices = inVertices || code == 10;
            const bool ofVertex =
                code == 10 ||
                (inVertices && (code == 40 || code == 41 || code == 42 || code == 91));
            if (ofVertex) vertices.add(tag);
            else if (code != 100 && code != 90) change(tag);
            if (ofVertex && (code == 40 || code == 41))
                widthsFollow = widthsFollow && tag.real() == oldWidth;
        }
        const double width = record_.tags.real(43);
        // A new constant width replaces the old one in the vertices, where it was only repeated.
        TagList fresh;
        addVertices(fresh, vertices, widthsFollow ? oldWidth : width);
        auto first = record_.tags.find(10);
        auto last = first;
        std::int64_t count = 0;
        for (const Tag tag : fresh) count += tag.code() == 10 ? 1 : 0;
        for (auto it = first; it != record_.tags.end(); ++it) {
            const int code = (*it).code();
            if (code == 10 || code == 40 || code == 41 || code == 42 || code == 91)
                last = std::next(it);
        }
        record_.tags.insert(record_.tags.erase(first, last), fresh);
        TagList number;
        number.addInteger(90, count);
        const auto place = record_.tags.find(90);
        if (place != record_.tags.end()) record_.tags.replace(place, number);
    }

    /// The text of an MTEXT is one, whatever pieces it comes in.
    void changeText()
    {
        TagList given;
        for (const Tag tag : groups_)
            if (tag.code() == 3 || tag.code() == 1) given.add(tag);
        if (!given.has(1)) given.addText(1, record_.tags.text(1));
        const std::u16string text = mtextOf(given);
        if (text == mtextOf(record_.tags)) return;
        TagList pieces;
        addMtextPieces(pieces, text);
        for (auto it = record_.tags.find(3); it != record_.tags.end();
             it = record_.tags.find(3, it))
            it = record_.tags.erase(it);
        auto place = record_.tags.find(1);
        if (place == record_.tags.end()) record_.tags.append(pieces);
        else record_.tags.replace(place, pieces);
    }

    Record& record_;
    const TagList& groups_;
    const Schema* schema_;
    std::map<int, std::size_t> seen_;
};

} // namespace

ErrNo EntityFunctions::entMod(const resbuf* chain)
{
    Given given;
    if (const ErrNo error = readGiven(drawing_, chain, given); error != ErrNo::none) return error;
    const Index index = drawing_.indexOf(given.name);
    if (index == kNone) return ErrNo::badName;
    if (drawing_.isGone(index)) return ErrNo::modDeleted;
    const Record& old = drawing_.at(index);
    if (!given.type.empty() && given.type != nameKey(old.typeName())) return ErrNo::typeChange;
    if (given.handle != 0 && given.handle != old.handle) return ErrNo::handleChange;
    if (old.kind() == Kind::xrecord || isDictionary(old.kind())) return ErrNo::none;
    if (old.isEntity() && drawing_.isLayerLocked(old.layer())) return ErrNo::lockedLayer;

    Record next = old;
    Modifier(next, given.groups).run();
    if (const ErrNo error = checkRecord(drawing_, next); error != ErrNo::none) return error;
    if (old.kind() == Kind::block && next.name() != old.name()) return ErrNo::badValue;
    if (given.hasXdata) {
        if (const ErrNo error = checkXdata(drawing_, given.xdata); error != ErrNo::none)
            return error;
        mergeXdata(next.needExtras().xdata, given.xdata);
        if (checkXdata(drawing_, next.extras()->xdata) == ErrNo::xdataTooBig)
            return ErrNo::xdataTooBig;
        next.trimExtras();
    }
    TableId table{};
    if (old.family() == Family::tableRecord && tableOf(old.typeName(), table)) {
        const std::string name(next.name());
        if (!isSymbolName(name, table == TableId::blockRecord)) return ErrNo::badName;
        if (name != old.name() && !drawing_.renameRecord(table, index, name))
            return ErrNo::badValue;
    }
    if (next.isEntity()) drawing_.needLayer(next.layer());
    next.tags.shrink();
    drawing_.edit(index) = std::move(next);
    return ErrNo::none;
}

} // namespace orvald::drawing
