// SPDX-License-Identifier: LicenseRef-ORVALD
#include "text/json.h"

#include "text/encoding.h"

#include <charconv>
#include <cmath>

namespace orvald::text {

std::string jsonText(std::string_view text)
{
    std::string out = "\"";
    for (std::size_t at = 0; at < text.size();) {
        const char32_t code = decodeUtf8(text, at);
        if (code == '"' || code == '\\') {
            out += '\\';
            out += static_cast<char>(code);
        } else if (code < 0x20) {
            constexpr char kHex[] = "0123456789abcdef";
            out += "\\u00";
            out += kHex[code >> 4];
            out += kHex[code & 15];
        } else {
            appendUtf8(out, isSurrogate(code) ? char32_t{0xFFFD} : code);
        }
    }
    return out + "\"";
}

std::string jsonNumber(double number)
{
    if (!std::isfinite(number)) return "null";
    char digits[32];
    return {digits, std::to_chars(digits, digits + sizeof digits, number).ptr};
}

} // namespace orvald::text
