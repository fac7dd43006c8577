// SPDX-License-Identifier: LicenseRef-ORVALD
// Numbers as the language reads and prints them.
#pragma once

#include "lisp/value.h"

#include <optional>
#include <string>
#include <string_view>

namespace orvald::lisp {

/// The number that `token` spells as a whole; nothing when it is a symbol. Integers beyond 31 bits
/// become reals.
std::optional<Value> readNumber(std::u16string_view token);

/// Longest beginning of `text` that is a real; 0.0 for none. Leading blanks are skipped.
double leadingReal(std::u16string_view text);

/// Six significant digits, with a point in every case; exponents have three digits.
std::u16string realText(double value);

std::u16string integerText(std::int64_t value);

/// `value` with exactly `places` digits after the point, halves rounded away from zero.
std::string fixedText(double value, int places);

} // namespace orvald::lisp
