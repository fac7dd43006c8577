// SPDX-License-Identifier: LicenseRef-ORVALD
// Pairs of surrogates joined.
#include "code_points.h"

namespace orvald::picture {

std::u32string codePoints(std::u16string_view text)
{
    std::u32string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char32_t unit = text[i];
        const char32_t next = i + 1 < text.size() ? text[i + 1] : 0;
        if (unit < 0xD800 || unit > 0xDFFF) {
            out += unit;
        } else if (unit < 0xDC00 && next >= 0xDC00 && next <= 0xDFFF) {
            out += 0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00);
            ++i;
        } else {
            out += U'\xFFFD';
        }
    }
    return out;
}

} // namespace orvald::picture
