// SPDX-License-Identifier: LicenseRef-ORVALD
// Both directions go by tables and through a block on the stack, so that what is written grows by
// whole blocks and is never filled beforehand.
#include "kex/base64.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace KEX {
namespace {

constexpr std::string_view kAlphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr ACHAR kPad = KT('=');
constexpr std::size_t kBytesOfGroup = 3, kUnitsOfGroup = 4;
constexpr std::size_t kGroupsOfBlock = 256;

/// Two units for every twelve bits.
struct UnitPair
{
    ACHAR first, second;
};
constexpr auto makePairs()
{
    std::array<UnitPair, 4096> pairs{};
    for (std::size_t bits = 0; bits < pairs.size(); ++bits) {
        pairs[bits] = {static_cast<ACHAR>(kAlphabet[bits >> 6]),
                       static_cast<ACHAR>(kAlphabet[bits & 63])};
    }
    return pairs;
}
constexpr std::array<UnitPair, 4096> kPairs = makePairs();

/// Six bits for every unit below 256, in its place within the 24 of a group.
constexpr std::uint32_t kBad = 1u << 31;
using Sextets = std::array<std::uint32_t, 256>;
constexpr Sextets makeSextets(int shift)
{
    Sextets sextets{};
    sextets.fill(kBad);
    for (std::uint32_t value = 0; value < kAlphabet.size(); ++value) {
        sextets[static_cast<unsigned char>(kAlphabet[value])] = value << shift;
    }
    return sextets;
}
constexpr std::array<Sextets, kUnitsOfGroup> kSextets = {makeSextets(18), makeSextets(12),
                                                         makeSextets(6), makeSextets(0)};

std::uint32_t byteAt(const char* bytes, std::size_t i)
{
    return static_cast<unsigned char>(bytes[i]);
}

void encodeGroup(const char* bytes, ACHAR* units)
{
    const std::uint32_t bits = byteAt(bytes, 0) << 16 | byteAt(bytes, 1) << 8 | byteAt(bytes, 2);
    const UnitPair first = kPairs[bits >> 12], second = kPairs[bits & 0xFFF];
    units[0] = first.first;
    units[1] = first.second;
    units[2] = second.first;
    units[3] = second.second;
}

/// 24 bits and, for what is no group, kBad or the bits above it of the units' high bytes.
std::uint32_t sextetsOf(const ACHAR* units)
{
    const std::uint32_t high = (units[0] | units[1] | units[2] | units[3]) & 0xFF00u;
    return kSextets[0][units[0] & 0xFF] | kSextets[1][units[1] & 0xFF] |
           kSextets[2][units[2] & 0xFF] | kSextets[3][units[3] & 0xFF] | high << 16;
}
constexpr std::uint32_t kNotBits = 0xFF000000u;

void putBytes(std::uint32_t bits, char* bytes)
{
    bytes[0] = static_cast<char>(bits >> 16);
    bytes[1] = static_cast<char>(bits >> 8);
    bytes[2] = static_cast<char>(bits);
}

/// The last group, in which padding may stand. Gives the number of its bytes, 0 for a bad one.
std::size_t decodeLast(TextView group, char* bytes)
{
    ACHAR units[kUnitsOfGroup];
    std::copy(group.begin(), group.end(), units);
    std::size_t pads = 0;
    while (pads < 2 && units[kUnitsOfGroup - 1 - pads] == kPad) {
        units[kUnitsOfGroup - 1 - pads] = static_cast<ACHAR>(kAlphabet[0]);
        ++pads;
    }
    const std::uint32_t bits = sextetsOf(units);
    const std::uint32_t surplus = bits & ((1u << (8 * pads)) - 1);
    if ((bits & kNotBits) != 0 || surplus != 0) return 0;
    putBytes(bits, bytes);
    return kBytesOfGroup - pads;
}

} // namespace

CKexString base64Encode(std::string_view bytes)
{
    ACHAR block[kGroupsOfBlock * kUnitsOfGroup];
    CKexString text;
    text.reserve(static_cast<int>((bytes.size() + 2) / kBytesOfGroup * kUnitsOfGroup));
    while (bytes.size() >= kBytesOfGroup) {
        const std::size_t groups = std::min(bytes.size() / kBytesOfGroup, kGroupsOfBlock);
        for (std::size_t i = 0; i < groups; ++i) {
            encodeGroup(bytes.data() + i * kBytesOfGroup, block + i * kUnitsOfGroup);
        }
        text += TextView(block, groups * kUnitsOfGroup);
        bytes.remove_prefix(groups * kBytesOfGroup);
    }
    if (bytes.empty()) return text;
    char last[kBytesOfGroup] = {};
    std::copy(bytes.begin(), bytes.end(), last);
    encodeGroup(last, block);
    std::fill(block + bytes.size() + 1, block + kUnitsOfGroup, kPad);
    text += TextView(block, kUnitsOfGroup);
    return text;
}

bool base64Decode(TextView text, std::string& bytes)
{
    if (text.size() % kUnitsOfGroup != 0) return false;
    if (text.empty()) return true;
    char block[kGroupsOfBlock * kBytesOfGroup];
    const std::size_t before = bytes.size();
    bytes.reserve(before + text.size() / kUnitsOfGroup * kBytesOfGroup);
    const TextView last = text.substr(text.size() - kUnitsOfGroup);
    text.remove_suffix(kUnitsOfGroup);
    std::uint32_t all = 0;
    while (!text.empty() && (all & kNotBits) == 0) {
        const std::size_t groups = std::min(text.size() / kUnitsOfGroup, kGroupsOfBlock);
        for (std::size_t i = 0; i < groups; ++i) {
            const std::uint32_t bits = sextetsOf(text.data() + i * kUnitsOfGroup);
            all |= bits;
            putBytes(bits, block + i * kBytesOfGroup);
        }
        bytes.append(block, groups * kBytesOfGroup);
        text.remove_prefix(groups * kUnitsOfGroup);
    }
    const std::size_t rest = (all & kNotBits) != 0 ? 0 : decodeLast(last, block);
    if (rest == 0) bytes.resize(before);
    else bytes.append(block, rest);
    return rest != 0;
}

} // namespace KEX
