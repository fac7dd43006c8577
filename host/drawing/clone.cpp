// SPDX-License-Identifier: LicenseRef-ORVALD
// What all copies have in common, and copies within one drawing.
#include "drawing/clone.h"

#include "copier.h"
#include "drawing/object_data.h"
#include "drawing/text.h"
#include "name_uses.h"
#include "sections.h"

#include <algorithm>

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

std::string Keys::of(Index object)
{
    const Index owner = drawing_.byHandle(drawing_.at(object).owner);
    const Dictionary* dictionary = drawing_.dictionary(owner);
    if (dictionary == nullptr) return "*";
    if (owner != owner_) {
        owner_ = owner;
        keys_.clear();
        for (const Dictionary::Entry& entry : dictionary->entries())
            keys_.emplace(entry.object, entry.key);
    }
    const auto found = keys_.find(drawing_.at(object).handle);
    return found == keys_.end() ? "*" : found->second;
}

bool mayCopyBelow(const Drawing& from, Index object, const Drawing& to, Index owner, Taken taken)
{
    const Record &what = from.at(object), &where = to.at(owner);
    const auto shows = [](const Drawing& drawing, std::string_view block, Index inside) {
        const std::vector<Index> blocks = drawing.blocksInside(block);
        return std::ranges::find(blocks, inside) != blocks.end();
    };
    if (what.isMainEntity()) {
        if (where.kind() != Kind::blockRecord) return false;
        if (what.kind() != Kind::insert) return true;
        const std::string_view name = what.tags.text(2);
        if (&from == &to) return !shows(to, name, owner);
        if (taken == Taken::mangled || taken == Taken::mangledWithDrawing) return true;
        const std::vector<Index> blocks = from.blocksInside(name);
        return std::ranges::none_of(
            blocks, [&](Index block) { return shows(to, from.at(block).name(), owner); });
    }
    if (what.family() == Family::tableRecord) {
        TableId table{};
        return &from != &to && tableOf(what.typeName(), table) && to.tableHead(table) == owner &&
               !from.isLayoutBlock(object);
    }
    return from.mayErase(object) && what.kind() != Kind::layout && to.dictionary(owner) != nullptr;
}

// The work in common ---------------------------------------------------------------------------

namespace {

/// Takes away what a block record says about its inserts: it is about those of the original.
void dropUses(TagList& tags)
{
    for (auto it = tags.begin(); it != tags.end(); ++it) {
        if ((*it).code() != 102 || (*it).text() != "{BLKREFS") continue;
        auto end = std::next(it);
        while (end != tags.end() && (*end).code() != 102) ++end;
        tags.erase(it, end == tags.end() ? end : std::next(end));
        return;
    }
}

} // namespace

Copier::Copier(const Drawing& from, Drawing& to, std::span<const Index> objects)
    : from_(from), to_(to), keys_(from), listed_(objects.begin(), objects.end())
{
    const auto isBelow = [this](Index object) {
        for (int step = 0; step < kMostOwners; ++step) {
            object = from_.byHandle(from_.at(object).owner);
            if (object == kNone) return false;
            if (listed_.contains(object)) return true;
        }
        return false;
    };
    std::unordered_set<Index> seen;
    for (const Index object : objects)
        if (seen.insert(object).second && !isBelow(object)) roots_.push_back(object);
}

Index Copier::find(Index old) const
{
    const auto found = made_.find(old);
    return found == made_.end() ? kNone : found->second;
}

void Copier::keep(Index old, Index made)
{
    if (made_.emplace(old, made).second) pairs_.push_back({old, made, false});
}

Index Copier::copyRecord(Index old)
{
    Record record = from_.at(old);
    record.handle = record.owner = 0;
    if (record.kind() == Kind::blockRecord) dropUses(record.tags);
    if (const Extras* extras = record.extras()) {
        Extras fresh;
        fresh.xdata = extras->xdata;
        fresh.keepsReferences = extras->keepsReferences;
        if (extras->dictionary) fresh.dictionary.emplace();
        record.needExtras() = std::move(fresh);
        record.trimExtras();
    }
    const Index made = to_.add(std::move(record));
    made_.emplace(old, made);
    pairs_.push_back({old, made, true});
    return made;
}

