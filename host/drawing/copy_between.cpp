// SPDX-License-Identifier: LicenseRef-ORVALD
// Copies from one drawing to another: what comes along, where it goes, and names that are taken.
#include "copier.h"
#include "drawing/clone.h"
#include "drawing/object_data.h"
#include "drawing/text.h"
#include "name_uses.h"

#include <algorithm>

namespace orvald::drawing {
namespace {

constexpr int kFirstClass = 500; // number of the first row of CLASSES in proxies

Taken flag(std::int64_t number)
{
    const auto last = static_cast<std::int64_t>(Taken::unmangled);
    return number > 0 && number <= last ? static_cast<Taken>(number) : Taken::kept;
}

/// What the drawing that an object comes from says about a taken key: the xrecord itself when it
/// asks for more than keeping, else its dictionary.
Taken flagged(const Drawing& from, Index object)
{
    const Record& record = from.at(object);
    if (record.kind() == Kind::xrecord) {
        const Taken own = flag(xrecordCloning(record));
        if (own != Taken::kept) return own;
    }
    const Index owner = from.byHandle(record.owner);
    return from.dictionary(owner) == nullptr
               ? Taken::kept
               : flag(from.at(owner).tags.integer(kDictionaryCloningGroup));
}

/// The name without the front that mangling gave it: "$0$" or "plan$0$".
std::string_view unmangled(std::string_view name)
{
    const std::size_t front = name.find('$');
    if (front == std::string_view::npos) return name;
    const std::size_t digits = name.find_first_not_of("0123456789", front + 1);
    const bool mangled = digits != std::string_view::npos && digits > front + 1 &&
                         name[digits] == '$' && digits + 1 < name.size();
    return mangled ? name.substr(digits + 1) : name;
}

/// A drawing's name so that it may stand in names of records.
std::string asName(std::string_view drawing)
{
    std::string name = fileForm(drawing);
    for (char& c : name)
        if (static_cast<unsigned char>(c) < 0x80 && !isSymbolName({&c, 1})) c = '_';
    return name;
}

bool isMangling(Taken taken)
{
    return taken == Taken::mangled || taken == Taken::mangledWithDrawing;
}

/// Records that all drawings have and that mean the same in each.
bool isFixed(TableId table, const Record& record)
{
    const std::string_view name = record.name();
    if (table == TableId::layer) return name == "0";
    if (table == TableId::ltype)
        return sameName(name, "ByLayer") || sameName(name, "ByBlock") ||
               sameName(name, "Continuous");
    return table == TableId::appid || table == TableId::vport;
}

class CopierBetween final : public Copier
{
public:
    CopierBetween(const Drawing& from, Drawing& to, std::span<const Index> objects, Taken taken,
                  std::string_view drawingName)
        : Copier(from, to, objects),
          taken_(taken),
          drawingName_(asName(drawingName)),
          firstNew_(to.recordCount())
    {
    }

    std::vector<Copied> run(Index owner)
    {
        owner_ = owner;
        for (const Index object : roots()) {
            const Record& record = from_.at(object);
            if (record.isEntity()) entities_.push_back({owner, copyRecord(object)});
            else if (record.family() == Family::tableRecord) bringTableRecord(object);
            else enter(owner, keys_.of(object), object, taken_);
        }
        do copyOwned();
        while (bringNext());
        for (const auto& [block, made] : entities_) hangEntity(block, made); // with their parts
        return finish();
    }

private:
    /// An object that something points to hard. `again`: what owns it has been asked for.
    struct Wanted
    {
        Index object;
        bool again;
    };
    /// A dictionary that stands for another one and takes in what it lacks.
    struct Merge
    {
        Index old, made;
    };

    bool follows(Reference how, Index owned) const override
    {
        return how == Reference::hardOwner || listed_.contains(owned);
    }

