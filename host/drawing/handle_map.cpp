// SPDX-License-Identifier: LicenseRef-ORVALD
// Handle to place: linear probing behind a hash that keeps runs of 32 handles together, as handles
// mostly come one after the other.
#include "drawing/handle_map.h"

namespace orvald::drawing {

std::size_t HandleMap::cellOf(Handle handle) const
{
    std::uint64_t mixed =
        handle >> 5; // finaliser of a 64-bit mixing hash: every bit reaches every bit
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9u;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBu;
    mixed = (mixed ^ (mixed >> 31)) << 5 | (handle & 31);
    const std::size_t mask = cells_.size() - 1;
    std::size_t at = static_cast<std::size_t>(mixed) & mask;
    while (cells_[at].handle != 0 && cells_[at].handle != handle) at = (at + 1) & mask;
    return at;
}

Index HandleMap::find(Handle handle) const
{
    if (handle == 0 || cells_.empty()) return kNone;
    return cells_[cellOf(handle)].index;
}

bool HandleMap::add(Handle handle, Index index)
{
    if (handle == 0) return false;
    if (2 * (count_ + 1) > cells_.size()) {
        std::vector<Cell> old = std::move(cells_);
        cells_ = std::vector<Cell>(old.empty() ? 256 : 2 * old.size());
        for (const Cell& cell : old)
            if (cell.handle != 0) cells_[cellOf(cell.handle)] = cell;
    }
    Cell& cell = cells_[cellOf(handle)];
    if (cell.handle != 0) return false;
    cell = {handle, index};
    ++count_;
    return true;
}

} // namespace orvald::drawing
