// SPDX-License-Identifier: LicenseRef-ORVALD
// Records of a drawing: places, handles, ids, blocks and their entities, erasing.
#include "drawing/drawing.h"

#include "drawing/text.h"

#include <algorithm>
#include <unordered_set>

namespace orvald::drawing {
namespace {

// Open drawings by serial. A serial comes back only after all others were used, so an id of a
// drawing that was closed long ago does not suddenly name an object of a new one.
std::vector<Drawing*>& openDrawings()
{
    static std::vector<Drawing*> drawings(std::size_t{1} << 16, nullptr);
    return drawings;
}
std::uint16_t lastSerial = 0;

constexpr std::size_t kHeapHead = 16; // what the allocator adds to a block, about

/// Takes a dictionary away as owner and persistent reactor.
void cutOwner(Record& record, Handle dictionary)
{
    record.owner = 0;
    std::erase(record.needExtras().reactors, dictionary);
    record.trimExtras();
}

} // namespace

Drawing::Drawing()
{
    std::vector<Drawing*>& open = openDrawings();
    std::uint16_t serial = lastSerial;
    do {
        if (++serial == lastSerial) throw std::bad_alloc(); // 65535 drawings are open
    } while (serial == 0 || open[serial] != nullptr);
    lastSerial = serial_ = serial;
    open[serial] = this;
}

Drawing::~Drawing() { openDrawings()[serial_] = nullptr; }

Drawing* Drawing::ofId(ObjectId id)
{
    return id.value >> 48 != 0 ? nullptr : openDrawings()[id.serial()];
}

Index Drawing::indexOf(ObjectId id) const
{
    const auto low = static_cast<std::uint32_t>(id.value);
    if (id.value >> 48 != 0 || id.serial() != serial_ || low == 0 || low > count_) return kNone;
    return low - 1;
}

const Record* Drawing::find(ObjectId id) const
{
    const Index index = indexOf(id);
    return index == kNone ? nullptr : &at(index);
}

Journal& Drawing::journal()
{
    if (journal_ == nullptr) journal_ = std::make_unique<Journal>(*this);
    return *journal_;
}

Handle Drawing::newHandle()
{
    // What was taken back keeps its handle.
    while (handles_.find(nextHandle_) != kNone) ++nextHandle_;
    return nextHandle_++;
}

void Drawing::reserveHandles(Handle upTo) { nextHandle_ = std::max(nextHandle_, upTo + 1); }

Index Drawing::add(Record&& record)
{
    if (record.handle == 0) record.handle = newHandle();
    if (!handles_.add(record.handle, count_)) return kNone;
    reserveHandles(record.handle);
    return place(std::move(record));
}

Index Drawing::addUnnamed(Record&& record) { return place(std::move(record)); }

void Drawing::giveHandle(Index index)
{
    const Handle handle = newHandle();
    handles_.add(handle, index);
    edit(index).handle = handle;
    for (Index child = firstChild(index); child != kNone; child = next(child))
        edit(child).owner = handle;
}

Index Drawing::place(Record&& record)
{
    if (count_ == kNone) throw std::bad_alloc();
    if (count_ % kChunk == 0) chunks_.push_back(std::make_unique<Slot[]>(kChunk));
    const Index index = count_++;
    if (watching_) remember(index);
    slot(index).record = std::move(record);
    ++changes_;
    return index;
}

void Drawing::watch(bool on)
{
    watching_ = on;
    takeTouched([](Index) { return true; });
}

void Drawing::remember(Index index)
{
    Slot& place = slot(index);
    if (std::exchange(place.touched, true)) return;
    const Record& record = place.record;
    touched_.push_back({index, record.undone        ? Touched::Before::undone
                               : record.erased      ? Touched::Before::erased
                               : record.handle == 0 ? Touched::Before::absent
                                                    : Touched::Before::living});
}

void Drawing::appendChild(Index owner, Index child)
{
    Extras& extras = edit(owner).needExtras();
    touch(child);
    Slot& mine = slot(child);
    mine.record.owner = at(owner).handle;
    mine.previous = extras.lastChild;
    mine.next = kNone;
    if (extras.lastChild == kNone) {
        extras.firstChild = child;
    } else {
        save(extras.lastChild);
        slot(extras.lastChild).next = child;
    }
    extras.lastChild = child;
}

Index Drawing::firstChild(Index owner) const
{
    const Extras* extras = at(owner).extras();
    return extras == nullptr ? kNone : extras->firstChild;
}

Index Drawing::lastChild(Index owner) const
{
    const Extras* extras = at(owner).extras();
    return extras == nullptr ? kNone : extras->lastChild;
}

void Drawing::dropChildren(Index owner)
{
    Extras& extras = edit(owner).needExtras();
    for (Index child = extras.firstChild; child != kNone;) {
        touch(child);
        Slot& mine = slot(child);
        child = mine.next;
        mine.previous = mine.next = kNone;
    }
    extras.firstChild = extras.lastChild = kNone;
    livingEnds_.forget();
}

Index Drawing::addBlock(std::string_view name, Point base)
{
    if (findRecord(TableId::blockRecord, name) != kNone) return kNone;
    Record block(Kind::blockRecord, Family::tableRecord);
    block.tags.addText(100, "AcDbSymbolTableRecord");
    block.tags.addText(100, "AcDbBlockTableRecord");
    block.tags.addText(2, name);
    block.tags.addHandle(340, 0);
    block.tags.addInteger(70, 0);
    block.tags.addInteger(280, 1);
    block.tags.addInteger(281, 0);
    const Index index = add(std::move(block));
    appendRecord(TableId::blockRecord, index);

    Record begin(Kind::block, Family::entity);
    begin.owner = at(index).handle;
    begin.tags.addText(100, "AcDbEntity");
    begin.tags.addText(8, "0");
    begin.tags.addText(100, "AcDbBlockBegin");
    begin.tags.addText(2, name);
    begin.tags.addInteger(70, name.starts_with("*") ? 1 : 0);
    begin.tags.addPoint(10, base);
    begin.tags.addText(3, name);
    begin.tags.addText(1, "");
    Record end(Kind::endblk, Family::entity);
    end.owner = at(index).handle;
    end.tags.addText(100, "AcDbEntity");
    end.tags.addText(8, "0");
    end.tags.addText(100, "AcDbBlockEnd");
    const Index beginIndex = add(std::move(begin)), endIndex = add(std::move(end));
    Extras& extras = edit(index).needExtras();
    extras.blockBegin = beginIndex;
    extras.blockEnd = endIndex;
    return index;
}

Index Drawing::currentSpace() const
{
    return header.integer("$TILEMODE", 1) != 0 ? modelSpace() : paperSpace();
}

bool Drawing::isLayoutBlock(Index blockRecord) const
{
    const std::string_view name = at(blockRecord).name();
    return sameName(name, "*Model_Space") || nameKey(name.substr(0, 12)) == "*PAPER_SPACE";
}

std::string_view Drawing::layoutName(Index blockRecord) const
{
    const Index layout = byHandle(at(blockRecord).tags.handle(340));
    if (layout == kNone || at(layout).kind() != Kind::layout) return {};
    const TagList& tags = at(layout).tags;
    const auto name = tags.find(1, tags.findMarker("AcDbLayout"));
    return name == tags.end() ? std::string_view() : (*name).text();
}

std::vector<Index> Drawing::blocksInside(std::string_view name) const
{
    std::vector<Index> blocks;
    std::unordered_set<Index> seen{kNone};
    const auto take = [&](std::string_view of) {
        const Index block = findRecord(TableId::blockRecord, of);
        if (seen.insert(block).second) blocks.push_back(block);
    };
    take(name);
    for (std::size_t i = 0; i < blocks.size(); ++i)
        for (Index child = firstChild(blocks[i]); child != kNone; child = next(child))
            if (at(child).kind() == Kind::insert && !at(child).erased) take(at(child).tags.text(2));
    return blocks;
}

Index Drawing::blockOf(Index entity) const
{
    for (int step = 0; step < 2; ++step) { // a part, then its entity
        entity = byHandle(at(entity).owner);
        if (entity == kNone) return kNone;
        if (at(entity).kind() == Kind::blockRecord) return entity;
        if (!hasParts(at(entity).kind())) return kNone;
    }
    return kNone;
}

bool Drawing::isGone(Index index) const
{
    for (int step = 0; index != kNone && step < kMostOwners; ++step) {
        if (at(index).erased) return true;
        index = byHandle(at(index).owner);
    }
    return false;
}

bool Drawing::mayErase(Index index) const
{
    const Record& record = at(index);
    if (record.isEntity()) return record.isMainEntity();
    return record.family() == Family::object && index != root_;
}

bool Drawing::setErased(Index index, bool erased)
{
    if (at(index).erased == erased || at(index).undone) return false;
    Record& record = edit(index);
    record.erased = erased;
    if (!erased) livingEnds_.forget();
    TableId table{};
    if (record.family() == Family::object) {
        const Index owner = byHandle(record.owner);
        const Dictionary* entries = owner == kNone ? nullptr : at(owner).dictionary();
        const Dictionary::Entry* entry =
            entries == nullptr ? nullptr : entries->find(record.handle);
        if (erased && entry != nullptr)
            edit(owner).needExtras().dictionary->remove(std::string(entry->key));
        if (!erased && entries != nullptr && entry == nullptr) cutOwner(record, record.owner);
    } else if (!erased && record.family() == Family::tableRecord &&
               tableOf(record.typeName(), table)) {
        editTable(table).byName.try_emplace(nameKey(record.name()), index);
    }
    return true;
}

std::size_t Drawing::memory() const
{
    std::size_t sum =
        sizeof(Drawing) + handles_.memory() + chunks_.size() * (kChunk * sizeof(Slot) + kHeapHead);
    const auto list = [&sum](const TagList& tags) {
        if (tags.memory() != 0) sum += tags.memory() + kHeapHead;
    };
    for (Index i = 0; i < count_; ++i) {
        const Record& record = at(i);
        list(record.tags);
        const Extras* extras = record.extras();
        if (extras == nullptr) continue;
        sum += sizeof(Extras) + kHeapHead + extras->reactors.capacity() * sizeof(Handle);
        list(extras->xdata);
        if (extras->dictionary)
            sum += extras->dictionary->size() * sizeof(Dictionary::Entry) + kHeapHead;
    }
    for (const HeaderVariables::Variable& variable : header.all()) list(variable.value);
    for (const RawSection& section : rawSections) sum += section.text.capacity();
    return sum;
}

} // namespace orvald::drawing
