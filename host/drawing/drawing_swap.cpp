// SPDX-License-Identifier: LicenseRef-ORVALD
// Two records change places. Whoever names one of the two by id or handle finds the other from then
// on, at the same position under the same owner.
#include "drawing/clone.h"
#include "drawing/drawing.h"

#include <algorithm>

namespace orvald::drawing {
namespace {

/// Objects that a record owns by its groups, entries or extension dictionary.
std::vector<Handle> ownedBy(const Record& record, bool withExtensionDictionary)
{
    std::vector<Handle> owned;
    for (const Tag tag : record.tags) {
        const Reference reference = referenceOf(tag.code());
        if (reference == Reference::softOwner || reference == Reference::hardOwner)
            owned.push_back(tag.handle());
    }
    if (record.dictionary() != nullptr)
        for (const Dictionary::Entry& entry : record.dictionary()->entries())
            owned.push_back(entry.object);
    if (withExtensionDictionary) owned.push_back(record.extensionDictionary());
    return owned;
}

/// The group `code` of both changes places, wherever it stands behind the first marker.
void swapGroup(TagList& a, TagList& b, int code)
{
    const auto take = [code](TagList& tags) {
        TagList group;
        const auto at = tags.find(code);
        if (at == tags.end()) return group;
        group.add(*at);
        tags.erase(at);
        return group;
    };
    const TagList fromA = take(a), fromB = take(b);
    const auto put = [](TagList& tags, const TagList& group) {
        const auto marker = tags.find(100);
        tags.insert(marker == tags.end() ? tags.begin() : std::next(marker), group);
    };
    if (!fromA.empty()) put(b, fromA);
    if (!fromB.empty()) put(a, fromB);
}

} // namespace

bool Drawing::swapRecords(Index a, Index b, bool xdataStays, bool dictionaryStays)
{
    const bool entities = at(a).isMainEntity() && at(b).isMainEntity();
    const bool objects = at(a).family() == Family::object && at(b).family() == Family::object;
    if (!entities && !(objects && mayErase(a) && mayErase(b))) return false;
    if (at(a).undone || at(b).undone || standsIn(a, b) || standsIn(b, a)) return false;

    // What each owns, from before: afterwards the two could be mixed up.
    const std::vector<Handle> ownedByA = ownedBy(at(a), !dictionaryStays);
    const std::vector<Handle> ownedByB = ownedBy(at(b), !dictionaryStays);
    Record &first = edit(a), &second = edit(b);
    std::swap(first, second);
    livingEnds_.forget(); // one of the two may be erased
    std::swap(first.handle, second.handle);
    std::swap(first.owner, second.owner);
    Extras &mine = first.needExtras(), &theirs = second.needExtras();
    std::swap(mine.reactors, theirs.reactors);
    if (xdataStays) std::swap(mine.xdata, theirs.xdata);
    if (dictionaryStays) std::swap(mine.extensionDictionary, theirs.extensionDictionary);
    first.trimExtras();
    second.trimExtras();
    if (entities && first.owner != second.owner) { // the space that they say they stand in
        swapGroup(first.tags, second.tags, 67);
        swapGroup(first.tags, second.tags, 410);
    }

    const auto follow = [this](const std::vector<Handle>& owned, Handle from, Handle to) {
        for (const Handle handle : owned) {
            const Index index = byHandle(handle);
            if (index == kNone || at(index).owner != from) continue;
            Record& record = edit(index);
            record.owner = to;
            if (record.extras() != nullptr)
                std::ranges::replace(record.needExtras().reactors, from, to);
        }
    };
    const Handle handleA = at(a).handle, handleB = at(b).handle;
    follow(ownedByA, handleA, handleB);
    follow(ownedByB, handleB, handleA);
    for (const Index owner : {a, b})
        for (Index child = firstChild(owner); child != kNone; child = next(child))
            edit(child).owner = at(owner).handle;
    return true;
}

} // namespace orvald::drawing
