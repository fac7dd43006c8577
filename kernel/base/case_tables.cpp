// SPDX-License-Identifier: LicenseRef-ORVALD
// Capitals and small letters, one unit to one unit. The pairs are listed once; the tables for both
// directions are made from them at compile time.
#include "kex/text.h"

#include <array>
#include <cstdint>

namespace KEX {
namespace {

/// Capitals from `first` to `last`; the small letter of each lies `step` units above it. With step
/// 1 capitals and small letters alternate, so that only every second unit of the range is a
/// capital.
struct CaseRange
{
    std::uint16_t first, last;
    std::int16_t step;
};

constexpr CaseRange kCaseRanges[] = {
    {0x0041, 0x005A, 32}, // Latin
    {0x00C0, 0x00D6, 32},
    {0x00D8, 0x00DE, 32},
    {0x0100, 0x012E, 1}, // Latin Extended-A, without the Turkish i and the long s
    {0x0132, 0x0136, 1},
    {0x0139, 0x0147, 1},
    {0x014A, 0x0176, 1},
    {0x0178, 0x0178, -121}, // y with diaeresis, whose small letter is U+00FF
    {0x0179, 0x017D, 1},
    {0x0182, 0x0184, 1}, // Latin Extended-B
    {0x0187, 0x0187, 1},
    {0x018B, 0x018B, 1},
    {0x0191, 0x0191, 1},
    {0x0198, 0x0198, 1},
    {0x01A0, 0x01A4, 1},
    {0x01A7, 0x01A7, 1},
    {0x01AC, 0x01AC, 1},
    {0x01AF, 0x01AF, 1},
    {0x01B3, 0x01B5, 1},
    {0x01B8, 0x01B8, 1},
    {0x01BC, 0x01BC, 1},
    {0x01C4, 0x01C4, 2}, // digraphs, whose title form between the two stays as it is
    {0x01C7, 0x01C7, 2},
    {0x01CA, 0x01CA, 2},
    {0x01CD, 0x01DB, 1},
    {0x01DE, 0x01EE, 1},
    {0x01F1, 0x01F1, 2},
    {0x01F4, 0x01F4, 1},
    {0x01F8, 0x021E, 1},
    {0x0222, 0x0232, 1},
    {0x0246, 0x024E, 1},
    {0x0370, 0x0372, 1}, // Greek
    {0x0376, 0x0376, 1},
    {0x0386, 0x0386, 38},
    {0x0388, 0x038A, 37},
    {0x038C, 0x038C, 64},
    {0x038E, 0x038F, 63},
    {0x0391, 0x03A1, 32},
    {0x03A3, 0x03AB, 32},
    {0x03D8, 0x03EE, 1},
    {0x0400, 0x040F, 80}, // Cyrillic
    {0x0410, 0x042F, 32},
    {0x0460, 0x0480, 1},
    {0x048A, 0x04BE, 1},
    {0x04C0, 0x04C0, 15},
    {0x04C1, 0x04CD, 1},
    {0x04D0, 0x052E, 1},
    {0x0531, 0x0556, 48}, // Armenian
    {0x1E00, 0x1E94, 1},  // Latin Extended Additional, without the capital sharp s
    {0x1EA0, 0x1EFE, 1},
    {0x2160, 0x216F, 16}, // Roman numerals
    {0x24B6, 0x24CF, 26}, // circled letters
    {0xFF21, 0xFF3A, 32}, // full-width letters
};

constexpr std::uint16_t kFinalSigma = 0x03C2;
constexpr std::uint16_t kCapitalSigma = 0x03A3;

/// Blocks of 256 units that hold letters with case, and the place of each block in the tables.
constexpr std::size_t kBlocks = 9;
constexpr std::uint8_t blockOf(std::size_t high)
{
    constexpr std::uint8_t kOthers = 0; // the first block stands for all without such letters
    if (high <= 0x05) return static_cast<std::uint8_t>(high + 1);
    return high == 0x1E ? 7 : high == 0x21 ? 8 : high == 0x24 ? 9 : high == 0xFF ? 10 : kOthers;
}

/// For each unit the distance to its other form.
struct Distances
{
    std::array<std::uint8_t, 256> block{};
    std::array<std::array<std::int16_t, 256>, kBlocks + 2> distance{};

    constexpr void set(std::uint32_t unit, int step)
    {
        distance[block[unit >> 8]][unit & 0xFF] = static_cast<std::int16_t>(step);
    }
};

constexpr Distances makeDistances(bool toUpper)
{
    Distances table;
    for (std::size_t high = 0; high < 256; ++high) table.block[high] = blockOf(high);
    for (const CaseRange& range : kCaseRanges) {
        const unsigned stride = range.step == 1 ? 2 : 1;
        for (unsigned capital = range.first; capital <= range.last; capital += stride) {
            const auto small = static_cast<unsigned>(static_cast<int>(capital) + range.step);
            if (toUpper) table.set(small, -range.step);
            else table.set(capital, range.step);
        }
    }
    if (toUpper) table.set(kFinalSigma, kCapitalSigma - kFinalSigma);
    return table;
}

constexpr Distances kToUpper = makeDistances(true);
constexpr Distances kToLower = makeDistances(false);

ACHAR otherForm(const Distances& table, ACHAR unit)
{
    const auto code = static_cast<unsigned>(unit);
    return static_cast<ACHAR>(
        code + static_cast<unsigned>(table.distance[table.block[code >> 8]][code & 0xFF]));
}

} // namespace

ACHAR upperUnit(ACHAR unit) { return otherForm(kToUpper, unit); }
ACHAR lowerUnit(ACHAR unit) { return otherForm(kToLower, unit); }

int compareNoCase(TextView a, TextView b)
{
    const std::size_t common = a.size() < b.size() ? a.size() : b.size();
    for (std::size_t i = 0; i < common; ++i) {
        if (a[i] == b[i]) continue;
        const ACHAR left = upperUnit(a[i]);
        const ACHAR right = upperUnit(b[i]);
        if (left != right) return left < right ? -1 : 1;
    }
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

} // namespace KEX
