// SPDX-License-Identifier: LicenseRef-ORVALD
// References that hold the drawing together: owners, dictionary entries, extension dictionaries.
// Pointers that only look elsewhere (reactors, groups 330 and 340) stay as they are, dangling or
// not.
#include "mend.h"

#include <algorithm>
#include <set>

namespace orvald::dxf {

using namespace drawing;

namespace {

class Mender
{
public:
    Mender(Drawing& drawing, Warnings& warnings) : drawing_(drawing), warnings_(warnings) {}

    void run()
    {
        for (const Index block : drawing_.tableRecords(TableId::blockRecord)) mendBlock(block);
        for (const Index style : drawing_.tableRecords(TableId::dimstyle)) mendNames(style);
        for (const TableId table : {TableId::vport, TableId::view})
            for (const Index view : drawing_.tableRecords(table)) mendView(view);
        mendRoot();
        const Index count = drawing_.recordCount();
        for (Index i = 0; i < count; ++i)
            if (drawing_.at(i).dictionary() != nullptr) mendEntries(i);
        for (Index i = 0; i < count; ++i) {
            if (drawing_.at(i).extensionDictionary() != 0) mendExtension(i);
            if (drawing_.at(i).family() == Family::tableHead && drawing_.at(i).owner != 0)
                drawing_.edit(i).owner = 0;
        }
        for (Index i = 0; i < count; ++i)
            if (drawing_.at(i).family() == Family::object && i != drawing_.rootDictionary())
                mendOwner(i);
        for (const auto& [dictionary, object] : strangers_) mendStranger(dictionary, object);
    }

private:
    std::string nameOf(Index index) const
    {
        const Record& record = drawing_.at(index);
        return std::string(record.typeName()) + " " + handleText(record.handle);
    }
    void warn(std::string text) { warnings_.add(0, std::move(text)); }

    /// BLOCK and ENDBLK of a block record: there, and owned by it.
    void mendBlock(Index block)
    {
        Extras& extras = drawing_.edit(block).needExtras();
        const std::string name(drawing_.at(block).name());
        if (extras.blockBegin == kNone) {
            warn("block " + quoted(name) + " has no definition: an empty one is made");
            Record begin(Kind::block, Family::entity);
            begin.tags.addText(100, "AcDbEntity");
            begin.tags.addText(8, "0");
            begin.tags.addText(100, "AcDbBlockBegin");
            begin.tags.addText(2, name);
            begin.tags.addInteger(70, 0);
            begin.tags.addPoint(10, {});
            begin.tags.addText(3, name);
            begin.tags.addText(1, "");
            extras.blockBegin = drawing_.add(std::move(begin));
        }
        if (extras.blockEnd == kNone) {
            Record end(Kind::endblk, Family::entity);
            end.tags.addText(100, "AcDbEntity");
            end.tags.addText(8, "0");
            end.tags.addText(100, "AcDbBlockEnd");
            extras.blockEnd = drawing_.add(std::move(end));
        }
        for (const Index part : {extras.blockBegin, extras.blockEnd})
            drawing_.edit(part).owner = drawing_.at(block).handle;
    }

    /// What a dimension style names, it points to.
    void mendNames(Index style)
    {
        TagList fresh;
        bool anyName = false;
        for (const Tag tag : drawing_.at(style).tags) {
            if (!tag.isText() || tag.code() < 340 || tag.code() > 347) {
                fresh.add(tag);
                continue;
            }
            anyName = true;
            const TableId table = tag.code() == 340   ? TableId::style
                                  : tag.code() <= 344 ? TableId::blockRecord
                                                      : TableId::ltype;
            const Index named = drawing_.findRecord(table, tag.text());
            fresh.addHandle(tag.code(), named == kNone ? 0 : drawing_.at(named).handle);
        }
        if (!anyName) return;
        warn(nameOf(style) + ": names stood where handles belong");
        drawing_.edit(style).tags = fresh;
    }

    /// A view without the style or background that it points to has none.
    void mendView(Index view)
    {
        bool mended = false;
        TagList& tags = drawing_.edit(view).tags;
        for (auto at = tags.begin(); at != tags.end(); ++at) {
            const Tag tag = *at;
            const bool hard = tag.code() >= 340 && tag.code() <= 369 && tag.handle() != 0;
            if (!hard || drawing_.byHandle(tag.handle()) != kNone) continue;
            tags.setHandle(at, 0);
            mended = true;
        }
        if (mended) warn(nameOf(view) + " pointed to objects that do not exist");
    }

