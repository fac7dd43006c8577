// SPDX-License-Identifier: LicenseRef-ORVALD
// Hexadecimal numbers, and the bit-strings in which data keeps 32 flags: the digits of the number
// with the least significant first, so that 31 is "F1".
#pragma once

#include "kex/string.h"

#include <cstdint>

namespace KEX {

/// 0 to 15 for a hexadecimal digit in either case, -1 for any other unit.
constexpr int hexDigit(ACHAR unit)
{
    if (unit >= KT('0') && unit <= KT('9')) return unit - KT('0');
    if (unit >= KT('A') && unit <= KT('F')) return unit - KT('A') + 10;
    if (unit >= KT('a') && unit <= KT('f')) return unit - KT('a') + 10;
    return -1;
}

/// Capital digits, with zeros in front up to `digits`; 0 without padding is "0".
KEX_BASE_API CKexString ltox(std::uint32_t value, int digits = 0);
/// The number that the leading digits of a text give, in either case; its low 32 bits.
KEX_BASE_API std::uint32_t xtol(TextView text);

/// The bit-string of a value; bitsOf(bitString(v)) == v.
KEX_BASE_API CKexString bitString(std::uint32_t value);
/// The value of a bit-string; a text that begins with "0x" has its digits in the usual order.
KEX_BASE_API std::uint32_t bitsOf(const CKexString& text);

/// Bit n of a value, 0 the lowest; none beyond 0 to 31.
constexpr bool bitAt(std::uint32_t bits, int n) { return n >= 0 && n < 32 && (bits >> n & 1) != 0; }
/// The value with bit n set or cleared; as it is for an n beyond 0 to 31.
constexpr std::uint32_t bitsWith(std::uint32_t bits, int n, bool set)
{
    if (n < 0 || n >= 32) return bits;
    const std::uint32_t bit = std::uint32_t(1) << n;
    return set ? bits | bit : bits & ~bit;
}

} // namespace KEX
