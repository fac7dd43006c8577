// SPDX-License-Identifier: LicenseRef-ORVALD
// Hanging records into a drawing in the order of the file.
#include "loader.h"

#include "drawing/markers.h"
#include "drawing/text.h"

namespace orvald::dxf {

using namespace drawing;

namespace {

[[noreturn]] void fail(std::uint64_t line, const Record& record, std::string reason)
{
    std::string type(record.typeName());
    throw Fail{{{}, line, 0, type + ": " + std::move(reason), record.handle}};
}

std::string name(const Record& record)
{
    return std::string(record.typeName()) + " " + quoted(record.name());
}

} // namespace

void Warnings::add(std::uint64_t line, std::string text)
{
    if (list_.size() < kMostWarnings) list_.push_back({line, std::move(text)});
    else ++more_;
}

std::vector<Warning> Warnings::take()
{
    if (more_ != 0) list_.push_back({0, "... and " + std::to_string(more_) + " more"});
    more_ = 0;
    return std::move(list_);
}

void Loader::variable(std::string_view variableName, const TagList& value)
{
    drawing_.header.need(variableName) = value;
    if (variableName == "$ACADVER") old_ = value.text(1) < kFirstMarkedVersion;
}

void Loader::warnUnlessOld(std::uint64_t line, std::string text)
{
    if (!old_) warn(line, std::move(text));
}

void Loader::bringUpName(Record& record) const
{
    const std::string_view name = record.name();
    const std::string_view space = sameName(name, "$MODEL_SPACE")   ? "*Model_Space"
                                   : sameName(name, "$PAPER_SPACE") ? "*Paper_Space"
                                                                    : "";
    if (space.empty()) return;
    for (const int code : {2, 3}) {
        const auto place = record.tags.find(code);
        if (place == record.tags.end()) continue;
        TagList fresh;
        fresh.addText(code, space);
        record.tags.replace(place, fresh);
    }
}

void Loader::rawSection(std::string_view sectionName, std::string&& text)
{
    drawing_.rawSections.push_back({std::string(sectionName), std::move(text)});
}

Index Loader::takeIn(Record&& record, std::uint64_t line)
{
    if (record.handle == 0) {
        warnUnlessOld(line, std::string(record.typeName()) + " without a handle gets a new one");
        unnamed_.push_back(drawing_.addUnnamed(std::move(record)));
        return unnamed_.back();
    }
    const Handle handle = record.handle;
    const Index index = drawing_.add(std::move(record));
    if (index == kNone) {
        const Record& first = drawing_.at(drawing_.byHandle(handle));
        throw Fail{{{},
                    line,
                    5,
                    "the handle is in use already (" + std::string(first.typeName()) + ")",
                    handle}};
    }
    return index;
}

void Loader::record(Section section, Record&& record, std::uint64_t line)
{
    if (section != section_) {
        closeParts(line);
        closeBlock(line);
        section_ = section;
    }
    const Kind kind = record.kind();
    if (section == Section::objects ? !mayBeObject(kind)
                                    : section != Section::tables && !mayBeEntity(kind))
        fail(line, record, "does not belong into this section");
    if (old_) {
        const std::int64_t flags =
            openEntity_ == kNone ? 0 : drawing_.at(openEntity_).tags.integer(70);
        addMarkers(record, flags);
        if (kind == Kind::block || kind == Kind::blockRecord) bringUpName(record);
    }
    if (record.isEntity()) mendEntity(record);
    const Index index = takeIn(std::move(record), line);
    switch (section) {
    case Section::tables:
        if (drawing_.at(index).family() == Family::tableHead) tableHead(index, line);
        else tableRecord(index, line);
        break;
    case Section::blocks:
        if (kind == Kind::block) blockBegin(index, line);
        else if (kind == Kind::endblk) blockEnd(index, line);
        else if (openBlock_ == kNone)
            fail(line, drawing_.at(index), "an entity between the blocks");
        else entity(openBlock_, index, line);
        break;
    case Section::entities:
        if (kind == Kind::block || kind == Kind::endblk)
            fail(line, drawing_.at(index), "does not belong into this section");
        entity(isPart(kind) ? kNone : spaceOf(index, line), index, line);
        break;
    case Section::objects:
        if (drawing_.rootDictionary() == kNone && drawing_.at(index).dictionary() != nullptr &&
            drawing_.at(index).owner == 0)
            drawing_.setRootDictionary(index);
        break;
    }
}

void Loader::mendEntity(Record& record)
{
    if (!record.tags.has(8)) {
        const auto marker = record.tags.findMarker("AcDbEntity");
        TagList layer;
        layer.addText(8, "0");
        record.tags.insert(marker == record.tags.end() ? record.body() : std::next(marker), layer);
        noLayers_ += old_ ? 0 : 1;
    }
    if (record.kind() == Kind::other) return; // an application's 210 may be anything
    const auto normal = record.tags.find(210);
    if (normal == record.tags.end()) return;
    const Point direction = (*normal).point();
    if (direction.x != 0.0 || direction.y != 0.0 || direction.z != 0.0) return;
    record.tags.erase(normal);
    ++noNormals_;
}

void Loader::tableHead(Index index, std::uint64_t line)
{
    const Record& head = drawing_.at(index);
    TableId table{};
    if (!tableOf(head.name(), table) || head.name() != tableName(table))
        fail(line, head, quoted(head.name()) + " is no table");
    if (drawing_.tableHead(table) != kNone) fail(line, head, "second table " + quoted(head.name()));
    drawing_.setTableHead(table, index);
}

void Loader::tableRecord(Index index, std::uint64_t line)
{
    const Record& record = drawing_.at(index);
    TableId table{};
    if (record.kind() == Kind::block || !tableOf(record.typeName(), table))
        fail(line, record, "does not belong into a table");
    if (drawing_.tableHead(table) == kNone) fail(line, record, "stands in front of its table");
    if (!record.tags.has(2)) fail(line, record, "has no name");
    const Handle owner = record.owner;
    if (!drawing_.appendRecord(table, index)) {
        if (table == TableId::blockRecord)
            fail(line, record, "second one of name " + quoted(record.name()));
        // Names elsewhere mean the first one; this one stays reachable under another name.
        const std::string taken(record.name());
        std::string other;
        int& number = renamed_[nameKey(taken)];
        while (other.empty() || drawing_.findRecord(table, other) != kNone)
            other = taken + "_" + std::to_string(++number);
        TagList fresh;
        fresh.addText(2, other);
        TagList& tags = drawing_.edit(index).tags;
        tags.replace(tags.find(2), fresh);
        drawing_.appendRecord(table, index);
        warn(line, "second " + std::string(record.typeName()) + " " + quoted(taken) +
                       " is renamed to " + quoted(other));
    }
    if (owner != 0 && owner != drawing_.at(index).owner)
        warn(line, name(record) + " was owned by something else than its table");
}

Index Loader::needBlockRecord(std::string_view blockName, std::uint64_t line)
{
    const Index known = drawing_.findRecord(TableId::blockRecord, blockName);
    if (known != kNone) return known;
    warnUnlessOld(line, "block " + quoted(blockName) + " has no BLOCK_RECORD: one is made");
    Record made(Kind::blockRecord, Family::tableRecord);
    made.tags.addText(100, "AcDbSymbolTableRecord");
    made.tags.addText(100, recordMarker(TableId::blockRecord));
    made.tags.addText(2, blockName);
    made.tags.addHandle(340, 0);
    unnamed_.push_back(drawing_.addUnnamed(std::move(made)));
    drawing_.appendRecord(TableId::blockRecord, unnamed_.back());
    return unnamed_.back();
}

void Loader::setOwner(Index index, Index owner, std::uint64_t line)
{
    Record& record = drawing_.edit(index);
    const Handle handle = drawing_.at(owner).handle;
    if (record.owner != 0 && record.owner != handle)
        warn(line, name(record) + " was owned by something else than its block");
    record.owner = handle;
}

void Loader::blockBegin(Index index, std::uint64_t line)
{
    closeParts(line);
    const Record& record = drawing_.at(index);
    if (openBlock_ != kNone) fail(line, record, "the block in front of it has no ENDBLK");
    const Index owner = drawing_.byHandle(record.owner);
    const bool fits = owner != kNone && drawing_.at(owner).kind() == Kind::blockRecord &&
                      sameName(drawing_.at(owner).name(), record.name());
    openBlock_ = fits ? owner : needBlockRecord(std::string(record.name()), line);
    Extras& extras = drawing_.edit(openBlock_).needExtras();
    if (extras.blockBegin != kNone)
        fail(line, record, "second definition of block " + quoted(record.name()));
    extras.blockBegin = index;
    setOwner(index, openBlock_, line);
}

void Loader::blockEnd(Index index, std::uint64_t line)
{
    closeParts(line);
    if (openBlock_ == kNone) fail(line, drawing_.at(index), "no block is open");
    drawing_.edit(openBlock_).needExtras().blockEnd = index;
    setOwner(index, openBlock_, line);
    openBlock_ = kNone;
}

void Loader::closeBlock(std::uint64_t line)
{
    if (openBlock_ == kNone) return;
    fail(line, drawing_.at(drawing_.at(openBlock_).extras()->blockBegin),
         "the block has no ENDBLK");
}

Index Loader::spaceOf(Index entityIndex, std::uint64_t line)
{
    const Record& record = drawing_.at(entityIndex);
    if (record.owner != 0 && record.owner == lastOwner_) return lastSpace_;
    const Index owner = drawing_.byHandle(record.owner);
    if (owner != kNone && drawing_.at(owner).kind() == Kind::blockRecord &&
        drawing_.isLayoutBlock(owner)) {
        lastOwner_ = record.owner;
        return lastSpace_ = owner;
    }
    if (record.owner != 0)
        warn(line, std::string(record.typeName()) + " is owned by nothing that holds entities");
    return needBlockRecord(record.tags.integer(67) != 0 ? "*Paper_Space" : "*Model_Space", line);
}

void Loader::entity(Index block, Index index, std::uint64_t line)
{
    if (hangAsPart(index, line)) return;
    drawing_.appendChild(block, index);
    lastEntity_ = index;
    const Record& record = drawing_.at(index);
    const bool awaitsParts = record.kind() == Kind::polyline ||
                             (record.kind() == Kind::insert && record.tags.integer(66) != 0);
    if (awaitsParts) openEntity_ = index;
}

bool Loader::hangAsPart(Index index, std::uint64_t line)
{
    const Kind kind = drawing_.at(index).kind();
    const auto takes = [&](Index owner, Kind part) {
        return part == (drawing_.at(owner).kind() == Kind::polyline ? Kind::vertex : Kind::attrib);
    };
    if (kind == Kind::attrib && openEntity_ == kNone && lastEntity_ != kNone &&
        drawing_.at(lastEntity_).kind() == Kind::insert &&
        drawing_.firstChild(lastEntity_) == kNone) {
        openEntity_ = lastEntity_;
        warn(line, "an INSERT did not announce its attributes");
        TagList flag;
        flag.addInteger(66, 1);
        TagList& tags = drawing_.edit(openEntity_).tags;
        const auto place = tags.findMarker("AcDbBlockReference");
        tags.insert(place == tags.end() ? tags.begin() : std::next(place), flag);
    }
    if (openEntity_ != kNone && (kind == Kind::seqend || takes(openEntity_, kind))) {
        const Index owner = openEntity_;
        if (kind == Kind::seqend) openEntity_ = kNone;
        drawing_.appendChild(owner, index);
        return true;
    }
    if (isPart(kind)) fail(line, drawing_.at(index), "stands alone");
    closeParts(line);
    return false;
}

void Loader::closeParts(std::uint64_t line)
{
    if (openEntity_ == kNone) return;
    const Record& owner = drawing_.at(openEntity_);
    warn(line, std::string(owner.typeName()) + " has no SEQEND: it is added");
    Record end(Kind::seqend, Family::entity);
    end.tags.addText(100, "AcDbEntity");
    end.tags.addText(8, owner.layer());
    unnamed_.push_back(drawing_.addUnnamed(std::move(end)));
    drawing_.appendChild(openEntity_, unnamed_.back());
    openEntity_ = kNone;
}

void Loader::finish()
{
    closeParts(0);
    closeBlock(0);
    if (noNormals_ != 0) warn(0, std::to_string(noNormals_) + " normals of no length are left out");
    if (noLayers_ != 0)
        warn(0, std::to_string(noLayers_) + " entities without a layer are on layer 0");
    for (const Index index : unnamed_) drawing_.giveHandle(index);
    for (std::size_t i = 0; i < kTableCount; ++i) {
        const auto table = static_cast<TableId>(i);
        if (drawing_.tableHead(table) == kNone) continue;
        const Handle head = drawing_.at(drawing_.tableHead(table)).handle;
        for (const Index record : drawing_.tableRecords(table)) drawing_.edit(record).owner = head;
    }
    // The seed of the file may lie above its largest handle: handles that were given once.
    const TagList* seed = drawing_.header.find("$HANDSEED");
    if (seed != nullptr && seed->handle(5) != 0) drawing_.reserveHandles(seed->handle(5) - 1);
}

} // namespace orvald::dxf
