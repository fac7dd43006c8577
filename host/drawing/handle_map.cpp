// SPDX-License-Identifier: LicenseRef-ORVALD
// The table of pages: open addressing with linear probing.
#include "drawing/handle_map.h"

namespace orvald::drawing {

std::size_t HandleMap::cellOf(std::uint64_t run) const
{
    // Finaliser of a 64-bit mixing hash: every bit reaches every bit.
    std::uint64_t mixed = (run ^ (run >> 30)) * 0xBF58476D1CE4E5B9u;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBu;
    const std::size_t mask = cells_.size() - 1;
    std::size_t at = static_cast<std::size_t>(mixed ^ (mixed >> 31)) & mask;
    while (cells_[at].page != nullptr && cells_[at].run != run) at = (at + 1) & mask;
    return at;
}

Index HandleMap::find(Handle handle) const
{
    if (cells_.empty()) return kNone;
    const Cell& cell = cells_[cellOf(runOf(handle))];
    return cell.page == nullptr ? kNone : (*cell.page)[handle % std::tuple_size_v<Page>];
}

HandleMap::Page& HandleMap::needPage(std::uint64_t run)
{
    if (2 * (pages_.size() + 1) > cells_.size()) {
        std::vector<Cell> old = std::move(cells_);
        cells_ = std::vector<Cell>(old.empty() ? 16 : 2 * old.size());
        for (const Cell& cell : old)
            if (cell.page != nullptr) cells_[cellOf(cell.run)] = cell;
    }
    Cell& cell = cells_[cellOf(run)];
    if (cell.page == nullptr) {
        cell = {run, &pages_.emplace_back()};
        cell.page->fill(kNone);
    }
    return *cell.page;
}

bool HandleMap::add(Handle handle, Index index)
{
    if (handle == 0) return false;
    Index& place = needPage(runOf(handle))[handle % std::tuple_size_v<Page>];
    if (place != kNone) return false;
    place = index;
    ++count_;
    return true;
}

} // namespace orvald::drawing
