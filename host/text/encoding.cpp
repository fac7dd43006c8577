// SPDX-License-Identifier: LicenseRef-ORVALD
// Conversions between the encodings, character by character.
#include "text/encoding.h"

#include <cstdint>
#include <cstring>

namespace orvald::text {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

// Eight bytes at a time; `mask` has the bits that no ASCII character sets.
template <class Unit>
std::size_t lengthWithout(std::uint64_t mask, std::basic_string_view<Unit> text)
{
    constexpr std::size_t kStep = sizeof mask / sizeof(Unit);
    std::size_t at = 0;
    for (; text.size() - at >= kStep; at += kStep) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data() + at, sizeof word);
        if ((word & mask) != 0) break;
    }
    while (at < text.size() && static_cast<std::make_unsigned_t<Unit>>(text[at]) < 0x80) ++at;
    return at;
}

char32_t told(char32_t code, Lone lone)
{
    return lone == Lone::replaced && isSurrogate(code) ? kReplacement : code;
}

/// Length of the sequence at `at`, 0 when it is none; `code` is its character then.
std::size_t sequence(std::string_view s, std::size_t at, char32_t& code)
{
    const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(s[at + i]); };
    const std::uint8_t lead = byte(0);
    std::size_t length = 0;
    char32_t least = 0;
    if (lead < 0x80) {
        code = lead;
        return 1;
    } else if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2, code = lead & 0x1Fu, least = 0x80;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3, code = lead & 0x0Fu, least = 0x800;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4, code = lead & 0x07u, least = 0x10000;
    } else {
        return 0;
    }
    if (s.size() - at < length) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) return 0;
        code = code << 6 | (byte(i) & 0x3Fu);
    }
    return code < least || code > 0x10FFFF ? 0 : length;
}

} // namespace

char32_t decodeUtf8(std::string_view text, std::size_t& at)
{
    char32_t code = 0;
    const std::size_t length = sequence(text, at, code);
    at += length == 0 ? 1 : length;
    return length == 0 ? kReplacement : code;
}

char32_t decodeUtf16(std::u16string_view text, std::size_t& at)
{
    const char32_t unit = text[at++];
    if (!isHighSurrogate(unit) || at == text.size() || !isLowSurrogate(text[at])) return unit;
    return joinSurrogates(unit, text[at++]);
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

void appendUtf16(std::u16string& out, char32_t c)
{
    if (c < 0x10000) {
        out += static_cast<char16_t>(c);
    } else {
        out += static_cast<char16_t>(0xD7C0 + (c >> 10));
        out += static_cast<char16_t>(0xDC00 + (c & 0x3FF));
    }
}

std::size_t asciiLength(std::string_view text) { return lengthWithout(0x8080808080808080, text); }

std::size_t asciiLength(std::u16string_view text)
{
    return lengthWithout(0xFF80FF80FF80FF80, text);
}

std::string utf8(std::u16string_view text, Lone lone)
{
    std::size_t at = asciiLength(text);
    std::string out(text.begin(), text.begin() + at);
    if (at == text.size()) return out;
    out.reserve(text.size());
    while (at < text.size()) appendUtf8(out, told(decodeUtf16(text, at), lone));
    return out;
}

std::u16string utf16(std::string_view text, Lone lone)
{
    std::size_t at = asciiLength(text);
    std::u16string out(text.begin(), text.begin() + at);
    if (at == text.size()) return out;
    out.reserve(text.size());
    while (at < text.size()) {
        const std::size_t start = at;
        char32_t code = decodeUtf8(text, at);
        if (lone == Lone::replaced && isSurrogate(code)) { // no UTF-8: each byte is replaced
            code = kReplacement;
            at = start + 1;
        }
        appendUtf16(out, code);
    }
    return out;
}

std::u32string codePoints(std::u16string_view text, Lone lone)
{
    std::u32string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) out += told(decodeUtf16(text, at), lone);
    return out;
}

bool isUtf8(std::string_view text)
{
    for (std::size_t at = asciiLength(text); at < text.size();) {
        char32_t code = 0;
        const std::size_t length = sequence(text, at, code);
        if (length == 0 || isSurrogate(code)) return false;
        at += length;
    }
    return true;
}

} // namespace orvald::text
