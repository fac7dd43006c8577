// SPDX-License-Identifier: LicenseRef-ORVALD
// MTEXT: its format codes, its lines. The text is read into words, words fill lines, lines are
// placed. Names of fonts and what is not known are passed over.
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
// Between the numbers of a fraction, in heights of theirs, and the slash between slanted ones.
constexpr double kStackGap = 0.45, kSlashHeight = 1.6;

enum class Align
{
    left,
    centre,
    right
};

// A piece whose y counts from the bottom of a box: of its letters, or of a whole fraction.
struct Boxed
{
    Lettering piece;
    double box = 0.0;   // height
    double share = 0.0; // 0 the box stands on the base line, 1 it hangs from the top of the letters
};
// Pieces that stay on one line. Positions count from the beginning of the word.
struct Word
{
    std::vector<Boxed> pieces;
    double width = 0.0;   // what is drawn
    double advance = 0.0; // to where the next word begins
    double height = 0.0;  // of the tallest letters
    bool ended = false;   // a blank has come
};
// What a paragraph says about its lines; lengths in drawing units.
struct Form
{
    Align align = Align::left;
    bool justified = false;
    double first = 0.0, left = 0.0,
           right = 0.0;        // indents; the first line's counts from the left one
    std::vector<double> stops; // of tabs, rising
};
struct Line
{
    std::vector<Boxed> pieces;
    std::vector<std::size_t> words; // the first piece of each word that a blank stands before
    double width = 0.0, advance = 0.0;
    double height = 0.0;
    double indent = 0.0; // of the left border
    double right = 0.0;  // indent of the right one
    Align align = Align::left;
    bool stretched = false; // its gaps widen to the full width
};