void Copier::refill(Index made, Index old)
{
    Record& record = to_.edit(made);
    record.tags = from_.at(old).tags;
    if (record.kind() == Kind::blockRecord) dropUses(record.tags);
    const Extras* extras = from_.at(old).extras();
    record.needExtras().xdata = extras == nullptr ? TagList() : extras->xdata;
    record.trimExtras();
    made_.emplace(old, made);
    pairs_.push_back({old, made, true});
}

void Copier::hangEntity(Index block, Index made)
{
    to_.appendChild(block, made);
    const bool paper = to_.isPaperSpace(block);
    markSpace(to_.edit(made), paper);
    for (Index part = to_.firstChild(made); part != kNone; part = to_.next(part))
        markSpace(to_.edit(part), paper);
}

void Copier::copyOwned()
{
    for (; next_ < pairs_.size(); ++next_) {
        const Copied pair = pairs_[next_];
        if (!pair.cloned) continue;
        copyOwnedBy(pair.old, pair.made);
        copied(pair.old, pair.made);
    }
}

void Copier::copyEntries(const Record& dictionary, Index made)
{
    const bool hard = dictionary.tags.integer(kHardOwnerGroup) != 0;
    for (const Dictionary::Entry& entry : dictionary.dictionary()->entries()) {
        const Index object = from_.byHandle(entry.object);
        const Reference how = hard || entry.hard ? Reference::hardOwner : Reference::softOwner;
        if (object == kNone || from_.at(object).erased || find(object) != kNone ||
            !follows(how, object))
            continue;
        to_.addToDictionary(made, entry.key, copyRecord(object));
    }
}

void Copier::copyBlockEnds(const Extras& old, Index made)
{
    // A block that is filled anew has its BLOCK and ENDBLK already.
    const Extras& mine = to_.edit(made).needExtras();
    const auto end = [&](Index present, Index original) {
        if (present != kNone) refill(present, original);
        else present = copyRecord(original);
        to_.edit(present).owner = to_.at(made).handle;
        return present;
    };
    const Index begin = end(mine.blockBegin, old.blockBegin);
    const Index last = end(mine.blockEnd, old.blockEnd);
    Extras& extras = to_.edit(made).needExtras();
    extras.blockBegin = begin;
    extras.blockEnd = last;
}

void Copier::copyOwnedBy(Index old, Index made)
{
    const Record& record = from_.at(old);
    const Handle owner = to_.at(made).handle;
    for (Index child = from_.firstChild(old); child != kNone; child = from_.next(child))
        if (!from_.at(child).erased && find(child) == kNone)
            to_.appendChild(made, copyRecord(child));
    const Extras* extras = record.extras();
    if (extras != nullptr && extras->blockBegin != kNone && extras->blockEnd != kNone)
        copyBlockEnds(*extras, made);
    const auto copyObject = [&](Handle handle) {
        const Index object = from_.byHandle(handle);
        if (object == kNone || from_.at(object).erased || find(object) != kNone) return kNone;
        const Index copy = copyRecord(object);
        to_.edit(copy).owner = owner;
        return copy;
    };
    if (const Index copy = copyObject(record.extensionDictionary()); copy != kNone)
        to_.edit(made).needExtras().extensionDictionary = to_.at(copy).handle;
    if (record.dictionary() != nullptr) copyEntries(record, made);
    if (extras != nullptr && extras->keepsReferences) return;
    for (const Tag tag : record.tags) { // xrecords may own
        const Reference how = referenceOf(tag.code());
        if (how != Reference::softOwner && how != Reference::hardOwner) continue;
        if (follows(how, from_.byHandle(tag.handle()))) copyObject(tag.handle());
    }
}

std::vector<Copied> Copier::finish()
{
    copyOwned();
    const auto name = [this](TableId table, std::string_view old) {
        const auto found = names_.find({table, nameKey(old)});
        return found == names_.end() ? std::string() : found->second;
    };
    for (const Copied& pair : pairs_) {
        if (!pair.cloned) continue;
        translate(pair.old, pair.made);
        if (!names_.empty()) replaceNames(to_.edit(pair.made), name);
    }
    return std::move(pairs_);
}