    void copied(Index old, Index made) override
    {
        const Record& record = from_.at(old);
        const Extras* extras = record.extras();
        if (extras == nullptr || !extras->keepsReferences) wantTargets(record.tags);
        if (extras != nullptr) wantTargets(extras->xdata);
        forEachName(record, [this](TableId table, std::string_view name) {
            const Index used = from_.findRecord(table, name);
            if (used != kNone) bringTableRecord(used);
        });
        bringClass(record, made);
    }

    void wantTargets(const TagList& tags)
    {
        for (const Tag tag : tags)
            if (referenceOf(tag.code()) == Reference::hardPointer)
                want(from_.byHandle(tag.handle()));
    }

    void want(Index old)
    {
        if (old == kNone || find(old) != kNone || from_.isGone(old)) return;
        const Record& record = from_.at(old);
        TableId table{};
        switch (record.family()) {
        case Family::tableRecord: bringTableRecord(old); break;
        case Family::tableHead:
            if (tableOf(record.tags.text(2), table) && to_.tableHead(table) != kNone)
                keep(old, to_.tableHead(table));
            break;
        case Family::entity: wantEntity(old); break;
        case Family::object:
            if (old == from_.rootDictionary()) keep(old, to_.rootDictionary());
            else wanted_.push_back({old, false});
            break;
        }
    }

    void wantEntity(Index old)
    {
        const Index block = from_.blockOf(old);
        if (block == kNone) return;
        bringTableRecord(block);
        if (!from_.isLayoutBlock(block)) return; // came with its block, if that came
        const Index main = isPart(from_.at(old).kind()) ? from_.byHandle(from_.at(old).owner) : old;
        const Index space = find(block);
        if (space == kNone || !from_.at(main).isMainEntity() || find(main) != kNone) return;
        entities_.push_back({space, copyRecord(main)});
    }

    // Table records --------------------------------------------------------------------------

    Index present(TableId table, const Record& record, std::string_view name) const
    {
        if (table != TableId::style || !name.empty()) return to_.findRecord(table, name);
        for (const Index style : to_.tableRecords(table)) // shape files have no names
            if (!to_.at(style).erased && to_.at(style).name().empty() &&
                sameName(to_.at(style).tags.text(3), record.tags.text(3)))
                return style;
        return kNone;
    }

    void bringTableRecord(Index old)
    {
        const Record& record = from_.at(old);
        TableId table{};
        if (find(old) != kNone || !tableOf(record.typeName(), table)) return;
        const std::string_view name = record.name();
        if (table == TableId::blockRecord && from_.isLayoutBlock(old)) {
            const Index same = to_.findRecord(table, name);
            const bool model = old == from_.modelSpace();
            const Index space = same != kNone ? same : model ? to_.modelSpace() : to_.paperSpace();
            if (space != kNone) keep(old, space);
            return;
        }
        const bool fixed = isFixed(table, record) || name.empty();
        std::string target(taken_ == Taken::unmangled && !fixed ? unmangled(name) : name);
        const Index there = present(table, record, target);
        if (name.starts_with("*") && table == TableId::blockRecord) {
            target = to_.anonymousBlockName(name.substr(0, 2));
        } else if (there != kNone) {
            const bool stays = fixed || there == owner_ || there >= firstNew_;
            if (!stays && taken_ == Taken::replaced) return replaceRecord(there, old);
            if (stays || !isMangling(taken_)) {
                keep(old, there);
                if (target != name) names_[{table, nameKey(name)}] = target;
                return;
            }
            target = mangled(name, [&](const std::string& other) {
                return to_.findRecord(table, other) == kNone;
            });
        }
        const Index made = copyRecord(old);
        if (target != name) {
            setName(to_.edit(made), target);
            names_[{table, nameKey(name)}] = target;
        }
        to_.appendRecord(table, made);
    }

    /// The record that is there keeps its handle, so that what names it by that finds the new one.
    void replaceRecord(Index there, Index old)
    {
        for (Index child = to_.firstChild(there); child != kNone; child = to_.next(child))
            to_.setErased(child, true);
        const Index extension = to_.byHandle(to_.at(there).extensionDictionary());
        if (extension != kNone) {
            to_.setErased(extension, true);
            to_.edit(there).needExtras().extensionDictionary = 0;
        }
        refill(there, old);
    }

