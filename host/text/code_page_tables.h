// SPDX-License-Identifier: LicenseRef-ORVALD
// The tables behind code pages.
#pragma once

#include <cstddef>
#include <string_view>

namespace orvald::text {

struct SingleBytePage
{
    std::string_view name;         // in capitals
    std::u16string_view upperHalf; // characters of 0x80 to 0xFF
};
extern const SingleBytePage kSingleBytePages[];
extern const std::size_t kSingleBytePageCount;

constexpr unsigned kFirstLead = 0x81, kFirstTrail = 0x40;
constexpr std::size_t kDoubleByteRows = 0xFF - kFirstLead;
extern const std::u16string_view kPage932[kDoubleByteRows];
extern const std::u16string_view kPage936[kDoubleByteRows];
extern const std::u16string_view kPage949[kDoubleByteRows];
extern const std::u16string_view kPage950[kDoubleByteRows];

} // namespace orvald::text
