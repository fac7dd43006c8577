// SPDX-License-Identifier: LicenseRef-ORVALD
#include "characters.h"

#include "lisp/world.h"

namespace orvald::lisp {

std::u16string fromAnsi(std::string_view octets)
{
    std::u16string text;
    text.reserve(octets.size());
    for (const char octet : octets) text += text::ansiUnit(static_cast<unsigned char>(octet));
    return text;
}

std::u16string decodeFile(std::string_view octets)
{
    if (octets.starts_with("\xEF\xBB\xBF")) return toUtf16(octets.substr(3));
    return text::isUtf8(octets) ? toUtf16(octets) : fromAnsi(octets);
}

} // namespace orvald::lisp
