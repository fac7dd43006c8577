// SPDX-License-Identifier: LicenseRef-ORVALD
// Shortest round-trip texts of doubles, with a short cut for the many that have few decimals.
#include "number_out.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace orvald::dxf {
namespace {

// Up to these the short cut is exact: value times 10^6 stays below 2^53.
constexpr double kMostShort = 1e9;
constexpr std::uint64_t kMillion = 1000000;

} // namespace

char* writeReal(char* out, double value)
{
    if (std::signbit(value)) {
        *out++ = '-';
        value = -value;
    }
    if (value < kMostShort) {
        // m / 10^6 with both exact is the double nearest to that decimal, so when it is the value,
        // the decimal reads back to it; with at most 15 digits there is no shorter one.
        const auto millionths = static_cast<std::uint64_t>(value * 1e6 + 0.5);
        if (static_cast<double>(millionths) / 1e6 == value) {
            out = std::to_chars(out, out + kRealRoom, millionths / kMillion).ptr;
            *out++ = '.';
            auto rest = static_cast<std::uint32_t>(millionths % kMillion);
            for (std::uint32_t unit = 100000; unit != 0; unit /= 10) {
                *out++ = static_cast<char>('0' + rest / unit);
                rest %= unit;
                if (rest == 0) break;
            }
            return out;
        }
    }
    const bool fixed = value >= 1e-5 && value < 1e16;
    char* end = std::to_chars(out, out + kRealRoom, value,
                              fixed ? std::chars_format::fixed : std::chars_format::scientific)
                    .ptr;
    char* exponent = static_cast<char*>(std::memchr(out, 'e', static_cast<std::size_t>(end - out)));
    if (exponent != nullptr) *exponent = 'E';
    if (std::memchr(out, '.', static_cast<std::size_t>(end - out)) == nullptr) {
        char* place = exponent == nullptr ? end : exponent;
        std::memmove(place + 2, place, static_cast<std::size_t>(end - place));
        place[0] = '.';
        place[1] = '0';
        end += 2;
    }
    return end;
}

} // namespace orvald::dxf