    template <class IsFree>
    std::string mangled(std::string_view name, IsFree isFree) const
    {
        const std::string front = taken_ == Taken::mangledWithDrawing ? drawingName_ : "";
        for (std::uint64_t number = 0;; ++number) {
            std::string other = front + "$" + std::to_string(number) + "$" + std::string(name);
            if (isFree(other)) return other;
        }
    }

    // Objects --------------------------------------------------------------------------------

    /// Copies an object into a dictionary; gives what stands for it there, or kNone.
    Index enter(Index dictionary, std::string key, Index old, Taken taken)
    {
        if (find(old) != kNone) return find(old);
        if (taken == Taken::asFlagged) taken = flagged(from_, old);
        if (taken == Taken::unmangled) key = unmangled(key);
        const Index there = to_.dictionaryEntry(dictionary, key);
        if (from_.at(old).kind() == Kind::layout) { // belongs to its space
            if (there != kNone) keep(old, there);
            return there;
        }
        if (there != kNone) {
            if (key.starts_with("*")) {
                key = "*";
            } else if (taken == Taken::replaced && there < firstNew_) {
                to_.setErased(there, true);
            } else if (isMangling(taken)) {
                key = mangled(key, [&](const std::string& other) {
                    return to_.dictionary(dictionary)->find(other) == nullptr;
                });
            } else {
                keep(old, there);
                merge(old, there);
                return there;
            }
        }
        const Index made = copyRecord(old);
        hang(dictionary, key, made);
        return made;
    }

    void hang(Index dictionary, const std::string& key, Index made)
    {
        // An entry whose object is lost does not stand in the way.
        if (to_.dictionary(dictionary)->find(key) != nullptr)
            to_.removeFromDictionary(dictionary, key);
        to_.addToDictionary(dictionary, key, made);
    }

    void merge(Index old, Index made)
    {
        if (from_.dictionary(old) != nullptr && to_.dictionary(made) != nullptr)
            merges_.push_back({old, made});
    }

    void mergeEntries(Merge pair)
    {
        const Record& dictionary = from_.at(pair.old);
        const bool hard = dictionary.tags.integer(kHardOwnerGroup) != 0;
        for (const Dictionary::Entry& entry : dictionary.dictionary()->entries()) {
            const Index object = from_.byHandle(entry.object);
            const Reference how = hard || entry.hard ? Reference::hardOwner : Reference::softOwner;
            if (object == kNone || from_.at(object).erased || !follows(how, object)) continue;
            enter(pair.made, entry.key, object, Taken::asFlagged);
        }
    }

    /// Does the next of what waits; false when nothing does. Everything copied so far has what it
    /// owns.
    bool bringNext()
    {
        if (!merges_.empty()) {
            const Merge pair = merges_.back();
            merges_.pop_back();
            mergeEntries(pair);
            return true;
        }
        if (wanted_.empty()) return false;
        const Wanted next = wanted_.back();
        wanted_.pop_back();
        if (find(next.object) == kNone) place(next);
        return true;
    }

    /// Brings an object to its own place: down the dictionaries with the same keys, from the root
    /// or from an object that stands in this drawing for the owner there.
    void place(Wanted wanted)
    {
        std::vector<Index> way{wanted.object};
        Index at = kNone;
        while (at == kNone) {
            const Index owner = from_.byHandle(from_.at(way.back()).owner);
            if (owner == kNone || way.size() > std::size_t{kMostOwners}) return;
            if (owner == from_.rootDictionary()) {
                at = to_.rootDictionary();
                if (at == kNone) return;
            } else if (find(owner) != kNone) {
                at = find(owner);
            } else if (from_.dictionary(owner) != nullptr) {
                way.push_back(owner);
            } else {
                if (wanted.again) return; // it did not come with its owner
                wanted_.push_back({wanted.object, true});
                want(owner); // done first
                return;
            }
        }
        for (std::size_t i = way.size(); i-- > 0 && at != kNone;) at = step(at, way[i], i == 0);
    }

