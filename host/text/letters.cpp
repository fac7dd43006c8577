// SPDX-License-Identifier: LicenseRef-ORVALD
// The case mapping from 0x80 on, as ranges of upper-case letters.
#include "text/letters.h"

namespace orvald::text {
namespace {

// Upper-case letters whose lower-case ones lie `shift` behind (the whole range), or are every
// second one's neighbours (shift 1).
struct CaseRange
{
    char16_t first, last;
    char16_t shift;
};

constexpr CaseRange kCaseRanges[] = {
    {0x00C0, 0x00D6, 32}, {0x00D8, 0x00DE, 32}, {0x0100, 0x012E, 1},  {0x0132, 0x0136, 1},
    {0x0139, 0x0147, 1},  {0x014A, 0x0176, 1},  {0x0179, 0x017D, 1},  {0x0386, 0x0386, 38},
    {0x0388, 0x038A, 37}, {0x038C, 0x038C, 64}, {0x038E, 0x038F, 63}, {0x0391, 0x03A1, 32},
    {0x03A3, 0x03AB, 32}, {0x0400, 0x040F, 80}, {0x0410, 0x042F, 32}, {0x0460, 0x0480, 1},
    {0x048A, 0x04BE, 1},  {0x04D0, 0x052E, 1},  {0x1E00, 0x1E94, 1},  {0x1EA0, 0x1EFE, 1},
};

} // namespace

char16_t upperBeyondAscii(char16_t unit)
{
    switch (unit) {
    case 0x00FF: return 0x0178; // y with diaeresis
    case 0x0131: return u'I';   // i without dot
    case 0x017F: return u'S';   // long s
    case 0x03C2: return 0x03A3; // sigma at the end of a word
    default: break;
    }
    for (const CaseRange& range : kCaseRanges) {
        const int upper = unit - range.shift;
        if (upper < range.first || upper > range.last) continue;
        if (range.shift != 1 || (upper - range.first) % 2 == 0) return static_cast<char16_t>(upper);
    }
    return unit;
}

char16_t lowerBeyondAscii(char16_t unit)
{
    if (unit == 0x0178) return 0x00FF;
    for (const CaseRange& range : kCaseRanges) {
        if (unit < range.first || unit > range.last) continue;
        if (range.shift != 1 || (unit - range.first) % 2 == 0)
            return static_cast<char16_t>(unit + range.shift);
    }
    return unit;
}

std::u16string upperText(std::u16string_view text)
{
    std::u16string upper(text);
    for (char16_t& unit : upper) unit = upperUnit(unit);
    return upper;
}

bool isLetter(char16_t unit)
{
    if (unit < 0x80) return (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z');
    return unit == 0x00DF || upperUnit(unit) != unit || lowerUnit(unit) != unit;
}

} // namespace orvald::text
