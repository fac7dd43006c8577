// SPDX-License-Identifier: LicenseRef-ORVALD
// File form of text and its way to UTF-16 and UTF-8. Every function takes any bytes or units.
#include "drawing/text.h"

#include <algorithm>
#include <cstdint>

namespace orvald::drawing {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool isHighSurrogate(char32_t c) { return c >= 0xD800 && c <= 0xDBFF; }
bool isLowSurrogate(char32_t c) { return c >= 0xDC00 && c <= 0xDFFF; }
bool isSurrogate(char32_t c) { return c >= 0xD800 && c <= 0xDFFF; }
char32_t join(char32_t high, char32_t low)
{
    return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

void appendUtf16(std::u16string& out, char32_t code)
{
    if (code < 0x10000) {
        out += static_cast<char16_t>(code);
    } else {
        out += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
        out += static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
    }
}

int hexDigit(char c)
{
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

/// True when a \U+XXXX form stands at `at`.
bool unicodeForm(std::string_view s, std::size_t at, char32_t& code)
{
    if (s.size() - at < 7 || s[at] != '\\' || (s[at + 1] != 'U' && s[at + 1] != 'u') ||
        s[at + 2] != '+')
        return false;
    code = 0;
    for (std::size_t i = at + 3; i < at + 7; ++i) {
        const int digit = hexDigit(s[i]);
        if (digit < 0) return false;
        code = code << 4 | static_cast<char32_t>(digit);
    }
    return true;
}

void appendUnicodeForm(std::string& out, char32_t code)
{
    constexpr char digits[] = "0123456789ABCDEF";
    out += "\\U+";
    for (int shift = 12; shift >= 0; shift -= 4) out += digits[code >> shift & 15];
}

/// Appends one character in file form; `rest` is what follows it.
template <class View>
void appendFileForm(std::string& out, char32_t code, View rest)
{
    if (code < 0x20) {
        out += '^';
        out += static_cast<char>(code + 0x40);
    } else if (code == '^') {
        out += "^ ";
    } else if (code == '\\' && rest.size() >= 2 && rest[1] == '+' &&
               (rest[0] == 'U' || rest[0] == 'u' || rest[0] == 'M' || rest[0] == 'm')) {
        appendUnicodeForm(out, code);
    } else if (isSurrogate(code)) {
        appendUnicodeForm(out, code);
    } else {
        appendUtf8(out, code);
    }
}

/// Hands every code point of a file form to `take`; halves of a pair that was written as two
/// \U+ forms come joined.
template <class Take>
void decode(std::string_view s, Take take)
{
    char32_t high = 0; // a \U+ high surrogate that waits for its other half
    for (std::size_t at = 0; at < s.size();) {
        char32_t code = 0;
        bool form = false;
        if (s[at] == '^' && at + 1 < s.size() &&
            (s[at + 1] == ' ' || (s[at + 1] >= '@' && s[at + 1] <= '_'))) {
            code = s[at + 1] == ' ' ? U'^' : static_cast<char32_t>(s[at + 1] - 0x40);
            at += 2;
        } else if (s[at] == '\\' && unicodeForm(s, at, code)) {
            form = true;
            at += 7;
        } else {
            code = decodeUtf8(s, at);
        }
        if (high != 0) {
            if (form && isLowSurrogate(code)) {
                take(join(high, code));
                high = 0;
                continue;
            }
            take(high);
            high = 0;
        }
        if (form && isHighSurrogate(code)) high = code;
        else take(code);
    }
    if (high != 0) take(high);
}

bool isPlain(std::string_view s)
{
    return std::none_of(s.begin(), s.end(), [](char c) { return c == '^' || c == '\\'; });
}

} // namespace

char32_t decodeUtf8(std::string_view s, std::size_t& at)
{
    const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(s[i]); };
    const std::uint8_t lead = byte(at++);
    if (lead < 0x80) return lead;
    std::size_t more = 0;
    char32_t code = 0, least = 0;
    if (lead >= 0xC2 && lead <= 0xDF) {
        more = 1, code = lead & 0x1Fu, least = 0x80;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        more = 2, code = lead & 0x0Fu, least = 0x800;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        more = 3, code = lead & 0x07u, least = 0x10000;
    } else {
        return kReplacement;
    }
    if (s.size() - at < more) return kReplacement;
    for (std::size_t i = 0; i < more; ++i) {
        const std::uint8_t next = byte(at + i);
        if ((next & 0xC0) != 0x80) return kReplacement;
        code = code << 6 | (next & 0x3Fu);
    }
    if (code < least || code > 0x10FFFF) return kReplacement;
    at += more;
    return code;
}

void appendUtf8(std::string& out, char32_t c)
{
    const auto put = [&out](char32_t byte) { out += static_cast<char>(byte); };
    if (c < 0x80) {
        put(c);
    } else if (c < 0x800) {
        put(0xC0 | c >> 6), put(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        put(0xE0 | c >> 12), put(0x80 | (c >> 6 & 0x3F)), put(0x80 | (c & 0x3F));
    } else {
        put(0xF0 | c >> 18), put(0x80 | (c >> 12 & 0x3F));
        put(0x80 | (c >> 6 & 0x3F)), put(0x80 | (c & 0x3F));
    }
}

std::string fileForm(std::u16string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t code = text[i];
        if (isHighSurrogate(code) && i + 1 < text.size() && isLowSurrogate(text[i + 1]))
            code = join(code, text[++i]);
        appendFileForm(out, code, text.substr(i + 1));
    }
    return out;
}

std::string fileForm(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const char32_t code = decodeUtf8(text, at);
        appendFileForm(out, code, text.substr(at));
    }
    return out;
}