    /// One step down that way: from what stands for the owner of `old` to what stands for `old`.
    Index step(Index at, Index old, bool last)
    {
        if (find(old) != kNone) return find(old);
        const Record& owner = from_.at(from_.byHandle(from_.at(old).owner));
        if (owner.extensionDictionary() == from_.at(old).handle) {
            const Index made = to_.needExtensionDictionary(at);
            keep(old, made);
            if (last) merge(old, made);
            return made;
        }
        const std::string key = keys_.of(old);
        if (to_.dictionary(at) == nullptr || key == "*") return kNone;
        if (last) return enter(at, key, old, Taken::asFlagged);
        const Index there = to_.dictionaryEntry(at, key);
        if (there != kNone) {
            if (to_.dictionary(there) == nullptr) return kNone;
            keep(old, there);
            return there;
        }
        const Record& dictionary = from_.at(old);
        const Index made = to_.addDictionary(dictionary.tags.integer(kHardOwnerGroup) != 0);
        setDictionaryCloning(
            to_.edit(made),
            static_cast<int>(flag(dictionary.tags.integer(kDictionaryCloningGroup))));
        keep(old, made);
        hang(at, key, made);
        return made;
    }

    // Classes --------------------------------------------------------------------------------

    /// The place in the other drawing's list of classes of one of this drawing.
    std::size_t bringClass(const TagList& row)
    {
        std::vector<TagList>& classes = to_.classes;
        const auto known = std::ranges::find_if(classes, [&](const TagList& other) {
            return other.text(1) == row.text(1) && other.text(2) == row.text(2);
        });
        const auto place = static_cast<std::size_t>(known - classes.begin());
        if (known == classes.end()) {
            classes.push_back(row);
            to_.noteChange();
        }
        return place;
    }

    void bringClass(const Record& record, Index made)
    {
        if (record.kind() == Kind::proxyEntity || record.kind() == Kind::proxyObject) {
            const auto number = record.tags.find(91);
            if (number == record.tags.end()) return;
            const std::int64_t row = (*number).integer() - kFirstClass;
            if (row < 0 || row >= static_cast<std::int64_t>(from_.classes.size())) return;
            TagList fresh;
            fresh.addInteger(91, kFirstClass + static_cast<std::int64_t>(bringClass(
                                                   from_.classes[static_cast<std::size_t>(row)])));
            TagList& tags = to_.edit(made).tags;
            tags.replace(tags.find(91), fresh);
            return;
        }
        const std::string_view name = record.typeName();
        for (const TagList& row : from_.classes)
            if (row.text(1) == name) bringClass(row);
    }

    const Taken taken_;
    const std::string drawingName_; // file form
    Index owner_ = kNone;
    std::vector<Wanted> wanted_; // the last one is next
    std::vector<Merge> merges_;
    std::vector<std::pair<Index, Index>> entities_; // blocks and what hangs there in the end
    const Index firstNew_; // places of the other drawing from here on are copies
};

} // namespace

std::vector<Copied> copyBetween(const Drawing& from, std::span<const Index> objects, Drawing& to,
                                Index owner, Taken taken, std::string_view drawingName)
{
    return CopierBetween(from, to, objects, taken, drawingName).run(owner);
}

std::vector<Index> replacedBy(const Drawing& from, std::span<const Index> objects,
                              const Drawing& to, Index owner, Taken taken)
{
    std::vector<Index> replaced;
    Keys keys(from);
    for (const Index object : objects) {
        const Taken how = taken == Taken::asFlagged ? flagged(from, object) : taken;
        const Index there =
            how == Taken::replaced ? to.dictionaryEntry(owner, keys.of(object)) : kNone;
        if (there != kNone) replaced.push_back(there);
    }
    return replaced;
}

} // namespace orvald::drawing