    void mendRoot()
    {
        if (drawing_.rootDictionary() != kNone) return;
        for (Index i = 0; i < drawing_.recordCount(); ++i) {
            const Dictionary* entries = drawing_.at(i).dictionary();
            if (entries == nullptr) continue;
            if (entries->find("ACAD_GROUP") == nullptr && entries->find("ACAD_LAYOUT") == nullptr)
                continue;
            warn("the root dictionary was owned by " + handleText(drawing_.at(i).owner));
            drawing_.edit(i).owner = 0;
            return drawing_.setRootDictionary(i);
        }
        warn("the drawing has no root dictionary: it is made");
        drawing_.setRootDictionary(drawing_.addDictionary(false));
    }

    /// Entries whose object is missing, no object or the dictionary itself go.
    void mendEntries(Index index)
    {
        const auto isLost = [&](const Dictionary::Entry& entry) {
            const Index object = drawing_.byHandle(entry.object);
            return object == kNone || object == index ||
                   drawing_.at(object).family() != Family::object;
        };
        bool anyLost = false;
        for (const Dictionary::Entry& entry : drawing_.at(index).dictionary()->entries()) {
            if (!isLost(entry)) {
                const Index object = drawing_.byHandle(entry.object);
                if (drawing_.at(object).owner != drawing_.at(index).handle)
                    strangers_.emplace_back(index, object);
                continue;
            }
            anyLost = true;
            warn(nameOf(index) + ": entry " + quoted(entry.key) +
                 " names no object and is left out");
        }
        if (anyLost) drawing_.edit(index).needExtras().dictionary->removeIf(isLost);
    }

    void mendExtension(Index index)
    {
        const Index extension = drawing_.byHandle(drawing_.at(index).extensionDictionary());
        const Handle mine = drawing_.at(index).handle;
        const auto drop = [&](std::string_view why) {
            warn(nameOf(index) + ": extension dictionary " + std::string(why) + ": left out");
            drawing_.edit(index).needExtras().extensionDictionary = 0;
            drawing_.edit(index).trimExtras();
        };
        if (extension == kNone) return drop("is missing");
        if (drawing_.at(extension).dictionary() == nullptr ||
            extension == drawing_.rootDictionary())
            return drop("is none");
        if (drawing_.at(extension).owner == mine) return;
        const Index owner = drawing_.byHandle(drawing_.at(extension).owner);
        if (owner != kNone &&
            drawing_.at(owner).extensionDictionary() == drawing_.at(extension).handle)
            return drop("belongs to another object");
        warn(nameOf(index) + ": its extension dictionary did not name its owner");
        drawing_.edit(extension).owner = mine;
    }

    /// An object without a living owner goes to the dictionary that lists it, else to the root.
    void mendOwner(Index index)
    {
        const Record& record = drawing_.at(index);
        if (record.owner != 0 && drawing_.byHandle(record.owner) != kNone) return;
        if (!listed_) {
            listed_.emplace();
            for (Index i = 0; i < drawing_.recordCount(); ++i) {
                if (drawing_.at(i).dictionary() == nullptr) continue;
                for (const Dictionary::Entry& entry : drawing_.at(i).dictionary()->entries())
                    listed_->try_emplace(entry.object, drawing_.at(i).handle);
            }
        }
        const auto lister = listed_->find(record.handle);
        warn(nameOf(index) + " had no owner");
        drawing_.edit(index).owner = lister != listed_->end()
                                         ? lister->second
                                         : drawing_.at(drawing_.rootDictionary()).handle;
    }

    /// An entry whose owner is another object, which knows nothing of it, gets its dictionary as
    /// owner.
    void mendStranger(Index dictionary, Index object)
    {
        const Record& record = drawing_.at(object);
        const Handle mine = drawing_.at(dictionary).handle;
        if (record.owner == mine || object == drawing_.rootDictionary()) return;
        const Index owner = drawing_.byHandle(record.owner);
        if (owners_.insert(owner).second) noteHeld(drawing_.at(owner));
        if (held_.contains({record.owner, record.handle})) return;
        warn(nameOf(object) + " was owned by something else than its dictionary");
        drawing_.edit(object).owner = mine;
    }

    /// Notes all that an owner names as its own.
    void noteHeld(const Record& owner)
    {
        const auto note = [&](Handle object) { held_.emplace(owner.handle, object); };
        note(owner.extensionDictionary());
        if (const Dictionary* entries = owner.dictionary())
            for (const Dictionary::Entry& entry : entries->entries()) note(entry.object);
        for (const Tag tag : owner.tags)
            if (tag.code() >= 350 && tag.code() <= 369) note(tag.handle());
    }

    Drawing& drawing_;
    Warnings& warnings_;
    std::vector<std::pair<Index, Index>> strangers_; // dictionary, entry that it does not own
    std::set<Index> owners_;                         // of strangers
    std::set<std::pair<Handle, Handle>> held_;       // what these own, and by whom
    std::optional<std::unordered_map<Handle, Handle>> listed_; // object to dictionary
};

} // namespace

void mendStructure(Drawing& drawing, Warnings& warnings) { Mender(drawing, warnings).run(); }

} // namespace orvald::dxf
