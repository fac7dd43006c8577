// SPDX-License-Identifier: LicenseRef-ORVALD
// The wildcard patterns of wcmatch, selection filters and lists of names.
#pragma once

#include <string_view>

namespace orvald::text {

enum class Case
{
    matters,
    ignored
};

/// Patterns apart by commas; # one digit, @ one letter, . one that is neither, * any sequence,
/// ? any one unit, ~ at the start: anything but the pattern, [...] any one of these (a-z ranges),
/// [~...] none of these, ` the next unit as it stands, in brackets too. Time grows with the product
/// of the lengths at most.
bool matchesWildcard(std::u16string_view text, std::u16string_view pattern,
                     Case letters = Case::matters);

} // namespace orvald::text
