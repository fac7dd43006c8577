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

/// Ends with "..." when the text would become longer than `limit` units.
std::u16string printedText(Value value, Quoting quoting,
                           std::size_t limit = static_cast<std::size_t>(-1));

} // namespace orvald::lisp
