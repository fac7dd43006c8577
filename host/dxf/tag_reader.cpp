// SPDX-License-Identifier: LicenseRef-ORVALD
// Cutting DXF text into groups.
#include "tag_reader.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstring>
#include <system_error>

namespace orvald::dxf {

std::string quoted(std::string_view value)
{
    constexpr std::size_t most = 40;
    std::string out = "\"";
    for (const char c : value.substr(0, most))
        out += static_cast<unsigned char>(c) < 0x20 ? '.' : c;
    while (value.size() > most && (static_cast<unsigned char>(out.back()) & 0xC0) == 0x80)
        out.pop_back(); // not in the middle of a character
    return out + (value.size() > most ? "...\"" : "\"");
}

void TagReader::fail(std::string reason) const
{
    throw Fail{{{}, line_, code_, std::move(reason), 0}};
}

void TagReader::failCode(std::string_view line) const
{
    throw Fail{{{},
                form_ == Form::text ? lines_.number() : line_,
                DxfError::kNoGroup,
                quoted(line) + " is no group code",
                0}};
}

TagReader::TagReader(LineSource& lines) : lines_(lines)
{
    constexpr std::string_view mark("AutoCAD Binary DXF\r\n\x1A\0", 22);
    if (!lines.skip(mark)) return;
    // The first group is 0 SECTION in both forms.
    form_ = Form::binaryOld;
    if (lines.skip({"\0\0", 2})) {
        form_ = Form::binary;
        codeRead_ = true;
    }
}

bool TagReader::next() { return form_ == Form::text ? nextText() : nextBinary(); }

bool TagReader::nextText()
{
    for (;;) {
        std::string_view text;
        if (!lines_.nextShort(text)) {
            if (lines_.error() != 0)
                fail("cannot be read: " + std::generic_category().message(lines_.error()));
            return false;
        }
        if (lines_.number() == 1 && text.starts_with("\xEF\xBB\xBF")) {
            text.remove_prefix(3);
            hasMark_ = true;
        }
        const char* at = text.data();
        const char* end = at + text.size();
        while (at != end && (*at == ' ' || *at == '\t')) ++at;
        const bool negative = at != end && *at == '-';
        if (negative) ++at;
        int code = 0;
        const char* digits = at;
        for (; at != end && *at >= '0' && *at <= '9' && code < 100000; ++at)
            code = 10 * code + (*at - '0');
        const bool none = at == digits;
        while (at != end && (*at == ' ' || *at == '\t')) ++at;
        if (none || at != end || code > 1071) failCode(text);
        code_ = negative ? -code : code;
        line_ = lines_.number();
        if (!lines_.next(value_)) fail("the file ends in the middle of a group");
        if (code_ != 999) return true;
    }
}

std::uint64_t TagReader::linesBehind(std::uint64_t& first)
{
    if (form_ != Form::text) return 0;
    std::uint64_t count = 0;
    for (std::string_view line; lines_.next(line);) {
        if (line.empty() || line == "\x1A") continue;
        if (++count == 1) first = lines_.number();
    }
    return count;
}

// Binary files: numbers with the least byte first, texts that end with a zero byte --------------

template <class Number>
Number TagReader::takeNumber()
{
    std::string_view bytes;
    if (!lines_.take(sizeof(Number), bytes)) fail("the file ends in the middle of a group");
    std::array<unsigned char, sizeof(Number)> order{};
    std::memcpy(order.data(), bytes.data(), sizeof(Number));
    if constexpr (std::endian::native == std::endian::big) std::reverse(order.begin(), order.end());
    return std::bit_cast<Number>(order);
}

template <class Number>
void TagReader::showNumber(Number number)
{
    char digits[32]; // the shortest form of a real reads back the same
    value_ = shown_.assign(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

void TagReader::showBytes()
{
    const auto count = takeNumber<unsigned char>();
    std::string_view bytes;
    if (!lines_.take(count, bytes)) fail("the file ends in the middle of a group");
    shown_.clear();
    for (const char c : bytes) {
        constexpr char digits[] = "0123456789ABCDEF";
        shown_ += digits[static_cast<unsigned char>(c) >> 4];
        shown_ += digits[c & 15];
    }
    value_ = shown_;
}

bool TagReader::takeCode()
{
    line_ += line_ == 0 ? 1 : 2;
    if (codeRead_) { // told the form of the file
        codeRead_ = false;
        code_ = 0;
        return true;
    }
    std::string_view bytes;
    if (!lines_.take(1, bytes)) return false;
    code_ = static_cast<unsigned char>(bytes[0]);
    constexpr int wide = 255;
    if (form_ == Form::binary) code_ |= takeNumber<signed char>() * 256;
    else if (code_ == wide) code_ = takeNumber<std::int16_t>();
    return true;
}

bool TagReader::nextBinary()
{
    do {
        if (!takeCode()) {
            if (lines_.error() != 0)
                fail("cannot be read: " + std::generic_category().message(lines_.error()));
            return false;
        }
        using drawing::TagKind;
        constexpr int comment = 999;
        TagKind kind = TagKind::text;
        if (code_ != comment && !drawing::fileKind(code_, kind)) failCode(std::to_string(code_));
        switch (kind) {
        case TagKind::text:
        case TagKind::handle: {
            std::string_view text;
            if (!lines_.takeUpTo('\0', text)) fail("the file ends in the middle of a group");
            value_ = text;
            break;
        }
        case TagKind::int16:
            if (code_ >= 290 && code_ <= 299) showNumber(int{takeNumber<unsigned char>()});
            else showNumber(takeNumber<std::int16_t>());
            break;
        case TagKind::int32: showNumber(takeNumber<std::int32_t>()); break;
        case TagKind::int64: showNumber(takeNumber<std::int64_t>()); break;
        case TagKind::binary: showBytes(); break;
        case TagKind::real:
        case TagKind::point2:
        case TagKind::point3: showNumber(takeNumber<double>()); break;
        }
    } while (code_ == 999);
    return true;
}

} // namespace orvald::dxf
