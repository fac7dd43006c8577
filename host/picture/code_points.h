// SPDX-License-Identifier: LicenseRef-ORVALD
// Text character by character.
#pragma once

#include <string>
#include <string_view>

namespace orvald::picture {

/// Code points of UTF-16 text; a lone surrogate becomes U+FFFD.
std::u32string codePoints(std::u16string_view text);

} // namespace orvald::picture
