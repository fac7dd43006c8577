// SPDX-License-Identifier: LicenseRef-ORVALD
// Handle to place. Handles mostly come one after the other: each run of 32 has a page, and pages
// are found by hashing. Entries are never removed: a handle is never given again.
#pragma once

#include "drawing/record.h"

#include <array>
#include <deque>

namespace orvald::drawing {

class HandleMap
{
public:
    HandleMap() = default;
    HandleMap(const HandleMap&) = delete;
    HandleMap& operator=(const HandleMap&) = delete;

    /// kNone when the handle is unknown.
    Index find(Handle handle) const;
    /// False, and nothing changed, when the handle is taken or 0.
    bool add(Handle handle, Index index);
    std::size_t size() const { return count_; }
    std::size_t memory() const
    {
        return cells_.capacity() * sizeof(Cell) + pages_.size() * sizeof(Page);
    }

private:
    using Page = std::array<Index, 32>; // places of the handles of a run
    struct Cell
    {
        std::uint64_t run = 0;
        Page* page = nullptr; // null: free
    };
    static std::uint64_t runOf(Handle handle) { return handle / std::tuple_size_v<Page>; }
    std::size_t cellOf(std::uint64_t run) const;
    Page& needPage(std::uint64_t run);

    std::vector<Cell> cells_; // a power of two, at most half in use
    std::deque<Page> pages_;  // does not move what it holds when it grows
    std::size_t count_ = 0;
};

} // namespace orvald::drawing
