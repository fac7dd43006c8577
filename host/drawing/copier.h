// SPDX-License-Identifier: LicenseRef-ORVALD
// A copy at work: first every record that is copied, with the owners of the copies in place; then,
// in one go, the references and names in them. Until then groups and extended data of a copy hold
// what the original holds, all else in it belongs to the drawing that it is in.
#pragma once

#include "drawing/clone.h"

#include <map>
#include <unordered_set>

namespace orvald::drawing {

/// Keys of objects in the dictionaries that own them; quick for many of one dictionary, which must
/// not change meanwhile but by additions.
class Keys
{
public:
    explicit Keys(const Drawing& drawing) : drawing_(drawing) {}
    /// "*" when it has none.
    std::string of(Index object);

private:
    const Drawing& drawing_;
    Index owner_ = kNone; // whose entries are held
    std::unordered_map<Handle, std::string> keys_;
};

class Copier
{
public:
    Copier(const Drawing& from, Drawing& to, std::span<const Index> objects);
    virtual ~Copier() = default;
    Copier(const Copier&) = delete;
    Copier& operator=(const Copier&) = delete;

protected:
    bool within() const { return &from_ == &to_; }
    /// The listed objects, each once, without those that stand below another one.
    const std::vector<Index>& roots() const { return roots_; }
    /// What stands for an object; kNone while nothing does.
    Index find(Index old) const;
    /// `made`, which was there already, stands for `old`.
    void keep(Index old, Index made);
    /// A copy that hangs nowhere; what it owns follows with copyOwned. A dictionary is empty at
    /// first.
    Index copyRecord(Index old);
    /// Fills a record that is there already from another one, which it stands for.
    void refill(Index made, Index old);
    /// Hangs the copy of an entity into a block, its parts say so too.
    void hangEntity(Index block, Index made);
    /// Copies what all copies so far own, and what that owns.
    void copyOwned();
    /// Ends the work: references and names.
    std::vector<Copied> finish();

    /// True when what is owned in that way is copied with its owner.
    virtual bool follows(Reference /*how*/, Index /*owned*/) const { return true; }
    /// A copy has been made, with all that it owns.
    virtual void copied(Index /*old*/, Index /*made*/) {}

    const Drawing& from_;
    Drawing& to_;
    Keys keys_;
    std::unordered_set<Index> listed_;
    /// New names of records that are called otherwise where they went, by table and old key.
    std::map<std::pair<TableId, std::string>, std::string> names_;

private:
    void copyOwnedBy(Index old, Index made);
    void copyEntries(const Record& dictionary, Index made);
    void copyBlockEnds(const Extras& old, Index made);
    void translate(Index old, Index made);
    /// `cut`: every reference becomes 0.
    void translateTags(TagList& tags, bool cut) const;
    /// The handle to write for one of the original.
    Handle translated(Handle old) const;

    std::vector<Index> roots_;
    std::unordered_map<Index, Index> made_; // by the place of the original
    std::vector<Copied> pairs_;
    std::size_t next_ = 0; // first of pairs_ whose owned objects have not been copied
};

} // namespace orvald::drawing
