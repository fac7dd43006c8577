// SPDX-License-Identifier: LicenseRef-ORVALD
// Case of letters, and the conversions between UTF-16, UTF-8 and the ANSI code page.
#include "characters.h"

#include "lisp/world.h"

#include <cstdint>

namespace orvald::lisp {

namespace {

// Upper-case ranges whose lower-case letters lie `shift` behind (whole range), or are the odd or
// even neighbours (shift 1).
struct CaseRange
{
    char16_t first, last;
    char16_t shift;
};

constexpr CaseRange kCaseRanges[] = {
    {0x00C0, 0x00D6, 32}, {0x00D8, 0x00DE, 32}, {0x0100, 0x012E, 1},  {0x0132, 0x0136, 1},
    {0x0139, 0x0147, 1},  {0x014A, 0x0176, 1},  {0x0179, 0x017D, 1},  {0x0391, 0x03A1, 32},
    {0x03A3, 0x03AB, 32}, {0x0400, 0x040F, 80}, {0x0410, 0x042F, 32}, {0x0460, 0x0480, 1},
    {0x048A, 0x04BE, 1},  {0x04D0, 0x052E, 1},  {0x1E00, 0x1E94, 1},  {0x1EA0, 0x1EFE, 1},
};

// 0x80 to 0x9F of code page 1252; the five unassigned octets stand for themselves.
constexpr char16_t kAnsi[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

// Length of the valid UTF-8 sequence at `text`, 0 when it is none; `code` is its character.
std::size_t decodeOne(std::string_view text, char32_t& code)
{
    const auto octet = [&](std::size_t i) {
        return static_cast<std::uint32_t>(static_cast<unsigned char>(text[i]));
    };
    const std::uint32_t lead = octet(0);
    if (lead < 0x80) {
        code = lead;
        return 1;
    }
    std::size_t length = 0;
    char32_t least = 0;
    if (lead >= 0xC2 && lead < 0xE0) {
        length = 2;
        least = 0x80;
        code = lead & 0x1F;
    } else if (lead >= 0xE0 && lead < 0xF0) {
        length = 3;
        least = 0x800;
        code = lead & 0x0F;
    } else if (lead >= 0xF0 && lead < 0xF5) {
        length = 4;
        least = 0x10000;
        code = lead & 0x07;
    }
    if (length == 0 || text.size() < length) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((octet(i) & 0xC0) != 0x80) return 0;
        code = (code << 6) | (octet(i) & 0x3F);
    }
    if (code < least || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000)) return 0;
    return length;
}

void append(std::u16string& text, char32_t code)
{
    if (code < 0x10000) {
        text.push_back(static_cast<char16_t>(code));
    } else {
        text.push_back(static_cast<char16_t>(0xD7C0 + (code >> 10)));
        text.push_back(static_cast<char16_t>(0xDC00 + (code & 0x3FF)));
    }
}

} // namespace

char16_t upperUnit(char16_t unit)
{
    if (unit < 0x80) return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
    if (unit == 0x00FF) return 0x0178;
    if (unit == 0x03C2) return 0x03A3;
    for (const CaseRange& range : kCaseRanges) {
        const int upper = unit - range.shift;
        if (upper < range.first || upper > range.last) continue;
        if (range.shift != 1 || (upper - range.first) % 2 == 0) return static_cast<char16_t>(upper);
    }
    return unit;
}

char16_t lowerUnit(char16_t unit)
{
    if (unit < 0x80) return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
    if (unit == 0x0178) return 0x00FF;
    for (const CaseRange& range : kCaseRanges) {
        if (unit < range.first || unit > range.last) continue;
        if (range.shift != 1 || (unit - range.first) % 2 == 0) {
            return static_cast<char16_t>(unit + range.shift);
        }
    }
    return unit;
}

bool isLetter(char16_t unit)
{
    if (unit < 0x80) return (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z');
    return unit == 0x00DF || upperUnit(unit) != unit || lowerUnit(unit) != unit;
}

std::u16string upperText(std::u16string_view text)
{
    std::u16string upper(text);
    for (char16_t& unit : upper) unit = upperUnit(unit);
    return upper;
}

std::u16string fromAnsi(std::string_view octets)
{
    std::u16string text;
    text.reserve(octets.size());
    for (const char octet : octets) {
        const auto code = static_cast<unsigned char>(octet);
        text.push_back(code >= 0x80 && code < 0xA0 ? kAnsi[code - 0x80] : char16_t{code});
    }
    return text;
}

std::u16string decodeFile(std::string_view octets)
{
    if (octets.starts_with("\xEF\xBB\xBF")) return toUtf16(octets.substr(3));
    for (std::string_view rest = octets; !rest.empty();) {
        char32_t code = 0;
        const std::size_t length = decodeOne(rest, code);
        if (length == 0) return fromAnsi(octets);
        rest.remove_prefix(length);
    }
    return toUtf16(octets);
}

std::u16string toUtf16(std::string_view utf8)
{
    std::u16string text;
    text.reserve(utf8.size());
    while (!utf8.empty()) {
        char32_t code = 0xFFFD;
        const std::size_t length = decodeOne(utf8, code);
        append(text, length == 0 ? 0xFFFD : code);
        utf8.remove_prefix(length == 0 ? 1 : length);
    }
    return text;
}

std::string toUtf8(std::u16string_view utf16)
{
    std::string text;
    text.reserve(utf16.size());
    for (std::size_t i = 0; i < utf16.size(); ++i) {
        char32_t code = utf16[i];
        if (code >= 0xD800 && code < 0xDC00 && i + 1 < utf16.size() && utf16[i + 1] >= 0xDC00 &&
            utf16[i + 1] < 0xE000) {
            code = 0x10000 + ((code - 0xD800) << 10) + (utf16[++i] - 0xDC00u);
        } else if (code >= 0xD800 && code < 0xE000) {
            code = 0xFFFD;
        }
        const auto octet = [&](char32_t bits) { text.push_back(static_cast<char>(bits)); };
        if (code < 0x80) {
            octet(code);
        } else if (code < 0x800) {
            octet(0xC0 | code >> 6);
            octet(0x80 | (code & 0x3F));
        } else if (code < 0x10000) {
            octet(0xE0 | code >> 12);
            octet(0x80 | (code >> 6 & 0x3F));
            octet(0x80 | (code & 0x3F));
        } else {
            octet(0xF0 | code >> 18);
            octet(0x80 | (code >> 12 & 0x3F));
            octet(0x80 | (code >> 6 & 0x3F));
            octet(0x80 | (code & 0x3F));
        }
    }
    return text;
}

} // namespace orvald::lisp