Handle Copier::translated(Handle old) const
{
    const Index made = find(from_.byHandle(old));
    return made != kNone ? to_.at(made).handle : within() ? old : 0;
}

void Copier::translateTags(TagList& tags, bool cut) const
{
    for (auto it = tags.begin(); it != tags.end(); ++it) {
        const Tag tag = *it;
        if (referenceOf(tag.code()) != Reference::none && tag.kind() == TagKind::handle)
            tags.setHandle(it, cut ? 0 : translated(tag.handle()));
    }
}

void Copier::translate(Index old, Index made)
{
    Record& record = to_.edit(made);
    const Extras* before = from_.at(old).extras();
    const bool keeps = before != nullptr && before->keepsReferences;
    if (!keeps || !within()) translateTags(record.tags, keeps); // in another drawing it keeps none
    if (before == nullptr) return;
    Extras& extras = record.needExtras();
    translateTags(extras.xdata, false);
    // In the order of the original; the owner as reactor is the owner of the copy.
    std::vector<Handle> reactors;
    const auto add = [&](Handle reactor) {
        if (reactor != 0 && std::ranges::find(reactors, reactor) == reactors.end())
            reactors.push_back(reactor);
    };
    for (const Handle reactor : before->reactors)
        add(reactor == from_.at(old).owner ? record.owner : translated(reactor));
    for (const Handle reactor : extras.reactors) add(reactor);
    extras.reactors = std::move(reactors);
    record.trimExtras();
}

// One object of another drawing -----------------------------------------------------------------

namespace {

class CopierLoose final : public Copier
{
public:
    using Copier::Copier;

    Index run(std::unordered_map<Index, Index>& known)
    {
        for (const auto& [old, made] : known) keep(old, made);
        const Index made = copyRecord(roots().front());
        for (const Copied& pair : finish()) known.emplace(pair.old, pair.made);
        return made;
    }
};

} // namespace

Index copyLoose(const Drawing& from, Index object, Drawing& to,
                std::unordered_map<Index, Index>& known)
{
    return CopierLoose(from, to, {&object, 1}).run(known);
}

// Within one drawing ---------------------------------------------------------------------------

namespace {

class CopierWithin final : public Copier
{
public:
    CopierWithin(Drawing& drawing, std::span<const Index> objects)
        : Copier(drawing, drawing, objects)
    {
    }

    std::vector<Copied> run(Index owner)
    {
        // Hung last, so that nothing is copied that a copy brought there.
        std::vector<Index> copies;
        for (const Index object : roots()) copies.push_back(copyRecord(object));
        copyOwned();
        for (std::size_t i = 0; i < copies.size(); ++i) hang(roots()[i], copies[i], owner);
        return finish();
    }

private:
    void hang(Index old, Index made, Index owner)
    {
        if (to_.at(made).isEntity()) return hangEntity(owner, made);
        const std::string key = keys_.of(old);
        if (!to_.addToDictionary(owner, key, made)) to_.addToDictionary(owner, "*", made);
    }

    void copied(Index old, Index) override
    {
        // Each dimension has a block of its own, which no other one shows.
        const Record& record = from_.at(old);
        if (record.kind() != Kind::dimension || !record.name().starts_with("*")) return;
        const Index block = from_.findRecord(TableId::blockRecord, record.name());
        if (block == kNone || find(block) != kNone) return;
        const std::string name = to_.anonymousBlockName(record.name().substr(0, 2));
        names_[{TableId::blockRecord, nameKey(record.name())}] = name;
        const Index made = copyRecord(block);
        setName(to_.edit(made), name);
        to_.appendRecord(TableId::blockRecord, made);
    }
};

} // namespace

std::vector<Copied> copyWithin(Drawing& drawing, std::span<const Index> objects, Index owner)
{
    return CopierWithin(drawing, objects).run(owner);
}

} // namespace orvald::drawing
