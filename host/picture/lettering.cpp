// SPDX-License-Identifier: LicenseRef-ORVALD
// Single lines of text, and the %% forms that all texts share.
#include "lettering.h"

#include "stroke_font.h"
#include "text/encoding.h"

namespace orvald::picture {

double LetterLook::unit() const { return height * widthFactor / kCapHeight; }

double widthOf(const Lettering& piece)
{
    double at = 0.0, end = 0.0; // in font units
    for (const char32_t c : piece.text) {
        const Glyph& glyph = glyphOf(c);
        end = at + glyph.width;
        at += advanceOf(glyph) * piece.look.tracking;
    }
    return end * piece.look.unit();
}

std::size_t takeCharacter(std::u32string_view text, std::size_t at, LetterLook& look,
                          char32_t& character)
{
    character = text[at];
    if (character != U'%' || at + 2 >= text.size() || text[at + 1] != U'%') return at + 1;
    const char32_t form = text[at + 2];
    const auto isDigit = [](char32_t c) { return c >= U'0' && c <= U'9'; };
    switch (form) {
    case U'c':
    case U'C': character = U'⌀'; return at + 3;
    case U'd':
    case U'D': character = U'°'; return at + 3;
    case U'p':
    case U'P': character = U'±'; return at + 3;
    case U'%': return at + 3;
    case U'u':
    case U'U': look.underline = !look.underline; break;
    case U'o':
    case U'O': look.overline = !look.overline; break;
    case U'k':
    case U'K': look.strike = !look.strike; break;
    default:
        if (!isDigit(form)) return at + 1;
        character = 0;
        for (at += 2; at < text.size() && isDigit(text[at]) && character < 100; ++at)
            character = character * 10 + (text[at] - U'0');
        return at;
    }
    character = 0;
    return at + 3;
}

std::vector<Lettering> singleLine(std::string_view text, const LetterLook& look)
{
    const std::u32string characters = text::codePoints(text::utf16(text), text::Lone::replaced);
    std::vector<Lettering> line;
    LetterLook current = look;
    double x = 0.0;
    for (std::size_t at = 0; at < characters.size();) {
        char32_t c = 0;
        at = takeCharacter(characters, at, current, c);
        if (c < U' ') continue; // a switch, or a character without a form
        if (line.empty() || !(line.back().look == current)) line.push_back({{}, current, x, 0.0});
        line.back().text += c;
        x += advanceOf(glyphOf(c)) * current.unit();
    }
    return line;
}

double lineWidth(const std::vector<Lettering>& line)
{
    return line.empty() ? 0.0 : line.back().x + widthOf(line.back());
}

} // namespace orvald::picture
