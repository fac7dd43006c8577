// SPDX-License-Identifier: LicenseRef-ORVALD
// Case and classes of letters of the scripts that drawings of this trade use: Latin, Greek,
// Cyrillic. One unit maps to one unit; no locale takes part.
#pragma once

#include <string>
#include <string_view>

namespace orvald::text {

/// The mapping from 0x80 on.
char16_t upperBeyondAscii(char16_t unit);
char16_t lowerBeyondAscii(char16_t unit);

inline char16_t upperUnit(char16_t unit)
{
    if (unit >= 0x80) return upperBeyondAscii(unit);
    return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
}
inline char16_t lowerUnit(char16_t unit)
{
    if (unit >= 0x80) return lowerBeyondAscii(unit);
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
}
/// Upper case of a code point; none of those above U+FFFF has another case here.
inline char32_t upperCase(char32_t c)
{
    return c < 0x10000 ? upperUnit(static_cast<char16_t>(c)) : c;
}
std::u16string upperText(std::u16string_view text);

bool isLetter(char16_t unit);
/// Value of a hexadecimal digit, -1 for other units.
constexpr int hexDigit(char16_t unit)
{
    if (unit >= u'0' && unit <= u'9') return unit - u'0';
    if (unit >= u'A' && unit <= u'F') return unit - u'A' + 10;
    return unit >= u'a' && unit <= u'f' ? unit - u'a' + 10 : -1;
}
inline bool isDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

} // namespace orvald::text
