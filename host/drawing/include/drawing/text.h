// SPDX-License-Identifier: LicenseRef-ORVALD
// Text as drawing files write it, and names that compare without regard to case.
// Records keep their text in file form: valid UTF-8 on one line, control characters as ^J, a caret
// as "^ ", what UTF-8 cannot say (a lone surrogate) as \U+D800. So text that nobody touched is
// written back byte by byte; who reads it uses the functions below.
#pragma once

#include "text/encoding.h"

#include <compare>
#include <string>
#include <string_view>

namespace orvald::drawing {

/// File form of UTF-16 text. A backslash that would begin a \U+ or \M+ form is written \U+005C, so
/// that every text reads back as it was.
std::string fileForm(std::u16string_view text);
/// File form of UTF-8 text; surrogates encoded as three bytes are taken as such, other bytes that
/// are no UTF-8 become U+FFFD.
std::string fileForm(std::string_view utf8);

/// Text of a file form: ^ forms, \U+XXXX and \M+nXXXX resolved, everything else as it stands.
std::u16string text16(std::string_view fileForm);
/// The same in UTF-8, a lone surrogate as three bytes.
std::string text8(std::string_view fileForm);

using text::utf16;
using text::utf8;

/// Key under which a name (layer, block, dictionary entry ...) is found: its text in upper case.
std::string nameKey(std::string_view fileForm);
/// Orders two names in file form as their keys, without making them.
std::strong_ordering compareNames(std::string_view a, std::string_view b);
inline bool sameName(std::string_view a, std::string_view b) { return compareNames(a, b) == 0; }

/// True when `name` may name a table record: 1 to 255 characters, none of < > / \ " : ; ? * | , = `
/// and no control character; `anonymous` allows a leading *.
bool isSymbolName(std::string_view fileForm, bool anonymous = false);

} // namespace orvald::drawing
