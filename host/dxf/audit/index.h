// SPDX-License-Identifier: LicenseRef-ORVALD
// All records of a file in a few bytes each, and what they name: handles and table records. What a
// record names may stand behind it, so that is looked up when the file has been read.
#pragma once

#include "audit/record.h"
#include "audit/report.h"
#include "drawing/drawing.h"

#include <deque>
#include <set>
#include <unordered_map>

namespace orvald::dxf {

/// Where a record stands.
enum class Place : std::uint8_t
{
    tables,
    blocks,
    entities,
    objects,
    elsewhere
};

class AuditIndex
{
public:
    using Index = drawing::Index;
    using Handle = drawing::Handle;

    explicit AuditIndex(Report& report);

    /// The version has owners and needs handles; said before the first record.
    void setMarked(bool marked) { marked_ = marked; }
    /// Takes a record in, with its references. `table`: of a record in a table and of its head.
    Index add(const AuditRecord& record, Place place, drawing::TableId table);
    /// What a record holds that is judged by the others in the end.
    void addEntry(Index dictionary, std::string_view key, Handle object);
    void addLayout(Index layout, bool marker, std::string_view name, Handle blockRecord);
    void addBlockRecord(Handle handle, std::string_view name, Handle layout);

    /// A name of a table; false when the table has it already.
    bool define(drawing::TableId table, std::string_view name);
    bool isDefined(drawing::TableId table, std::string_view name) const;
    /// The present record names a table record.
    void use(const AuditRecord& record, drawing::TableId table, std::string_view name,
             bool isError = true);

    /// The largest handle so far.
    Handle largest() const { return largest_; }
    /// The whole file has been read.
    void finish();

private:
    struct Known
    {
        Handle handle, owner;
        std::uint64_t line;
        std::uint16_t type; // place in types_
        Place place;
        drawing::TableId table;
        bool hasOwner;
    };
    struct Reference
    {
        Index from;
        int code;
        Handle to;
    };
    struct NameUse
    {
        std::string from; // name of the record
        std::uint64_t line;
        Handle handle;
        drawing::TableId table;
        std::string name;
        bool isError;
    };
    struct Entry
    {
        Index dictionary;
        std::string key;
        Handle object;
    };
    struct Layout
    {
        std::string name;
        bool marker;
        Handle blockRecord;
    };
    struct BlockRecord
    {
        std::string name; // in capitals
        Handle layout;
    };

    std::uint16_t typeOf(std::string_view name);
    std::string nameOf(Index index) const;
    Index find(Handle handle) const { return handles_.find(handle); }
    bool isType(Index index, std::uint16_t type) const { return known_[index].type == type; }
    bool isDictionary(Index index) const;
    void problem(bool isError, std::string_view kind, Index index, std::string text);
    void checkOwner(Index index);
    void checkReference(const Reference& reference);
    void checkEntry(const Entry& entry);
    void checkRoot();
    void checkLayouts(Handle dictionary);
    void tellUndefined(const NameUse& use);

    Report& report_;
    bool marked_ = true;
    Handle largest_ = 0;
    std::deque<Known> known_;    // grows without moving
    drawing::HandleMap handles_; // to places in known_
    std::vector<std::string> types_;
    std::unordered_map<std::string, std::uint16_t> typePlaces_;
    std::vector<Reference> references_; // to what stands behind them, or must be of one type
    std::vector<Reference> extensions_;
    std::vector<Entry> entries_;
    std::vector<NameUse> uses_; // of names that are not defined so far
    std::array<std::set<std::string, std::less<>>, drawing::kTableCount> names_; // in capitals
    std::unordered_map<Index, Layout> layouts_;
    std::unordered_map<Handle, BlockRecord> blockRecords_;
    Index firstObject_ = drawing::kNone;
};

} // namespace orvald::dxf
