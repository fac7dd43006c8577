// SPDX-License-Identifier: LicenseRef-ORVALD
// Text in pieces of one look, as TEXT and MTEXT give it, and where each piece stands. Lengths in
// drawing units, the base line of a piece is y = 0 there; angles in radians.
#pragma once

#include "drawing/views.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvald::picture {

struct LetterLook
{
    double height = 1.0; // of capitals
    double widthFactor = 1.0;
    double oblique = 0.0;  // lean to the right
    double tracking = 1.0; // of the step from letter to letter
    bool underline = false, overline = false, strike = false;
    bool bold = false, italic = false;
    bool symbols = false;                   // letters stand for signs of form and position
    std::optional<int> colour;              // number, 0 by block, 256 by layer
    std::optional<std::int64_t> trueColour; // 0xRRGGBB

    /// Drawing units of a font unit along the base line.
    double unit() const;
    friend bool operator==(const LetterLook&, const LetterLook&) = default;
};

struct Lettering
{
    std::u32string text;
    LetterLook look;
    double x = 0.0, y = 0.0; // of its beginning on the base line
};
/// From the first line drawn to the last.
double widthOf(const Lettering& piece);

/// Takes the character at `at`, %% forms resolved (%%c %%d %%p %%nnn %%%); gives the position
/// behind it. A switch of lines (%%u %%o %%k) turns the look and gives no character, 0.
std::size_t takeCharacter(std::u32string_view text, std::size_t at, LetterLook& look,
                          char32_t& character);

/// The pieces of a TEXT, UTF-8, one behind the other from x = 0.
std::vector<Lettering> singleLine(std::string_view text, const LetterLook& look);
/// Width of such pieces together.
double lineWidth(const std::vector<Lettering>& line);

/// The lines of an MTEXT around its insertion point.
struct Paragraphs
{
    std::vector<Lettering> pieces;
    // From the left to the right edge, from the lowest base line to the top of the first capitals.
    double left = 0.0, right = 0.0, bottom = 0.0, top = 0.0;
};
/// Broken at the width of the MTEXT and placed by its attachment; `look` is that of its beginning.
Paragraphs paragraphs(const drawing::MTextView& text, const LetterLook& look);

} // namespace orvald::picture
