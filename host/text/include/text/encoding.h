// SPDX-License-Identifier: LicenseRef-ORVALD
// UTF-16 as programs hold text, and UTF-8 as files and terminals have it.
// Every function takes any bytes or units. Bytes that are no UTF-8 become U+FFFD, one each.
#pragma once

#include <string>
#include <string_view>

namespace orvald::text {

/// What becomes of half a surrogate pair.
enum class Lone
{
    kept,    // three bytes in UTF-8, so that it survives both ways
    replaced // U+FFFD: the text goes where only valid UTF-8 may go
};

std::string utf8(std::u16string_view text, Lone lone = Lone::kept);
std::u16string utf16(std::string_view text, Lone lone = Lone::kept);
std::u32string codePoints(std::u16string_view text, Lone lone = Lone::kept);

/// Length of the beginning that is ASCII.
std::size_t asciiLength(std::string_view text);
std::size_t asciiLength(std::u16string_view text);

/// True when all of it is valid UTF-8; surrogates encoded alone are not.
bool isUtf8(std::string_view text);

/// The code point at `at` of UTF-8 text, surrogates encoded alone included, and moves behind it. A
/// byte that is no UTF-8 gives U+FFFD and counts one.
char32_t decodeUtf8(std::string_view text, std::size_t& at);
/// The code point at `at` of UTF-16 text, and moves behind it; a lone surrogate stands for itself.
char32_t decodeUtf16(std::u16string_view text, std::size_t& at);
/// Appends a code point, 0 to 0x10FFFF, surrogates included.
void appendUtf8(std::string& out, char32_t codePoint);
void appendUtf16(std::u16string& out, char32_t codePoint);

constexpr bool isSurrogate(char32_t c) { return c >= 0xD800 && c <= 0xDFFF; }
constexpr bool isHighSurrogate(char32_t c) { return c >= 0xD800 && c <= 0xDBFF; }
constexpr bool isLowSurrogate(char32_t c) { return c >= 0xDC00 && c <= 0xDFFF; }
/// The code point of a pair.
constexpr char32_t joinSurrogates(char32_t high, char32_t low)
{
    return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

/// The character of a byte of code page 1252; the five unused ones are the controls of their
/// number.
char16_t ansiUnit(unsigned char byte);

} // namespace orvald::text
