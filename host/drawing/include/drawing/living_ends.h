// SPDX-License-Identifier: LicenseRef-ORVALD
// The first and the last child of an owner that is not erased, without walking over the erased ones
// before and behind them time and again: programs erase a drawing from one end, asking for the end
// each time.
#pragma once

#include "drawing/record.h"

#include <unordered_map>

namespace orvald::drawing {

class Drawing;

class LivingEnds
{
public:
    /// kNone when all children are erased.
    Index first(const Drawing& drawing, Index owner);
    Index last(const Drawing& drawing, Index owner);
    /// Follows every change by which a child may come back or an owner lose children. Erasing, and
    /// children behind the last one, need none.
    void forget() { runs_.clear(); }

private:
    /// Erased children side by side at the two ends; kNone where there are none.
    struct Runs
    {
        Index frontEnd = kNone;                   // last of those at the front
        Index backStart = kNone, backEnd = kNone; // of those that were the last ones once
    };
    std::unordered_map<Index, Runs> runs_; // by owner
};

} // namespace orvald::drawing
