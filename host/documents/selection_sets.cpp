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
    // Programs empty a set from its front or its back: neither may move the other members.
    if (order_.back() == entity) {
        order_.pop_back();
    } else if (order_[front_] == entity) {
        ++front_;
    } else {
        order_.erase(
            std::find(order_.begin() + static_cast<std::ptrdiff_t>(front_), order_.end(), entity));
    }
    if (front_ == order_.size()) {
        order_.clear();
        front_ = 0;
    }
    return true;
}

std::optional<std::int32_t> SelectionSets::create()
{
    if (sets_.size() >= kMost) return std::nullopt;
    sets_.try_emplace(++last_);
    return last_;
}

SelectionSet* SelectionSets::find(std::int32_t set)
{
    const auto place = sets_.find(set);
    return place == sets_.end() ? nullptr : &place->second.set;
}

void SelectionSets::hold(std::int32_t set)
{
    const auto place = sets_.find(set);
    if (place != sets_.end()) ++place->second.holders;
}

void SelectionSets::letGo(std::int32_t set)
{
    const auto place = sets_.find(set);
    if (place != sets_.end() && --place->second.holders == 0) sets_.erase(place);
}

} // namespace orvald
