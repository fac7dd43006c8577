// SPDX-License-Identifier: LicenseRef-ORVALD
// Deep copies: first every record that the object owns, then the references among them.
#include "drawing/clone.h"

namespace orvald::drawing {

Reference referenceOf(int code)
{
    if ((code >= 330 && code <= 339) || code == 1005) return Reference::softPointer;
    if ((code >= 340 && code <= 349) || (code >= 390 && code <= 399) || code == 480 || code == 481)
        return Reference::hardPointer;
    if (code >= 350 && code <= 359) return Reference::softOwner;
    if (code >= 360 && code <= 369) return Reference::hardOwner;
    return Reference::none;
}

namespace {

using Translate = std::function<Handle(Handle, Reference)>;

void translateTags(TagList& tags, const Translate& translate)
{
    for (auto it = tags.begin(); it != tags.end(); ++it) {
        const Tag tag = *it;
        const Reference reference = referenceOf(tag.code());
        if (reference == Reference::none || tag.kind() != TagKind::handle || tag.handle() == 0)
            continue;
        tags.setHandle(it, translate(tag.handle(), reference));
    }
}

/// One deep copy at work.
class Copier
{
public:
    Copier(const Drawing& from, Drawing& to, std::unordered_map<Handle, Handle>& map)
        : from_(from), to_(to), map_(map)
    {
    }
    Index copy(Index root)
    {
        const Index made = copyRecord(root);
        // What a copied record owns is copied behind it, without recursion: the list grows.
        for (std::size_t i = 0; i < copies_.size(); ++i) copyOwned(copies_[i]);
        for (const Pair& pair : copies_) translate(pair.made);
        return made;
    }

private:
    struct Pair
    {
        Index old, made;
    };

    Index copyRecord(Index old)
    {
        Record record = from_.at(old);
        record.handle = 0;
        record.owner = 0;
        if (record.extras() != nullptr) {
            Extras& extras = record.needExtras();
            extras.firstChild = extras.lastChild = kNone;
            extras.blockBegin = extras.blockEnd = kNone;
        }
        const Index made = to_.add(std::move(record));
        map_[from_.at(old).handle] = to_.at(made).handle;
        copies_.push_back({old, made});
        return made;
    }

    /// Copies the object of a handle that is not copied yet and gives its owner.
    void copyObject(Handle handle, Handle owner)
    {
        const Index old = from_.byHandle(handle);
        if (old == kNone || from_.at(old).erased || map_.contains(handle)) return;
        to_.edit(copyRecord(old)).owner = owner;
    }

    void copyOwned(Pair pair)
    {
        const Handle owner = to_.at(pair.made).handle;
        const Record& old = from_.at(pair.old);
        for (Index child = from_.firstChild(pair.old); child != kNone; child = from_.next(child))
            if (!from_.at(child).erased) to_.appendChild(pair.made, copyRecord(child));
        const Extras* extras = from_.at(pair.old).extras();
        if (extras != nullptr && extras->blockBegin != kNone) {
            const Index begin = copyRecord(extras->blockBegin), end = copyRecord(extras->blockEnd);
            to_.edit(begin).owner = to_.edit(end).owner = owner;
            Extras& mine = to_.edit(pair.made).needExtras();
            mine.blockBegin = begin;
            mine.blockEnd = end;
        }
        if (old.extensionDictionary() != 0) copyObject(old.extensionDictionary(), owner);
        if (old.dictionary() != nullptr) {
            std::vector<Handle> entries;
            for (const Dictionary::Entry& entry : old.dictionary()->entries())
                entries.push_back(entry.object);
            for (const Handle entry : entries) copyObject(entry, owner);
        }
        std::vector<Handle> owned; // by owner groups of the record itself (xrecords may own)
        for (const Tag tag : old.tags) {
            const Reference reference = referenceOf(tag.code());
            if (reference == Reference::softOwner || reference == Reference::hardOwner)
                owned.push_back(tag.handle());
        }
        for (const Handle handle : owned) copyObject(handle, owner);
    }

    void translate(Index made)
    {
        const bool sameDrawing = &from_ == &to_;
        translateReferences(to_.edit(made), [&](Handle old, Reference) {
            const auto found = map_.find(old);
            return found != map_.end() ? found->second : sameDrawing ? old : Handle{0};
        });
    }

    const Drawing& from_;
    Drawing& to_;
    std::unordered_map<Handle, Handle>& map_;
    std::vector<Pair> copies_;
};

} // namespace

void translateReferences(Record& record, const Translate& translate)
{
    translateTags(record.tags, translate);
    if (record.extras() == nullptr) return;
    Extras& extras = record.needExtras();
    translateTags(extras.xdata, translate);
    for (Handle& reactor : extras.reactors) reactor = translate(reactor, Reference::softPointer);
    std::erase(extras.reactors, Handle{0});
    if (extras.extensionDictionary != 0)
        extras.extensionDictionary = translate(extras.extensionDictionary, Reference::hardOwner);
    if (!extras.dictionary) return;
    std::vector<std::string> lost;
    for (Dictionary::Entry& entry : extras.dictionary->mutableEntries()) {
        entry.object =
            translate(entry.object, entry.hard ? Reference::hardOwner : Reference::softOwner);
        if (entry.object == 0) lost.push_back(entry.key);
    }
    for (const std::string& key : lost) extras.dictionary->remove(key);
}

Index deepCopy(const Drawing& from, Index object, Drawing& to,
               std::unordered_map<Handle, Handle>& map)
{
    return Copier(from, to, map).copy(object);
}

} // namespace orvald::drawing
