// SPDX-License-Identifier: LicenseRef-ORVALD
#include "selection_sets.h"

#include <algorithm>

namespace orvald {

bool SelectionSet::add(std::uint64_t entity)
{
    if (!members_.insert(entity).second) return false;
    order_.push_back(entity);
    return true;
}

bool SelectionSet::remove(std::uint64_t entity)
{
    if (members_.erase(entity) == 0) return false;
    // Programs empty a set from its front or its back: both are found at once.
    if (order_.back() == entity) order_.pop_back();
    else order_.erase(std::ranges::find(order_, entity));
    return true;
}

std::optional<std::int32_t> SelectionSets::create()
{
    if (sets_.size() >= kMost) return std::nullopt;
    sets_.emplace(++last_, SelectionSet());
    return last_;
}

SelectionSet* SelectionSets::find(std::int32_t set)
{
    const auto place = sets_.find(set);
    return place == sets_.end() ? nullptr : &place->second;
}

} // namespace orvald
