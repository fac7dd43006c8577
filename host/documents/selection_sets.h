// SPDX-License-Identifier: LicenseRef-ORVALD
// Selection sets of the session, over all documents. Positions count from 0; an entity is in a set
// once.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <unordered_set>
#include <vector>

namespace orvald {

/// Members in order, with a look-up beside them.
class SelectionSet
{
public:
    /// False when it was in already.
    bool add(std::uint64_t entity);
    /// False when it was not in.
    bool remove(std::uint64_t entity);
    bool has(std::uint64_t entity) const { return members_.contains(entity); }
    std::span<const std::uint64_t> entities() const
    {
        return std::span<const std::uint64_t>(order_).subspan(front_);
    }

private:
    std::vector<std::uint64_t> order_; // members from front_ on
    std::size_t front_ = 0;
    std::unordered_set<std::uint64_t> members_;
};

class SelectionSets
{
public:
    /// The host has room for this many at a time.
    static constexpr std::size_t kMost = 128;

    /// Number of a new, empty set, from 1; nothing when there is no room.
    std::optional<std::int32_t> create();
    /// Null when there is no such set.
    SelectionSet* find(std::int32_t set);
    void release(std::int32_t set) { sets_.erase(set); }

    // A set that LISP has in hands lives until the last value that names it is garbage.
    void hold(std::int32_t set);
    void letGo(std::int32_t set);
    std::size_t size() const { return sets_.size(); }

private:
    struct Held
    {
        SelectionSet set;
        int holders = 0; // LISP values
    };
    std::map<std::int32_t, Held> sets_;
    std::int32_t last_ = 0;
};

} // namespace orvald
