// SPDX-License-Identifier: LicenseRef-ORVALD
// The lettering of pictures: every character as lines of a pen, upright and of even width, in the
// manner of drawing office stencils. Lengths in units of a twentieth of the height of capitals.
#pragma once

#include "plane.h"

#include <vector>

namespace orvald::picture {

inline constexpr double kCapHeight = 20.0;
inline constexpr double kDescent = -6.0;  // lowest point of small letters
inline constexpr double kLetterGap = 5.0; // between two characters

struct Glyph
{
    double width = 0.0; // what is drawn spans 0 to width, on the base line y = 0
    Path path;
};

/// Never fails: a character without a form is a small box, a blank has no lines.
const Glyph& glyphOf(char32_t character);
/// From the beginning of a character to that of the next.
inline double advanceOf(const Glyph& glyph) { return glyph.width + kLetterGap; }
/// Characters that have a form of their own, rising.
std::vector<char32_t> knownCharacters();

} // namespace orvald::picture
