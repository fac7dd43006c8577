// SPDX-License-Identifier: LicenseRef-ORVALD
// One object of a drawing, whatever its type: entity, table head, table record or object.
// A record is a value: a copy is a snapshot. What only some records have stands in Extras.
#pragma once

#include "drawing/dictionary.h"
#include "drawing/kind.h"
#include "drawing/tags.h"

#include <optional>
#include <vector>

namespace orvald::drawing {

/// Place of a record in its drawing, from 0; stays for the drawing's life.
using Index = std::uint32_t;
inline constexpr Index kNone = 0xFFFFFFFF;

/// Where a record stands in a file and what may own it.
enum class Family : std::uint8_t
{
    entity, // BLOCK and ENDBLK included
    tableHead,
    tableRecord,
    object
};

struct Extras
{
    std::vector<Handle> reactors; // persistent reactors in file order, dangling ones too
    Handle extensionDictionary = 0;
    TagList xdata; // from the first 1001 on
    // Children of a block record (its entities) or of a complex entity (its parts, SEQEND last).
    Index firstChild = kNone, lastChild = kNone;
    // BLOCK and ENDBLK of a block record.
    Index blockBegin = kNone, blockEnd = kNone;
    std::optional<Dictionary> dictionary; // entries of a dictionary
    bool keepsReferences = false; // an xrecord whose copies name what it names; kept in memory only

    bool empty() const
    {
        return reactors.empty() && extensionDictionary == 0 && xdata.empty() &&
               firstChild == kNone && blockBegin == kNone && !dictionary && !keepsReferences;
    }
};

class Record
{
public:
    Record() = default;
    /// A record of a type in the spelling of files; unknown types keep their name as group 0.
    Record(std::string_view typeName, Family family);
    Record(Kind kind, Family family) : kind_(kind), family_(family) {}
    Record(const Record& other);
    Record(Record&&) noexcept = default;
    Record& operator=(const Record& other);
    Record& operator=(Record&&) noexcept = default;
    ~Record() = default;

    Kind kind() const { return kind_; }
    Family family() const { return family_; }
    std::string_view typeName() const;
    bool isEntity() const { return family_ == Family::entity; }
    /// An entity that stands by itself in a block.
    bool isMainEntity() const
    {
        return isEntity() && !isPart(kind_) && kind_ != Kind::block && kind_ != Kind::endblk;
    }

    Handle handle = 0;
    Handle owner = 0;
    /// All groups but handle, owner, extension dictionary, persistent reactors, extended data and
    /// dictionary entries. A group 0 at the front is the name of an unknown type.
    TagList tags;
    // Small members stand together: a drawing has millions of records.
    bool erased = false;
    bool undone = false; // its making was taken back: it was never there

    /// First group behind the name of an unknown type.
    TagList::Iterator body() const;

    const Extras* extras() const { return extras_.get(); }
    /// Makes the block when there is none.
    Extras& needExtras();
    /// Drops the block when it is empty.
    void trimExtras();

    Handle extensionDictionary() const { return extras_ ? extras_->extensionDictionary : 0; }
    const Dictionary* dictionary() const
    {
        return extras_ && extras_->dictionary ? &*extras_->dictionary : nullptr;
    }

    /// Layer name in file form, "0" when it has none.
    std::string_view layer() const { return tags.text(8, "0"); }
    /// Name of a table record or block (group 2 behind its own marker) in file form.
    std::string_view name() const { return tags.text(2); }

private:
    Kind kind_ = Kind::other;
    Family family_ = Family::object;
    std::unique_ptr<Extras> extras_;
};

} // namespace orvald::drawing
