// SPDX-License-Identifier: LicenseRef-ORVALD
// Handle to place, open addressing. Entries are never removed: a handle is never given again.
#pragma once

#include "drawing/record.h"

namespace orvald::drawing {

class HandleMap
{
public:
    /// kNone when the handle is unknown.
    Index find(Handle handle) const;
    /// False, and nothing changed, when the handle is taken or 0.
    bool add(Handle handle, Index index);
    std::size_t size() const { return count_; }
    std::size_t memory() const { return cells_.capacity() * sizeof(Cell); }

private:
    struct Cell
    {
        Handle handle = 0; // 0: free
        Index index = kNone;
    };
    std::size_t cellOf(Handle handle) const;

    std::vector<Cell> cells_; // a power of two, at most half in use
    std::size_t count_ = 0;
};

} // namespace orvald::drawing
