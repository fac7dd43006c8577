// SPDX-License-Identifier: LicenseRef-ORVALD
// MTEXT: its format codes, its lines. The text is read into words, words fill lines, lines are
// placed. Fonts, indents and what is not known are passed over.
#include "lettering.h"
#include "stroke_font.h"
#include "text/encoding.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numbers>

namespace orvald::picture {

namespace {

constexpr double kLineStep = 5.0 / 3.0;  // heights from base line to base line
constexpr double kTabStop = 4.0;         // heights
constexpr std::size_t kMostNesting = 64; // braces; deeper ones change nothing
// A fraction: height of its numbers and their base lines, in heights of the text.
constexpr double kStackHeight = 0.7, kUpperLine = 0.7, kLowerLine = -0.4;

enum class Align
{
    left,
    centre,
    right
};

// Pieces that stay on one line. Positions count from the beginning of the word.
struct Word
{
    std::vector<Lettering> pieces;
    double width = 0.0;   // what is drawn
    double advance = 0.0; // to where the next word begins
    double height = 0.0;  // of the tallest letters
    bool ended = false;   // a blank has come
};
struct Line
{
    std::vector<Lettering> pieces;
    double width = 0.0, advance = 0.0;
    double height = 0.0;
    Align align = Align::left;
};

double number(std::u32string_view text)
{
    std::string ascii;
    for (const char32_t c : text)
        if (c > U' ' && c < U'\x7F') ascii += char(c);
    double value = 0.0;
    const char* from = ascii.data() + (ascii.starts_with('+') ? 1 : 0);
    const auto read = std::from_chars(from, ascii.data() + ascii.size(), value);
    return read.ec == std::errc{} && std::abs(value) < 1e9 ? value : 0.0;
}

class Reader
{
public:
    Reader(const drawing::MTextView& form, const LetterLook& look, Align align)
        : text_(text::codePoints(text::utf16(form.text), text::Lone::replaced)),
          width_(form.width),
          look_(look),
          align_(align)
    {
    }

    std::vector<Line> lines()
    {
        while (at_ < text_.size()) next();
        endLine();
        return std::move(lines_);
    }

private:
    void next()
    {
        const char32_t c = text_[at_];
        const char32_t after = at_ + 1 < text_.size() ? text_[at_ + 1] : 0;
        if (c == U'\\' && after != 0) {
            at_ += 2;
            code(after);
        } else if (c == U'{' || c == U'}' || c < U' ') {
            ++at_;
            control(c);
        } else {
            char32_t letter = 0;
            at_ = takeCharacter(text_, at_, look_, letter);
            if (letter >= U' ') add(letter);
        }
    }

    void control(char32_t c)
    {
        if (c == U'{') {
            if (saved_.size() < kMostNesting) saved_.push_back(look_);
        } else if (c == U'}') {
            if (saved_.empty()) return;
            look_ = saved_.back();
            saved_.pop_back();
        } else if (c == U'\n') {
            endLine();
        } else if (c == U'\t') {
            endWord();
            const double stop = kTabStop * look_.height;
            line_.advance = (std::floor(line_.advance / stop + 1e-9) + 1.0) * stop;
        }
    }

    void code(char32_t c)
    {
        switch (c) {
        case U'P':
        case U'N': endLine(); return; // N: a new column, here a new line
        case U'X': return;
        case U'~': add(U'\x00A0'); return;
        case U'L': look_.underline = true; return;
        case U'l': look_.underline = false; return;
        case U'O': look_.overline = true; return;
        case U'o': look_.overline = false; return;
        case U'K': look_.strike = true; return;
        case U'k': look_.strike = false; return;
        case U'H': scale(look_.height); return;
        case U'W': scale(look_.widthFactor); return;
        case U'T': scale(look_.tracking); return;
        case U'Q':
            look_.oblique =
                std::clamp(number(argument()), -85.0, 85.0) * (std::numbers::pi / 180.0);
            return;
        case U'C':
            look_.colour = static_cast<int>(std::clamp(number(argument()), 0.0, 256.0));
            look_.trueColour.reset();
            return;
        case U'c': {
            // Blue, green, red from the highest byte down.
            const auto bgr = static_cast<std::int64_t>(std::max(number(argument()), 0.0));
            look_.trueColour = (bgr & 255) << 16 | (bgr & 0xFF00) | (bgr >> 16 & 255);
            return;
        }
        case U'S': stack(argument()); return;
        case U'p': paragraphCode(argument()); return;
        case U'A':
        case U'F':
        case U'f': argument(); return;
        default: add(c); return; // \\ \{ \} and codes of later versions
        }
    }

    // Up to the semicolon, which a brace or the end of the line may stand in for.
    std::u32string argument()
    {
        std::u32string out;
        while (at_ < text_.size()) {
            const char32_t c = text_[at_];
            if (c == U'}' || c == U'\n') break;
            ++at_;
            if (c == U';') break;
            if (c == U'\\' && at_ < text_.size()) out += text_[at_++];
            else out += c;
        }
        return out;
    }

    // A value, or with an x behind it a factor.
    void scale(double& value)
    {
        const std::u32string text = argument();
        const double n = number(text);
        if (n <= 0.0) return;
        const bool factor = text.ends_with(U'x') || text.ends_with(U'X');
        value = std::clamp(factor ? value * n : n, 1e-9, 1e9);
    }