// Letters of the fonts that hold the signs of form and position.
char32_t symbolOf(char32_t c)
{
    static constexpr std::u32string_view kSigns = U"∠⟂⏥⌓○∥⌭↗⌯⌖⌒ⓁⓂ⌀oⓅq◎Ⓢ⌰⏤";
    return c >= U'a' && c < U'a' + kSigns.size() ? kSigns[c - U'a'] : c;
}

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
          unit_(form.height),
          state_{look, 0.0}
    {
        form_.align = align;
        beginLine(true);
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
            at_ = takeCharacter(text_, at_, state_.look, letter);
            if (letter >= U' ') add(letter);
        }
    }

    void control(char32_t c)
    {
        if (c == U'{') {
            if (saved_.size() < kMostNesting) saved_.push_back(state_);
        } else if (c == U'}') {
            if (saved_.empty()) return;
            state_ = saved_.back();
            saved_.pop_back();
        } else if (c == U'\n') {
            endLine();
        } else if (c == U'\t') {
            endWord();
            line_.advance = nextStop(line_.indent + line_.advance) - line_.indent;
            line_.words.clear(); // what stands before a tab stays there
        }
    }

    // Behind the stops of the paragraph they are evenly spread.
    double nextStop(double at) const
    {
        constexpr double kRounding = 1e-9;
        for (const double stop : form_.stops)
            if (stop > at * (1.0 + kRounding)) return stop;
        const double step = kTabStop * unit_;
        return (std::floor(at / step + kRounding) + 1.0) * step;
    }

    void code(char32_t c)
    {
        LetterLook& look = state_.look;
        switch (c) {
        case U'P':
        case U'N': endLine(); return; // N: a new column, here a new line
        case U'X': return;
        case U'~': add(U'\x00A0'); return;
        case U'L': look.underline = true; return;
        case U'l': look.underline = false; return;
        case U'O': look.overline = true; return;
        case U'o': look.overline = false; return;
        case U'K': look.strike = true; return;
        case U'k': look.strike = false; return;
        case U'H': scale(look.height); return;
        case U'W': scale(look.widthFactor); return;
        case U'T': scale(look.tracking); return;
        case U'Q':
            look.oblique = std::clamp(number(argument()), -85.0, 85.0) * (std::numbers::pi / 180.0);
            return;
        case U'C':
            look.colour = static_cast<int>(std::clamp(number(argument()), 0.0, 256.0));
            look.trueColour.reset();
            return;
        case U'c': {
            // Blue, green, red from the highest byte down.
            const auto bgr = static_cast<std::int64_t>(std::max(number(argument()), 0.0));
            look.trueColour = (bgr & 255) << 16 | (bgr & 0xFF00) | (bgr >> 16 & 255);
            return;
        }
        case U'S': stack(argument()); return;
        case U'p': paragraphCode(argument()); return;
        case U'A': state_.share = std::clamp(number(argument()), 0.0, 2.0) / 2.0; return;
        case U'F':
        case U'f': font(argument()); return;
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

    // "Arial|b1|i0|c0|p34": of a font only whether it is bold, italic, or full of symbols.
    void font(const std::u32string& name)
    {
        LetterLook& look = state_.look;
        look.bold = name.find(U"|b1") != name.npos;
        look.italic = name.find(U"|i1") != name.npos;
        const std::u32string_view start = std::u32string_view(name).substr(0, 3);
        look.symbols = start == U"gdt" || start == U"GDT";
    }

    // "i-2,l4,r1,t6,12,qc": lengths in heights of the text, "*" for none. Only what is named
    // changes, for the rest of the text.
    void paragraphCode(const std::u32string& text)
    {
        char32_t key = 0;
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t comma = std::min(text.find(U',', at), text.size());
            std::u32string_view item = std::u32string_view(text).substr(at, comma - at);
            at = comma + 1;
            while (!item.empty() && item.front() == U'x') item.remove_prefix(1);
            if (item.empty()) continue;
            const char32_t c = item.front();
            // Further stops of tabs follow without their letter, or with that of their kind.
            const bool continued = (c >= U'0' && c <= U'9') || c == U'.' || c == U'c' ||
                                   c == U'd' || (c == U'r' && key == U't');
            if (!continued) {
                key = c;
                item.remove_prefix(1);
                if (key == U't') form_.stops.clear();
            }
            paragraphItem(key, item);
        }
        std::sort(form_.stops.begin(), form_.stops.end());
        if (line_.pieces.empty() && word_.pieces.empty()) beginLine(true);
    }

    void paragraphItem(char32_t key, std::u32string_view item)
    {
        constexpr std::size_t kMostStops = 100;
        const double length = number(item) * unit_;
        if (key == U'i') form_.first = length;
        else if (key == U'l') form_.left = length;
        else if (key == U'r') form_.right = length;
        else if (key == U't' && length > 0.0 && form_.stops.size() < kMostStops)
            form_.stops.push_back(length);
        else if (key == U'q' && !item.empty()) {
            const char32_t side = item.front();
            form_.justified = side == U'j' || side == U'd';
            if (side == U'c') form_.align = Align::centre;
            else if (side == U'r') form_.align = Align::right;
            else if (side == U'l' || form_.justified) form_.align = Align::left;
        }
    }

    void add(char32_t c)
    {
        const LetterLook& look = state_.look;
        if (look.symbols) c = symbolOf(c);
        const bool blank = c == U' ';
        if (!blank && word_.ended) endWord();
        word_.ended = word_.ended || blank;
        const Boxed* last = word_.pieces.empty() ? nullptr : &word_.pieces.back();
        if (last == nullptr || last->box != look.height || last->share != state_.share ||
            last->piece.y != 0.0 || !(last->piece.look == look))
            word_.pieces.push_back({{{}, look, word_.advance, 0.0}, look.height, state_.share});
        word_.pieces.back().piece.text += c;
        const Glyph& glyph = glyphOf(c);
        if (!blank) word_.width = word_.advance + glyph.width * look.unit();
        word_.advance += advanceOf(glyph) * look.unit() * look.tracking;
        word_.height = std::max(word_.height, look.height);
    }

    // a^b and a/b one above the other, / with a line between; a#b with a slash.
    void stack(const std::u32string& text)
    {
        const std::size_t mark = text.find_first_of(U"^/#");
        if (mark == std::u32string::npos) {
            for (const char32_t c : text) add(c);
            return;
        }
        if (word_.ended) endWord();
        const LetterLook& look = state_.look;
        const double box = (2.0 + kStackGap) * look.height, gap = kLetterGap * look.unit();
        Lettering upper{text.substr(0, mark), look, word_.advance, box - look.height};
        Lettering lower{text.substr(mark + 1), look, word_.advance, 0.0};
        const double up = widthOf(upper), low = widthOf(lower);
        double width = std::max(up, low);
        if (text[mark] == U'#') {
            LetterLook tall = look;
            tall.height *= kSlashHeight;
            tall.widthFactor /= kSlashHeight;
            Lettering slash{U"/", tall, word_.advance + up,
                            (box - kSlashHeight * look.height) / 2.0};
            lower.x += up + widthOf(slash);
            width = lower.x + low - word_.advance;
            word_.pieces.push_back({std::move(slash), box, state_.share});
        } else if (text[mark] == U'/') {
            upper.x += (width - up) / 2.0;
            lower.x += (width - low) / 2.0;
            // The line between belongs to the wider number.
            if (up >= low) upper.look.underline = true;
            else lower.look.overline = true;
        }
        word_.width = word_.advance + width;
        word_.advance = word_.width + gap;
        // Beside letters the line is as high as they are; alone, as one number.
        word_.height = std::max(word_.height, look.height);
        word_.pieces.push_back({std::move(upper), box, state_.share});
        word_.pieces.push_back({std::move(lower), box, state_.share});
    }

    void endWord()
    {
        if (word_.pieces.empty()) return;
        constexpr double kRounding = 1.0 + 1e-9;
        const double room = width_ - line_.indent - line_.right;
        if (width_ > 0.0 && !line_.pieces.empty() &&
            line_.advance + word_.width > room * kRounding) {
            line_.stretched = form_.justified;
            breakLine(false);
        }
        if (!line_.pieces.empty()) line_.words.push_back(line_.pieces.size());
        for (Boxed& boxed : word_.pieces) {
            boxed.piece.x += line_.advance;
            line_.pieces.push_back(std::move(boxed));
        }
        line_.width = std::max(line_.width, line_.advance + word_.width);
        line_.advance += word_.advance;
        line_.height = std::max(line_.height, word_.height);
        word_ = {};
    }

    void endLine()
    {
        endWord();
        breakLine(true);
    }

    void breakLine(bool ofParagraph)
    {
        if (line_.height == 0.0) line_.height = state_.look.height; // nothing stands on it
        lines_.push_back(std::move(line_));
        beginLine(ofParagraph);
    }

    void beginLine(bool ofParagraph)
    {
        line_ = {};
        line_.indent = std::max(form_.left + (ofParagraph ? form_.first : 0.0), 0.0);
        line_.right = std::max(form_.right, 0.0);
        line_.align = form_.align;
    }

    struct State // what braces bring back
    {
        LetterLook look;
        double share = 0.0; // as of Boxed
    };
    std::u32string text_;
    double width_;
    double unit_; // of lengths in codes
    State state_;
    Form form_;
    std::size_t at_ = 0;
    std::vector<State> saved_; // at each open brace
    Word word_;
    Line line_;
    std::vector<Line> lines_;
};

