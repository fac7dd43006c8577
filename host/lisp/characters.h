// SPDX-License-Identifier: LicenseRef-ORVALD
// Blanks, and the encodings that LISP files come in.
#pragma once

#include "text/letters.h"

#include <string>
#include <string_view>

namespace orvald::lisp {

inline bool isBlank(char16_t unit) { return unit == u' ' || (unit >= u'\t' && unit <= u'\r'); }

/// Octets of ANSI code page 1252 as text.
std::u16string fromAnsi(std::string_view octets);
/// UTF-8 with or without byte order mark; anything that is no valid UTF-8 counts as ANSI.
std::u16string decodeFile(std::string_view octets);

} // namespace orvald::lisp
