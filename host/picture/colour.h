// SPDX-License-Identifier: LicenseRef-ORVALD
// Colours: the numbered ones of a drawing (ACI 1 to 255) and true ones.
#pragma once

#include "picture/picture.h"

#include <cstdint>

namespace orvald::picture {

struct Colour
{
    std::uint8_t red = 0, green = 0, blue = 0;
    std::uint8_t opacity = 255;
    friend bool operator==(Colour, Colour) = default;
};

Colour backgroundColour(Background background);
/// Black or white, whichever is not the background's: number 7 and complemented vectors.
Colour foregroundColour(Background background);
/// Numbers outside 1 to 255, and 7, give the foreground.
Colour numberedColour(int number, Background background);
/// 0xRRGGBB.
Colour trueColour(std::int64_t rgb);

} // namespace orvald::picture
