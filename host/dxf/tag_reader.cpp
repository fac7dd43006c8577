// SPDX-License-Identifier: LicenseRef-ORVALD
// Cutting DXF text into groups.
#include "tag_reader.h"

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
    throw Fail{{{}, lines_.number(), DxfError::kNoGroup, quoted(line) + " is no group code", 0}};
}

bool TagReader::next()
{
    for (;;) {
        std::string_view text;
        if (!lines_.nextShort(text)) {
            if (lines_.error() != 0)
                fail("cannot be read: " + std::generic_category().message(lines_.error()));
            return false;
        }
        if (lines_.number() == 1 && text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
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

} // namespace orvald::dxf
