// SPDX-License-Identifier: LicenseRef-ORVALD
// The name of an object in a session: which drawing, which place in it. It stays with the place
// for as long as the drawing is open, whatever becomes of the object there.
#pragma once

#include "hostapi/types.h"

#include <cstdint>

namespace orvald::drawing {

/// Drawing serial (16 bit) in the high word, place + 1 in the low word; 0 is null. So it is the two
/// words of a host name as well: low word first.
struct ObjectId
{
    std::uint64_t value = 0;

    constexpr bool isNull() const { return value == 0; }
    constexpr std::uint16_t serial() const { return static_cast<std::uint16_t>(value >> 32); }
    friend constexpr auto operator<=>(ObjectId, ObjectId) = default;
};

constexpr ObjectId fromName(const ads_name name)
{
    const auto low = static_cast<std::uint32_t>(name[0]);
    const auto high = static_cast<std::uint32_t>(name[1]);
    return {std::uint64_t{high} << 32 | low};
}
constexpr void toName(ObjectId id, ads_name name)
{
    name[0] = static_cast<std::int32_t>(static_cast<std::uint32_t>(id.value));
    name[1] = static_cast<std::int32_t>(static_cast<std::uint32_t>(id.value >> 32));
}

} // namespace orvald::drawing