    void paragraphCode(const std::u32string& text)
    {
        const std::size_t q = text.find(U'q');
        if (q == std::u32string::npos || q + 1 == text.size()) return;
        const char32_t side = text[q + 1];
        if (side == U'c') align_ = Align::centre;
        else if (side == U'r') align_ = Align::right;
        else if (side == U'l' || side == U'j') align_ = Align::left;
        if (line_.pieces.empty()) line_.align = align_;
    }

    void add(char32_t c)
    {
        const bool blank = c == U' ';
        if (!blank && word_.ended) endWord();
        word_.ended = word_.ended || blank;
        if (word_.pieces.empty() || word_.pieces.back().y != 0.0 ||
            !(word_.pieces.back().look == look_))
            word_.pieces.push_back({{}, look_, word_.advance, 0.0});
        word_.pieces.back().text += c;
        const Glyph& glyph = glyphOf(c);
        if (!blank) word_.width = word_.advance + glyph.width * look_.unit();
        word_.advance += advanceOf(glyph) * look_.unit() * look_.tracking;
        word_.height = std::max(word_.height, look_.height);
    }

    // a^b and a/b one above the other, / with a line between; a#b in a row.
    void stack(const std::u32string& text)
    {
        const std::size_t mark = text.find_first_of(U"^/#");
        if (mark == std::u32string::npos || text[mark] == U'#') {
            for (const char32_t c : text) add(c == U'#' ? U'/' : c);
            return;
        }
        if (word_.ended) endWord();
        LetterLook look = look_;
        look.height *= kStackHeight;
        Lettering upper{text.substr(0, mark), look, word_.advance, kUpperLine * look_.height};
        Lettering lower{text.substr(mark + 1), look, word_.advance, kLowerLine * look_.height};
        const double up = widthOf(upper), low = widthOf(lower), width = std::max(up, low);
        if (text[mark] == U'/') {
            upper.x += (width - up) / 2.0;
            lower.x += (width - low) / 2.0;
            // The line between belongs to the wider number.
            if (up >= low) upper.look.underline = true;
            else lower.look.overline = true;
        }
        word_.width = word_.advance + width;
        word_.advance = word_.width + kLetterGap * look_.unit();
        word_.height = std::max(word_.height, look_.height);
        word_.pieces.push_back(std::move(upper));
        word_.pieces.push_back(std::move(lower));
    }

    void endWord()
    {
        if (word_.pieces.empty()) return;
        constexpr double kRounding = 1.0 + 1e-9;
        if (width_ > 0.0 && !line_.pieces.empty() &&
            line_.advance + word_.width > width_ * kRounding)
            breakLine();
        for (Lettering& piece : word_.pieces) {
            piece.x += line_.advance;
            line_.pieces.push_back(std::move(piece));
        }
        line_.width = std::max(line_.width, line_.advance + word_.width);
        line_.advance += word_.advance;
        line_.height = std::max(line_.height, word_.height);
        word_ = {};
    }

    void endLine()
    {
        endWord();
        breakLine();
    }

    void breakLine()
    {
        if (line_.height == 0.0) line_.height = look_.height; // nothing stands on it
        lines_.push_back(std::move(line_));
        line_ = {};
        line_.align = align_;
    }

    std::u32string text_;
    double width_;
    LetterLook look_;
    Align align_;
    std::size_t at_ = 0;
    std::vector<LetterLook> saved_; // at each open brace
    Word word_;
    Line line_{{}, 0.0, 0.0, 0.0, align_};
    std::vector<Line> lines_;
};

} // namespace

Paragraphs paragraphs(const drawing::MTextView& text, const LetterLook& look)
{
    const int attachment = std::clamp(text.attachment, 1, 9) - 1;
    const auto column = static_cast<Align>(attachment % 3);
    std::vector<Line> lines = Reader(text, look, column).lines();

    const double spacing = text.lineSpacing > 0.0 ? text.lineSpacing : 1.0;
    double width = 0.0, depth = 0.0; // depth: from the first base line to the last
    for (std::size_t i = 0; i < lines.size(); ++i) {
        width = std::max(width, lines[i].width);
        if (i > 0) depth += kLineStep * spacing * lines[i].height;
    }
    if (text.width > 0.0) width = text.width;

    Paragraphs out;
    const double first = lines.front().height, total = first + depth;
    out.left = column == Align::left ? 0.0 : column == Align::centre ? -width / 2.0 : -width;
    out.right = out.left + width;
    out.top = attachment < 3 ? 0.0 : attachment < 6 ? total / 2.0 : total;
    out.bottom = out.top - total;
    double y = out.top - first;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        Line& line = lines[i];
        if (i > 0) y -= kLineStep * spacing * line.height;
        const double spare = width - line.width;
        const double x = out.left + (line.align == Align::left     ? 0.0
                                     : line.align == Align::centre ? spare / 2.0
                                                                   : spare);
        for (Lettering& piece : line.pieces) {
            piece.x += x;
            piece.y += y;
            out.pieces.push_back(std::move(piece));
        }
    }
    return out;
}

} // namespace orvald::picture
