// SPDX-License-Identifier: LicenseRef-ORVALD
// The drawing database: records in stable places, found by id, handle or name.
// Everything that a drawing holds is a record or one of the few tables at the end of Drawing.
// Records are never removed: erasing marks them, so ids and handles stay good.
#pragma once

#include "drawing/handle_map.h"
#include "drawing/header.h"
#include "drawing/journal.h"
#include "drawing/living_ends.h"
#include "drawing/object_id.h"
#include "drawing/record.h"

#include <array>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace orvald::drawing {

/// Symbol tables in file order.
enum class TableId : std::uint8_t
{
    vport,
    ltype,
    layer,
    style,
    view,
    ucs,
    appid,
    dimstyle,
    blockRecord
};
static_assert(std::size_t(TableId::blockRecord) + 1 == kTableCount);
/// "LAYER".
std::string_view tableName(TableId table);
/// False when no table has that name; "BLOCK" means the block records.
bool tableOf(std::string_view name, TableId& table);
/// Kind of the records of a table.
Kind recordKind(TableId table);
/// Subclass marker of the records of a table.
std::string_view recordMarker(TableId table);

/// Owners above an object, at most: in a file they may run in a circle.
inline constexpr int kMostOwners = 1000;

/// A section that is kept as text, line by line, without its SECTION and ENDSEC.
struct RawSection
{
    std::string name; // "ACDSDATA"
    std::string text; // lines end with \n
};

/// A place that has changed, and what stood there before.
struct Touched
{
    enum class Before : std::uint8_t
    {
        absent,
        undone, // its making was taken back
        erased,
        living
    };
    Index index;
    Before before;
};

class Drawing
{
public:
    /// An empty database without any table: what a loader starts from.
    Drawing();
    ~Drawing();
    Drawing(const Drawing&) = delete;
    Drawing& operator=(const Drawing&) = delete;

    /// A new drawing with all that the host's files must hold, in millimetres, metric.
    static std::unique_ptr<Drawing> createNew();
    /// The open drawing that an id belongs to; null when it is closed or the id is null.
    static Drawing* ofId(ObjectId id);
    /// Unique over the open drawings, never 0.
    std::uint16_t serial() const { return serial_; }

    // Records ------------------------------------------------------------------------------
    /// Number of places in use; places 0 to recordCount() - 1 hold records.
    Index recordCount() const { return count_; }
    const Record& at(Index index) const { return slot(index).record; }
    /// For changing a record's contents. Counts as a change of the drawing.
    Record& edit(Index index)
    {
        ++changes_;
        touch(index);
        return slot(index).record;
    }
    ObjectId idOf(Index index) const
    {
        return index == kNone ? ObjectId{} : ObjectId{std::uint64_t{serial_} << 32 | (index + 1)};
    }
    /// kNone for a null id, an id of another drawing and one that was never given.
    Index indexOf(ObjectId id) const;
    /// Null as above.
    const Record* find(ObjectId id) const;
    /// kNone when no record has the handle.
    Index byHandle(Handle handle) const { return handles_.find(handle); }
    /// Grows with every change; equal counts mean equal contents.
    std::uint64_t changeCount() const { return changes_; }
    /// Counts a change of what is changed in place: header, classes, raw sections.
    void noteChange() { ++changes_; }

    /// Takes a record in. A handle of 0 becomes a new one; kNone, and nothing done, when its handle
    /// is taken. The record hangs nowhere yet.
    Index add(Record&& record);
    /// For a loader that does not know yet which handles are free: takes a record with handle 0 in;
    /// giveHandle must follow before anything looks for it.
    Index addUnnamed(Record&& record);
    /// A new handle for such a record; its children follow.
    void giveHandle(Index index);
    /// A handle that no record has had.
    Handle newHandle();
    /// What HANDSEED says: above all handles of the drawing.
    Handle nextHandle() const { return nextHandle_; }
    void reserveHandles(Handle upTo);

