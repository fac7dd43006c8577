// SPDX-License-Identifier: LicenseRef-ORVALD
// CRC-32 of IEEE 802.3, eight bytes at a time: table k holds the check of a byte with k zero bytes
// behind it.
#include "kexdata/bin_file.h"

#include <array>

namespace KEX {
namespace {

constexpr std::uint32_t kPolynomial = 0xEDB88320u; // reflected
constexpr std::size_t kStride = 8;
using Table = std::array<std::uint32_t, 256>;

constexpr std::array<Table, kStride> makeTables()
{
    std::array<Table, kStride> tables{};
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        std::uint32_t check = byte;
        for (int bit = 0; bit < 8; ++bit) {
            check = (check & 1) != 0 ? (check >> 1) ^ kPolynomial : check >> 1;
        }
        tables[0][byte] = check;
    }
    for (std::size_t zeros = 1; zeros < kStride; ++zeros) {
        for (std::size_t byte = 0; byte < 256; ++byte) {
            const std::uint32_t before = tables[zeros - 1][byte];
            tables[zeros][byte] = (before >> 8) ^ tables[0][before & 0xFF];
        }
    }
    return tables;
}

constexpr std::array<Table, kStride> kTables = makeTables();

} // namespace

std::uint32_t crc32(std::string_view bytes)
{
    std::uint32_t check = 0xFFFFFFFFu;
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    for (; bytes.size() >= kStride; bytes.remove_prefix(kStride)) {
        std::uint32_t next = 0;
        for (std::size_t i = 0; i < kStride; ++i) {
            const std::uint32_t mixed = i < 4 ? byte(i) ^ ((check >> (8 * i)) & 0xFF) : byte(i);
            next ^= kTables[kStride - 1 - i][mixed];
        }
        check = next;
    }
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        check = (check >> 8) ^ kTables[0][(check ^ byte(i)) & 0xFF];
    }
    return ~check;
}

} // namespace KEX