// From the base line of the line before to that of this one.
double stepTo(const Line& line, const drawing::MTextView& text)
{
    const double spacing = text.lineSpacing > 0.0 ? text.lineSpacing : 1.0;
    return kLineStep * spacing * (text.exactSpacing ? text.height : line.height);
}

} // namespace

Paragraphs paragraphs(const drawing::MTextView& text, const LetterLook& look)
{
    const int attachment = std::clamp(text.attachment, 1, 9) - 1;
    const auto column = static_cast<Align>(attachment % 3);
    std::vector<Line> lines = Reader(text, look, column).lines();

    double width = 0.0, depth = 0.0; // depth: from the first base line to the last
    for (std::size_t i = 0; i < lines.size(); ++i) {
        width = std::max(width, lines[i].indent + lines[i].width + lines[i].right);
        if (i > 0) depth += stepTo(lines[i], text);
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
        if (i > 0) y -= stepTo(line, text);
        const double spare = width - line.indent - line.right - line.width;
        const bool stretched = line.stretched && !line.words.empty() && spare > 0.0;
        const double x = out.left + line.indent +
                         (line.align == Align::left     ? 0.0
                          : line.align == Align::centre ? spare / 2.0
                                                        : spare);
        std::size_t gaps = 0; // before the piece
        for (std::size_t k = 0; k < line.pieces.size(); ++k) {
            Boxed& boxed = line.pieces[k];
            if (gaps < line.words.size() && line.words[gaps] == k) ++gaps;
            if (stretched) boxed.piece.x += spare * double(gaps) / double(line.words.size());
            boxed.piece.x += x;
            boxed.piece.y += y + (line.height - boxed.box) * boxed.share;
            out.pieces.push_back(std::move(boxed.piece));
        }
    }
    return out;
}

} // namespace orvald::picture