std::u16string text16(std::string_view s)
{
    std::u16string out;
    out.reserve(s.size());
    decode(s, [&out](char32_t code) { appendUtf16(out, code); });
    return out;
}

std::string text8(std::string_view s)
{
    if (isPlain(s)) return std::string(s);
    std::string out;
    out.reserve(s.size());
    decode(s, [&out](char32_t code) { appendUtf8(out, code); });
    return out;
}

std::u16string utf16(std::string_view s)
{
    std::u16string out;
    out.reserve(s.size());
    for (std::size_t at = 0; at < s.size();) appendUtf16(out, decodeUtf8(s, at));
    return out;
}

std::string utf8(std::u16string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t code = text[i];
        if (isHighSurrogate(code) && i + 1 < text.size() && isLowSurrogate(text[i + 1]))
            code = join(code, text[++i]);
        appendUtf8(out, code);
    }
    return out;
}

std::string nameKey(std::string_view s)
{
    std::string out;
    out.reserve(s.size());
    const bool ascii = std::none_of(s.begin(), s.end(), [](char c) {
        return static_cast<std::uint8_t>(c) >= 0x80 || c == '^' || c == '\\';
    });
    if (ascii) {
        for (const char c : s) out += c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
    } else {
        decode(s, [&out](char32_t code) { appendUtf8(out, upperCase(code)); });
    }
    return out;
}

std::strong_ordering compareNames(std::string_view a, std::string_view b)
{
    const std::size_t common = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < common; ++i) {
        const auto x = static_cast<std::uint8_t>(a[i]), y = static_cast<std::uint8_t>(b[i]);
        if (x >= 0x80 || y >= 0x80 || x == '^' || y == '^' || x == '\\' || y == '\\')
            return nameKey(a.substr(i)) <=> nameKey(b.substr(i));
        const char32_t u = upperCase(x), v = upperCase(y);
        if (u != v) return u <=> v;
    }
    return a.size() <=> b.size();
}

char32_t upperCase(char32_t c)
{
    if (c < 0x80) return c >= 'a' && c <= 'z' ? c - 32 : c;
    if (c <= 0xFF) return c >= 0xE0 && c != 0xF7 ? (c == 0xFF ? 0x178 : c - 32) : c;
    if (c <= 0x17F) {
        if (c == 0x131) return 'I';
        if (c == 0x17F) return 'S';
        const bool oddIsLower = (c < 0x138 && c != 0x130) || (c >= 0x14A && c < 0x178);
        if (oddIsLower) return c & ~char32_t{1};
        const bool evenIsLower = (c >= 0x13A && c <= 0x148) || (c >= 0x17A && c <= 0x17E);
        return evenIsLower && c % 2 == 0 ? c - 1 : c;
    }
    if (c >= 0x3B1 && c <= 0x3CB) return c == 0x3C2 ? 0x3A3 : c - 32;
    if (c >= 0x3AC && c <= 0x3AF) return c == 0x3AC ? 0x386 : c - 37;
    if (c == 0x3CC) return 0x38C;
    if (c == 0x3CD || c == 0x3CE) return c - 63;
    if (c >= 0x430 && c <= 0x44F) return c - 32;
    if (c >= 0x450 && c <= 0x45F) return c - 80;
    if ((c >= 0x460 && c <= 0x481) || (c >= 0x48A && c <= 0x4BF) || (c >= 0x4D0 && c <= 0x52F))
        return c & ~char32_t{1};
    return c;
}

bool isSymbolName(std::string_view name, bool anonymous)
{
    std::size_t count = 0;
    bool good = true;
    decode(name, [&](char32_t c) {
        const bool star = anonymous && count == 0 && c == '*';
        if (c < 0x20 || (!star && c < 0x80 &&
                         std::string_view("<>/\\\":;?*|,=`").find(static_cast<char>(c)) !=
                             std::string_view::npos))
            good = false;
        count += c < 0x10000 ? 1 : 2;
    });
    return good && count >= 1 && count <= 255;
}

} // namespace orvald::drawing
