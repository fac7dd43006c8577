// SPDX-License-Identifier: LicenseRef-ORVALD
// The forms are read once into paths, on first use, into a table in character order.
#include "stroke_font.h"

#include "stroke_font_data.h"

#include <algorithm>
#include <charconv>
#include <numbers>
#include <string_view>

namespace orvald::picture {

namespace {

struct Entry
{
    char32_t character;
    Glyph glyph;
};

// Appends a form, moved by (dx, dy).
void appendForm(Path& path, std::string_view strokes, double dx, double dy)
{
    const char* at = strokes.data();
    const char* const end = at + strokes.size();
    bool begins = true;
    Vec last;
    while (at < end) {
        const char c = *at;
        if (c == ' ' || c == ';') {
            begins = begins || c == ';';
            ++at;
            continue;
        }
        if (c == '<' || c == '>') ++at;
        Vec p;
        at = std::from_chars(at, end, p.x).ptr + 1; // past the comma
        at = std::from_chars(at, end, p.y).ptr;
        p = p + Vec{dx, dy};
        if (begins) {
            path.moveTo(p);
        } else if (c == '<' || c == '>') {
            // Turning left into a rising diagonal begins level; each change of one of the three
            // words changes the answer.
            const bool rising = (p.x > last.x) == (p.y > last.y);
            const bool level = rising == (c == '<');
            const Vec centre = level ? Vec{last.x, p.y} : Vec{p.x, last.y};
            path.arcTo({centre, last - centre, p - centre, 0.0, std::numbers::pi / 2.0}, p);
        } else {
            path.lineTo(p);
        }
        begins = false;
        last = p;
    }
}

const GlyphForm& formOf(char32_t character)
{
    return *std::find_if(std::begin(kGlyphForms), std::end(kGlyphForms),
                         [&](const GlyphForm& form) { return form.character == character; });
}

std::vector<Entry> makeFont()
{
    std::vector<Entry> font;
    for (const GlyphForm& form : kGlyphForms) {
        Entry entry{form.character, {}};
        entry.glyph.width = form.width;
        appendForm(entry.glyph.path, form.strokes, 0.0, 0.0);
        font.push_back(std::move(entry));
    }
    for (const MarkedLetter& marked : kMarkedLetters) {
        const GlyphForm& letter = formOf(marked.letter);
        const MarkForm& mark = kMarkForms[std::size_t(marked.mark)];
        Entry entry{marked.character, {}};
        // A mark wider than its letter widens it.
        const double width = std::max<double>(letter.width, mark.width);
        const bool capital = marked.letter < U'a' && marked.mark != Mark::cedilla;
        entry.glyph.width = width;
        appendForm(entry.glyph.path, letter.strokes, (width - letter.width) / 2.0, 0.0);
        appendForm(entry.glyph.path, mark.strokes, (width - mark.width) / 2.0,
                   capital ? kMarkLift : 0.0);
        font.push_back(std::move(entry));
    }
    for (const LookAlike& alike : kLookAlikes) {
        const GlyphForm& form = formOf(alike.other);
        Entry entry{alike.character, {}};
        entry.glyph.width = form.width;
        appendForm(entry.glyph.path, form.strokes, 0.0, 0.0);
        font.push_back(std::move(entry));
    }
    std::sort(font.begin(), font.end(),
              [](const Entry& a, const Entry& b) { return a.character < b.character; });
    return font;
}

const std::vector<Entry>& font()
{
    static const std::vector<Entry> entries = makeFont();
    return entries;
}

} // namespace

const Glyph& glyphOf(char32_t character)
{
    static const Glyph box = [] {
        Glyph glyph;
        glyph.width = 10.0;
        appendForm(glyph.path, "0,0 10,0 10,14 0,14 0,0", 0.0, 0.0);
        return glyph;
    }();
    const std::vector<Entry>& entries = font();
    const auto found =
        std::lower_bound(entries.begin(), entries.end(), character,
                         [](const Entry& entry, char32_t c) { return entry.character < c; });
    return found != entries.end() && found->character == character ? found->glyph : box;
}

std::vector<char32_t> knownCharacters()
{
    std::vector<char32_t> out;
    for (const Entry& entry : font()) out.push_back(entry.character);
    return out;
}

} // namespace orvald::picture