    // Blocks, entities and their parts -------------------------------------------------------
    /// Hangs an entity, already taken in, behind the last one of a block record, or a part behind
    /// the last part of a complex entity, and makes that its owner.
    void appendChild(Index owner, Index child);
    Index firstChild(Index owner) const;
    Index lastChild(Index owner) const;
    /// The same of those that are not erased.
    Index firstLiving(Index owner) const { return livingEnds_.first(*this, owner); }
    Index lastLiving(Index owner) const { return livingEnds_.last(*this, owner); }
    /// Neighbours under the same owner, erased ones included; kNone at the ends.
    Index next(Index child) const { return slot(child).next; }
    Index previous(Index child) const { return slot(child).previous; }
    /// Cuts all children off an owner (their records stay in the drawing).
    void dropChildren(Index owner);
    /// Makes a block record with its BLOCK and ENDBLK on layer 0; kNone when the name is taken.
    Index addBlock(std::string_view name, Point base = {});
    /// Block records of the model, of the active sheet and of the current one of both (TILEMODE).
    Index modelSpace() const { return findRecord(TableId::blockRecord, "*Model_Space"); }
    Index paperSpace() const { return findRecord(TableId::blockRecord, "*Paper_Space"); }
    Index currentSpace() const;
    /// True for the block record of a layout.
    bool isLayoutBlock(Index blockRecord) const;
    bool isPaperSpace(Index blockRecord) const
    {
        return isLayoutBlock(blockRecord) && blockRecord != modelSpace();
    }
    /// Name of the layout of a space in file form, "" when the block record has none.
    std::string_view layoutName(Index blockRecord) const;
    /// Block records of that name and of all blocks that its inserts show, each once.
    std::vector<Index> blocksInside(std::string_view name) const;
    /// The block record that an entity, a part or a BLOCK stands in; kNone when it hangs nowhere.
    Index blockOf(Index entity) const;
    /// True when the record or any owner above it is erased.
    bool isGone(Index index) const;
    /// Marks or restores; false when it is so already, or was never there. Parts follow their
    /// entity by isGone; an object that is erased leaves its dictionary, and has no owner when it
    /// is restored.
    bool setErased(Index index, bool erased);
    /// False for what a drawing must have (tables and their records, the root dictionary) and for
    /// parts of entities.
    bool mayErase(Index index) const;
    /// Two main entities, or two objects, change places: each gets the other's id, handle, owner
    /// and persistent reactors, and takes its parts and entries along; also its extended data and
    /// extension dictionary unless they stay. False for others, and for two of which one stands in
    /// the other.
    bool swapRecords(Index a, Index b, bool xdataStays, bool dictionaryStays);

    // Symbol tables ---------------------------------------------------------------------------
    /// Head record of a table; kNone in a drawing that lacks the table.
    Index tableHead(TableId table) const { return tables_[std::size_t(table)].head; }
    void setTableHead(TableId table, Index head);
    /// Records of a table in file order, erased ones included.
    const std::vector<Index>& tableRecords(TableId table) const
    {
        return tables_[std::size_t(table)].records;
    }
    /// The record of that name (file form, any case), not erased; kNone when there is none.
    Index findRecord(TableId table, std::string_view name) const;
    /// Hangs a table record, already taken in, into its table. False when the name is taken (a
    /// second *Active view port and nameless text styles are allowed).
    bool appendRecord(TableId table, Index record);
    /// Gives a table record another name and puts it into every place that uses the old one. False
    /// when the new name is taken.
    bool renameRecord(TableId table, Index record, std::string_view name);
    /// "*U" and the lowest free number, for the prefix "*U".
    std::string anonymousBlockName(std::string_view prefix) const;

    bool isLayerLocked(std::string_view layer) const;
    /// Off or frozen.
    bool isLayerHidden(std::string_view layer) const;
    /// Makes the layer with white colour and continuous line when it is missing.
    Index needLayer(std::string_view name);
    /// Gives the groups of a layer the plot style and the material of layer 0 where it has none.
    void completeLayer(TagList& layer) const;
    /// Registers an application; false when it was registered already.
    bool registerApp(std::string_view name);

