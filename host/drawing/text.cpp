// SPDX-License-Identifier: LicenseRef-ORVALD
// File form of text, and names in it. Every function takes any bytes or units.
#include "drawing/text.h"

#include "text/code_page.h"
#include "text/letters.h"

#include <algorithm>
#include <cstdint>

namespace orvald::drawing {
namespace {

/// True when a \U+XXXX form stands at `at`.
bool unicodeForm(std::string_view s, std::size_t at, char32_t& code)
{
    if (s.size() - at < 7 || s[at] != '\\' || (s[at + 1] != 'U' && s[at + 1] != 'u') ||
        s[at + 2] != '+')
        return false;
    code = 0;
    for (std::size_t i = at + 3; i < at + 7; ++i) {
        const int digit = text::hexDigit(static_cast<unsigned char>(s[i]));
        if (digit < 0) return false;
        code = code << 4 | static_cast<char32_t>(digit);
    }
    return true;
}

/// True when a \M+nXXXX form stands at `at`: n tells the code page, XXXX its bytes.
bool multiByteForm(std::string_view s, std::size_t at, char32_t& code)
{
    if (s.size() - at < 8 || (s[at + 1] != 'M' && s[at + 1] != 'm') || s[at + 2] != '+')
        return false;
    const text::CodePage* page = text::CodePage::ofMultiByte(s[at + 3] - '0');
    char bytes[2] = {};
    for (std::size_t i = 0; i < 4; ++i) {
        const int digit = text::hexDigit(static_cast<unsigned char>(s[at + 4 + i]));
        if (digit < 0 || page == nullptr) return false;
        bytes[i / 2] = static_cast<char>(static_cast<unsigned char>(bytes[i / 2]) << 4 | digit);
    }
    std::size_t end = 0;
    // A character of one byte stands in the low half.
    const std::string_view character(bytes[0] == 0 ? bytes + 1 : bytes, bytes[0] == 0 ? 1 : 2);
    code = page->decode(character, end);
    return end == character.size() && code != 0xFFFD;
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
    } else if (text::isSurrogate(code)) {
        appendUnicodeForm(out, code);
    } else {
        text::appendUtf8(out, code);
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
        } else if (s[at] == '\\' && multiByteForm(s, at, code)) {
            at += 8;
        } else {
            code = text::decodeUtf8(s, at);
        }
        if (high != 0) {
            if (form && text::isLowSurrogate(code)) {
                take(text::joinSurrogates(high, code));
                high = 0;
                continue;
            }
            take(high);
            high = 0;
        }
        if (form && text::isHighSurrogate(code)) high = code;
        else take(code);
    }
    if (high != 0) take(high);
}

bool isPlain(std::string_view s)
{
    return std::none_of(s.begin(), s.end(), [](char c) { return c == '^' || c == '\\'; });
}

/// Moves the units at the front that are the same in both forms from `text` to `out`: most texts
/// have no others.
template <class View, class Out>
void movePlain(View& text, Out& out)
{
    const auto plain = [](auto unit) {
        return unit >= 0x20 && unit < 0x7F && unit != '^' && unit != '\\';
    };
    const auto end = std::find_if_not(text.begin(), text.end(), plain);
    const auto count = static_cast<std::size_t>(end - text.begin());
    out.resize(count);
    std::transform(text.begin(), end, out.begin(),
                   [](auto unit) { return static_cast<typename Out::value_type>(unit); });
    text.remove_prefix(count);
}

} // namespace

std::string fileForm(std::u16string_view text)
{
    std::string out;
    out.reserve(text.size());
    movePlain(text, out);
    for (std::size_t at = 0; at < text.size();) {
        const char32_t code = text::decodeUtf16(text, at);
        appendFileForm(out, code, text.substr(at));
    }
    return out;
}

std::string fileForm(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const char32_t code = text::decodeUtf8(text, at);
        appendFileForm(out, code, text.substr(at));
    }
    return out;
}

std::u16string text16(std::string_view s)
{
    std::u16string out;
    out.reserve(s.size());
    movePlain(s, out);
    decode(s, [&out](char32_t code) { text::appendUtf16(out, code); });
    return out;
}

std::string text8(std::string_view s)
{
    if (isPlain(s)) return std::string(s);
    std::string out;
    out.reserve(s.size());
    decode(s, [&out](char32_t code) { text::appendUtf8(out, code); });
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
        decode(s, [&out](char32_t code) { text::appendUtf8(out, text::upperCase(code)); });
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
        const char32_t u = text::upperCase(x), v = text::upperCase(y);
        if (u != v) return u <=> v;
    }
    return a.size() <=> b.size();
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
