// SPDX-License-Identifier: LicenseRef-ORVALD
// Classes and case of UTF-16 units, for the scripts that drawings of this trade use: Latin, Greek,
// Cyrillic. No locale takes part.
#pragma once

#include <string>
#include <string_view>

namespace orvald::lisp {

char16_t upperUnit(char16_t unit);
char16_t lowerUnit(char16_t unit);
bool isLetter(char16_t unit);
inline bool isDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }
inline bool isBlank(char16_t unit) { return unit == u' ' || (unit >= u'\t' && unit <= u'\r'); }

std::u16string upperText(std::u16string_view text);

/// Octets of ANSI code page 1252 as text.
std::u16string fromAnsi(std::string_view octets);
/// UTF-8 with or without byte order mark; anything that is no valid UTF-8 counts as ANSI.
std::u16string decodeFile(std::string_view octets);

} // namespace orvald::lisp