    // Dictionaries ----------------------------------------------------------------------------
    /// Root of the named objects; kNone in a drawing that lacks it.
    Index rootDictionary() const { return root_; }
    void setRootDictionary(Index index) { root_ = index; }
    const Dictionary* dictionary(Index index) const;
    /// Object under a key; kNone when the dictionary, the key or the object is missing or erased.
    Index dictionaryEntry(Index dictionary, std::string_view key) const;
    /// Enters an object under a key: the dictionary becomes its owner and persistent reactor. A key
    /// of "*" makes an anonymous one. False when the key is taken.
    bool addToDictionary(Index dictionary, std::string_view key, Index object);
    /// Takes an entry out: the object has no owner then. False when there is no such key.
    bool removeFromDictionary(Index dictionary, std::string_view key);
    /// A new, empty dictionary, owned by nothing yet.
    Index addDictionary(bool hardOwner);
    /// The extension dictionary of an object, made when it is missing or erased.
    Index needExtensionDictionary(Index object);
    /// Erases the extension dictionary and cuts the link; false when it has entries.
    bool releaseExtensionDictionary(Index object);
    /// True when `index` is `above` or has it among its owners.
    bool standsIn(Index index, Index above) const;

    // Taking back -------------------------------------------------------------------------------
    /// The journal of changes, which begins with the first call: nothing before can be taken back.
    Journal& journal();

    // Watching ------------------------------------------------------------------------------------
    /// Remembers the places that change from now on, or no longer. Off at first.
    void watch(bool on);
    bool hasTouched() const { return !touched_.empty(); }
    /// Gives the remembered places in the order of their first changes, each once; those for which
    /// `ready` is false are kept for the next time.
    template <class Ready>
    std::vector<Touched> takeTouched(Ready&& ready)
    {
        std::vector<Touched> taken, kept;
        for (const Touched& place : touched_) {
            const bool given = ready(place.index);
            slot(place.index).touched = !given;
            (given ? taken : kept).push_back(place);
        }
        touched_ = std::move(kept);
        return taken;
    }

    // The rest of a drawing -----------------------------------------------------------------------
    HeaderVariables header;
    std::vector<TagList> classes; // rows of the CLASSES section, in order: proxies count on it
    std::vector<RawSection> rawSections; // sections kept as text, in order

    /// Bytes of memory that the drawing owns, heads of heap blocks included.
    std::size_t memory() const;

private:
    friend class Journal;
    struct Slot : RecordState
    {
        std::uint32_t step = 0; // of the journal, in which the state was saved
        bool touched = false;   // stands among the touched places
    };
    static constexpr Index kChunk = 1024;

    const Slot& slot(Index index) const { return chunks_[index / kChunk][index % kChunk]; }
    Slot& slot(Index index) { return chunks_[index / kChunk][index % kChunk]; }
    Index place(Record&& record);
    /// Comes before every change of a place.
    void touch(Index index)
    {
        save(index);
        if (watching_) remember(index);
    }
    /// Comes before a change of its links alone.
    void save(Index index)
    {
        if (slot(index).step != step_ && index < firstNew_) journal_->saveRecord(index);
    }
    void remember(Index index);
    SymbolTable& editTable(TableId table);
    void replaceName(TableId table, std::string_view from, std::string_view to);

    std::vector<std::unique_ptr<Slot[]>> chunks_;
    Index count_ = 0;
    HandleMap handles_;
    Handle nextHandle_ = 1;
    std::array<SymbolTable, kTableCount> tables_;
    Index root_ = kNone;
    std::uint64_t changes_ = 0;
    std::uint16_t serial_ = 0;
    std::unique_ptr<Journal> journal_;
    std::uint32_t step_ = 0; // present step of the journal, 0 without one
    Index firstNew_ = 0;     // places from here on are new in that step
    mutable LivingEnds livingEnds_;
    bool watching_ = false;
    std::vector<Touched> touched_;
};

/// Rows of the CLASSES section for the objects that every drawing holds.
std::vector<TagList> standardClasses();

} // namespace orvald::drawing
