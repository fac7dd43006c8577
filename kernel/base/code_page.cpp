// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/code_page.h"

#include <array>

namespace KEX {
namespace {

constexpr unsigned kFirst = 0x80; // below it both pages are ASCII
constexpr unsigned char kMissing = '?';

using HighBytes = std::array<unsigned char, 0x80>;

/// The byte in 1252 of each byte of 850 from 0x80 on; 0 where 1252 lacks the character: frames,
/// blocks, the dotless i and the double underline.
constexpr HighBytes kWinOfDos = {
    0xC7, 0xFC, 0xE9, 0xE2, 0xE4, 0xE0, 0xE5, 0xE7, 0xEA, 0xEB, 0xE8, 0xEF, 0xEE, 0xEC, 0xC4, 0xC5,
    0xC9, 0xE6, 0xC6, 0xF4, 0xF6, 0xF2, 0xFB, 0xF9, 0xFF, 0xD6, 0xDC, 0xF8, 0xA3, 0xD8, 0xD7, 0x83,
    0xE1, 0xED, 0xF3, 0xFA, 0xF1, 0xD1, 0xAA, 0xBA, 0xBF, 0xAE, 0xAC, 0xBD, 0xBC, 0xA1, 0xAB, 0xBB,
    0,    0,    0,    0,    0,    0xC1, 0xC2, 0xC0, 0xA9, 0,    0,    0,    0,    0xA2, 0xA5, 0,
    0,    0,    0,    0,    0,    0,    0xE3, 0xC3, 0,    0,    0,    0,    0,    0,    0,    0xA4,
    0xF0, 0xD0, 0xCA, 0xCB, 0xC8, 0,    0xCD, 0xCE, 0xCF, 0,    0,    0,    0,    0xA6, 0xCC, 0,
    0xD3, 0xDF, 0xD4, 0xD2, 0xF5, 0xD5, 0xB5, 0xFE, 0xDE, 0xDA, 0xDB, 0xD9, 0xFD, 0xDD, 0xAF, 0xB4,
    0xAD, 0xB1, 0,    0xBE, 0xB6, 0xA7, 0xF7, 0xB8, 0xB0, 0xA8, 0xB7, 0xB9, 0xB3, 0xB2, 0,    0xA0,
};

constexpr HighBytes inverse(const HighBytes& table)
{
    HighBytes result = {};
    for (unsigned i = 0; i < table.size(); ++i) {
        if (table[i] != 0) result[table[i] - kFirst] = static_cast<unsigned char>(i + kFirst);
    }
    return result;
}
constexpr HighBytes kDosOfWin = inverse(kWinOfDos);

void convert(ACHAR* text, const HighBytes& table)
{
    if (text == nullptr) return;
    for (; *text != 0; ++text) {
        if (*text < kFirst || *text - kFirst >= table.size()) continue;
        const unsigned char byte = table[*text - kFirst];
        *text = byte == 0 ? kMissing : byte;
    }
}

} // namespace

void dosToWin(ACHAR* text) { convert(text, kWinOfDos); }
void winToDos(ACHAR* text) { convert(text, kDosOfWin); }

} // namespace KEX
