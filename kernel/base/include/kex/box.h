// SPDX-License-Identifier: LicenseRef-ORVALD
// Upright boxes in space.
#pragma once

#include "kex/point.h"

#include <algorithm>

namespace KEX {

struct Box
{
    CKexPoint3d min, max;

    /// The smallest box that holds this and p.
    void add(const CKexPoint3d& p)
    {
        min = {std::min(min.x, p.x), std::min(min.y, p.y), std::min(min.z, p.z)};
        max = {std::max(max.x, p.x), std::max(max.y, p.y), std::max(max.z, p.z)};
    }
    void add(const Box& other)
    {
        add(other.min);
        add(other.max);
    }
    friend bool operator==(const Box&, const Box&) = default;
};

} // namespace KEX
