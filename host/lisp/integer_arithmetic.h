// SPDX-License-Identifier: LicenseRef-ORVALD
// The language's integers: 32 bits, results wrap.
#pragma once

#include <cstdint>

namespace orvald::lisp {

constexpr std::int32_t wrapped(std::uint32_t bits) { return static_cast<std::int32_t>(bits); }

constexpr std::int32_t wrappedAdd(std::int32_t a, std::int32_t b)
{
    return wrapped(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

constexpr std::int32_t wrappedSubtract(std::int32_t a, std::int32_t b)
{
    return wrapped(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

constexpr std::int32_t wrappedMultiply(std::int32_t a, std::int32_t b)
{
    return wrapped(static_cast<std::uint32_t>(a) * static_cast<std::uint32_t>(b));
}

/// `b` is not 0; the one quotient that does not fit wraps.
constexpr std::int32_t wrappedDivide(std::int32_t a, std::int32_t b)
{
    return b == -1 ? wrappedSubtract(0, a) : a / b;
}

constexpr std::int32_t remainderOf(std::int32_t a, std::int32_t b) { return b == -1 ? 0 : a % b; }

} // namespace orvald::lisp
