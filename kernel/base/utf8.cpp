// SPDX-License-Identifier: LicenseRef-ORVALD
// UTF-8 at the edge. A lone surrogate is written and read as the three bytes of its own value, so
// that every text of UTF-16 units survives; a pair written that way is refused, it has a form of
// its own.
#include "kex/string.h"

namespace KEX {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kBad = 0xFFFFFFFF;

bool isHigh(char32_t c) { return c >= 0xD800 && c <= 0xDBFF; }
bool isLow(char32_t c) { return c >= 0xDC00 && c <= 0xDFFF; }

/// Reads one code point at `at`. kBad, and one byte passed, when no well-formed sequence starts
/// there.
char32_t nextCodePoint(std::string_view bytes, std::size_t& at)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned first = byte(at++);
    if (first < 0x80) return first;
    const int more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
    if (first < 0xC2 || first > 0xF4 || bytes.size() - at < static_cast<std::size_t>(more)) {
        return kBad;
    }
    char32_t code = first & (0x3Fu >> more);
    for (int i = 0; i < more; ++i) {
        const unsigned next = byte(at + static_cast<std::size_t>(i));
        if ((next & 0xC0) != 0x80) return kBad;
        code = (code << 6) | (next & 0x3F);
    }
    const bool tooLong = (more == 2 && code < 0x800) || (more == 3 && code < 0x10000);
    if (tooLong || code > 0x10FFFF) return kBad;
    at += static_cast<std::size_t>(more);
    return code;
}

void appendUnits(CKexString& text, char32_t code)
{
    if (code < 0x10000) {
        text += static_cast<ACHAR>(code);
        return;
    }
    text += static_cast<ACHAR>(0xD7C0 + (code >> 10));
    text += static_cast<ACHAR>(0xDC00 + (code & 0x3FF));
}

/// `valid` becomes false when a byte had to be replaced.
CKexString decode(std::string_view bytes, bool& valid)
{
    CKexString text;
    text.reserve(static_cast<int>(bytes.size()));
    bool afterHigh = false; // the unit before is a lone high surrogate
    for (std::size_t at = 0; at < bytes.size();) {
        char32_t code = nextCodePoint(bytes, at);
        if (code == kBad || (isLow(code) && afterHigh)) {
            valid = false;
            code = kReplacement;
        }
        afterHigh = isHigh(code);
        appendUnits(text, code);
    }
    return text;
}

} // namespace

std::string toUtf8(TextView text)
{
    std::string bytes;
    bytes.reserve(text.size());
    const auto put = [&](unsigned byte) { bytes += static_cast<char>(byte); };
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t code = text[i];
        if (isHigh(code) && i + 1 < text.size() && isLow(text[i + 1])) {
            code = 0x10000 + ((code - 0xD800) << 10) + (char32_t(text[++i]) - 0xDC00);
        }
        if (code < 0x80) {
            put(code);
        } else if (code < 0x800) {
            put(0xC0 | (code >> 6));
            put(0x80 | (code & 0x3F));
        } else if (code < 0x10000) {
            put(0xE0 | (code >> 12));
            put(0x80 | ((code >> 6) & 0x3F));
            put(0x80 | (code & 0x3F));
        } else {
            put(0xF0 | (code >> 18));
            put(0x80 | ((code >> 12) & 0x3F));
            put(0x80 | ((code >> 6) & 0x3F));
            put(0x80 | (code & 0x3F));
        }
    }
    return bytes;
}

} // namespace KEX

CKexString CKexString::fromUtf8(std::string_view bytes)
{
    bool valid = true;
    return KEX::decode(bytes, valid);
}

std::optional<CKexString> CKexString::fromUtf8Strict(std::string_view bytes)
{
    bool valid = true;
    CKexString text = KEX::decode(bytes, valid);
    if (!valid) return std::nullopt;
    return text;
}
