// SPDX-License-Identifier: LicenseRef-ORVALD
// The numbered colours follow a rule: 1 to 9 are named, 10 to 249 are 24 hues of five brightnesses,
// each full and pale, 250 to 255 are greys.
#include "colour.h"

#include <array>

namespace orvald::picture {

namespace {

constexpr std::uint8_t byte(int value) { return static_cast<std::uint8_t>(value); }

constexpr std::array<Colour, 256> kNumbered = [] {
    std::array<Colour, 256> table{};
    constexpr Colour named[10] = {{255, 255, 255}, {255, 0, 0},    {255, 255, 0}, {0, 255, 0},
                                  {0, 255, 255},   {0, 0, 255},    {255, 0, 255}, {255, 255, 255},
                                  {128, 128, 128}, {192, 192, 192}};
    for (std::size_t i = 0; i < 10; ++i) table[i] = named[i];
    constexpr int brightness[5] = {255, 165, 127, 76, 38};
    for (int number = 10; number < 250; ++number) {
        // A hue lies 15 degrees behind the one before: a quarter of the way to the next corner of
        // red, yellow, green, cyan, blue, magenta.
        const int hue = number / 10 - 1, corner = hue / 4, quarters = hue % 4;
        const int full = brightness[number % 10 / 2];
        const int least = number % 2 == 0 ? 0 : full / 2;
        const int rising = least + (full - least) * quarters / 4;
        const int falling = least + (full - least) * (4 - quarters) / 4;
        int red = least, green = least, blue = least;
        switch (corner) {
        case 0: red = full, green = rising; break;
        case 1: green = full, red = falling; break;
        case 2: green = full, blue = rising; break;
        case 3: blue = full, green = falling; break;
        case 4: blue = full, red = rising; break;
        default: red = full, blue = falling; break;
        }
        table[std::size_t(number)] = {byte(red), byte(green), byte(blue)};
    }
    for (int i = 0; i < 6; ++i) {
        const auto grey = byte(51 + 204 * i / 5);
        table[std::size_t(250 + i)] = {grey, grey, grey};
    }
    return table;
}();

} // namespace

Colour backgroundColour(Background background)
{
    return background == Background::light ? Colour{255, 255, 255} : Colour{33, 40, 48};
}

Colour foregroundColour(Background background)
{
    return background == Background::light ? Colour{0, 0, 0} : Colour{255, 255, 255};
}

Colour numberedColour(int number, Background background)
{
    if (number < 1 || number > 255 || number == 7) return foregroundColour(background);
    return kNumbered[std::size_t(number)];
}

Colour trueColour(std::int64_t rgb)
{
    return {byte(int(rgb >> 16 & 255)), byte(int(rgb >> 8 & 255)), byte(int(rgb & 255))};
}

} // namespace orvald::picture
