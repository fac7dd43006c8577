// SPDX-License-Identifier: LicenseRef-ORVALD
#include "temporary_graphics.h"

#include <algorithm>
#include <iterator>

namespace orvald {

void TemporaryGraphics::draw(const double from[3], const double to[3], int colour, bool dashed)
{
    TemporaryVector fresh{};
    std::copy_n(from, 3, fresh.from);
    std::copy_n(to, 3, fresh.to);
    fresh.colour = colour;
    fresh.dashed = dashed;
    if (colour == -1) {
        const auto same = std::ranges::find_if(vectors_, [&](const TemporaryVector& other) {
            return other.colour == -1 && ((std::ranges::equal(other.from, fresh.from) &&
                                           std::ranges::equal(other.to, fresh.to)) ||
                                          (std::ranges::equal(other.from, fresh.to) &&
                                           std::ranges::equal(other.to, fresh.from)));
        });
        if (same != vectors_.end()) {
            vectors_.erase(same);
            return;
        }
    }
    vectors_.push_back(fresh);
}

} // namespace orvald
