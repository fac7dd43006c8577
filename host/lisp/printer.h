// SPDX-License-Identifier: LicenseRef-ORVALD
// Data to text. Nested lists are walked with an explicit stack: printing never fails.
#pragma once

#include "lisp/value.h"

#include <cstddef>
#include <string>

namespace orvald::lisp {

enum class Quoting
{
    bare,  // princ
    quoted // prin1: strings in quotes with escapes
};

/// A list may contain itself many times over: small as data, without measure as text.
inline constexpr std::size_t kLongestPrinted = std::size_t{32} << 20;

/// Ends with "..." (and is then longer than `limit`) when the text would exceed `limit` units.
std::u16string printedText(Value value, Quoting quoting, std::size_t limit = kLongestPrinted);

} // namespace orvald::lisp
