// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/hex.h"

#include "kex/format.h"

namespace KEX {

CKexString ltox(std::uint32_t value, int digits)
{
    return format(KT("{:X}"), value).lfill(digits, KT('0'));
}

std::uint32_t xtol(TextView text)
{
    std::uint32_t value = 0;
    for (const ACHAR unit : text) {
        const int digit = hexDigit(unit);
        if (digit < 0) break;
        value = value << 4 | static_cast<std::uint32_t>(digit);
    }
    return value;
}

CKexString bitString(std::uint32_t value) { return ltox(value).revert(); }

std::uint32_t bitsOf(const CKexString& text)
{
    const bool usualOrder = equalNoCase(TextView(text.view().substr(0, 2)), KT("0x"));
    return usualOrder ? xtol(text.view().substr(2)) : xtol(text.reverse());
}

} // namespace KEX
