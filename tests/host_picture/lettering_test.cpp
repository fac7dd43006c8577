// SPDX-License-Identifier: LicenseRef-ORVALD
// The lettering's forms and the layout of texts.
#include "lettering.h"
#include "stroke_font.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>

namespace orvald::picture {
namespace {

std::string shapeOf(const Path& path)
{
    std::string out;
    for (const Path::Piece& piece : path.pieces())
        out += std::to_string(int(piece.step)) + ' ' + std::to_string(piece.to.x) + ' ' +
               std::to_string(piece.to.y) + ' ' + std::to_string(piece.arc.centre.x) + ';';
    return out;
}

TEST(StrokeFont, EveryCharacterStandsInItsBoxAndIsUnlikeTheOthers)
{
    const Glyph& box = glyphOf(U'\x4E2D');
    EXPECT_FALSE(box.path.empty());
    std::map<std::string, char32_t> shapes;
    for (const char32_t c : knownCharacters()) {
        SCOPED_TRACE(std::uint32_t(c));
        const Glyph& glyph = glyphOf(c);
        EXPECT_NE(&glyph, &box);
        if (c == U' ' || c == U'\xA0' || c == U'\x2009' || c == U'\x202F') {
            EXPECT_TRUE(glyph.path.empty());
            continue;
        }
        const Bounds bounds = glyph.path.bounds();
        ASSERT_FALSE(bounds.empty);
        EXPECT_NEAR(bounds.left, 0.0, c == U'1' || c == U'²' || c == U'Q' ? 2.0 : 1.01);
        EXPECT_NEAR(bounds.right, glyph.width, c == U'1' ? 4.0 : 1.01);
        EXPECT_GE(bounds.bottom, kDescent - 0.01);
        EXPECT_LE(bounds.top, kCapHeight + 6.6);
        // ASCII and the letters of German each have a form of their own.
        const std::u32string_view german = U"ÄÖÜäöüß°⌀±²³×€";
        if (c < 127 || german.find(c) != german.npos) {
            EXPECT_TRUE(shapes.emplace(shapeOf(glyph.path), c).second);
        }
    }
    for (char32_t c = 32; c < 127; ++c) EXPECT_NE(&glyphOf(c), &box) << std::uint32_t(c);
    for (const char32_t c : std::u32string_view(U"ÄÖÜäöüß°⌀±²³×·€–"))
        EXPECT_NE(&glyphOf(c), &box) << std::uint32_t(c);
}

TEST(StrokeFont, CurvesOfAStrokeJoinWithoutAKink)
{
    // The quarters of a round letter: each begins in the direction in which the one before ended.
    for (const char32_t c : std::u32string_view(U"oO0CSse8°§")) {
        const std::vector<Path::Piece>& pieces = glyphOf(c).path.pieces();
        for (std::size_t i = 1; i < pieces.size(); ++i) {
            if (pieces[i].step != Path::Step::arc || pieces[i - 1].step != Path::Step::arc)
                continue;
            const Vec before = Vec{} - pieces[i - 1].arc.u; // direction at the end, a quarter on
            EXPECT_NEAR(cross(before, pieces[i].arc.v), 0.0, 1e-9) << std::uint32_t(c);
            EXPECT_GT(dot(before, pieces[i].arc.v), 0.0) << std::uint32_t(c);
        }
    }
}

std::string ascii(std::u32string_view text)
{
    std::string out;
    for (const char32_t c : text)
        out += c < 128 ? std::string(1, char(c)) : '<' + std::to_string(std::uint32_t(c)) + '>';
    return out;
}

// Pieces as text, lines under, over and through as _ ^ - in front.
std::string described(const std::vector<Lettering>& pieces)
{
    std::string out;
    for (const Lettering& piece : pieces) {
        if (!out.empty()) out += '|';
        if (piece.look.underline) out += '_';
        if (piece.look.overline) out += '^';
        if (piece.look.strike) out += '-';
        out += ascii(piece.text);
    }
    return out;
}

TEST(SingleLine, PercentFormsBecomeWhatTheyMean)
{
    const std::pair<const char*, const char*> cases[] = {
        {"45%%d %%p1 %%C8", "45<176> <177>1 <8960>8"},
        {"a%%ub%%uc%%od", "a|_b|c|^d"},
        {"100%%% 50% 5%%", "100% 50% 5%%"},
        {"%%065%%66x%%9991", "ABx<999>1"},
        {"%%z %", "%%z %"},
        {"\xC3\xA4\xED\xA0\x80 \x01x", "<228><65533> x"},
        {"", ""},
    };
    for (const auto& [text, expected] : cases) EXPECT_EQ(described(singleLine(text, {})), expected);
}

TEST(SingleLine, PiecesFollowEachOtherAsOneWould)
{
    LetterLook look;
    look.height = 7.0;
    look.widthFactor = 0.8;
    const double whole = lineWidth(singleLine("Blech t=3", look));
    EXPECT_NEAR(lineWidth(singleLine("Bl%%uech%%u t%%o=3", look)), whole, 1e-12);
    look.widthFactor = 1.6;
    EXPECT_NEAR(lineWidth(singleLine("Blech t=3", look)), 2.0 * whole, 1e-12);
}

drawing::MTextView mtext(const char* text, double width = 0.0, int attachment = 1)
{
    drawing::MTextView view;
    view.text = text;
    view.height = 10.0;
    view.width = width;
    view.attachment = attachment;
    return view;
}
Paragraphs laid(const drawing::MTextView& view)
{
    LetterLook look;
    look.height = view.height;
    return paragraphs(view, look);
}

TEST(Paragraphs, FormatCodes)
{
    const std::pair<const char*, const char*> cases[] = {
        {"a\\Pb\nc", "a|b|c"},
        {"\\La\\lb\\Oc\\od\\Ke\\k", "_a|b|^c|d|-e"},
        {"x{\\Ly{\\Oz}w}v", "x|_y|_^z|_w|v"},
        {"\\\\ \\{\\}\\~t", "\\ |{}<160>t"},
        {"\\fArial|b1|i0;x\\FTxt;y\\A1;z", "x|y|z"},
        {"{\\Fgdt;jm}j", "<8982><9410>|j"},
        {"45%%d \\Slow", "45<176> |low"},
        {"\\S1/2; \\S+1^-1;\\S1#2;", "_1|2| |+1|-1|/|1|2"},
        {"\\S1/23;", "1|^23"},
        {"unknown \\y}} {{{", "unknown |y "}, // what is left open or closed too often harms nothing
        {"\\H", ""},
        {"\\", "\\"},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(described(laid(mtext(text)).pieces), expected);
    }
}

TEST(Paragraphs, HeightsWidthsAndColours)
{
    const std::vector<Lettering> pieces =
        laid(mtext("{\\H2x;a}{\\H3;\\W.5;b}{\\Q30;\\T2;c}{\\C1;d}{\\c255;e}{\\H-1;\\W0;f}")).pieces;
    ASSERT_EQ(pieces.size(), 6u);
    EXPECT_EQ(pieces[0].look.height, 20.0);
    EXPECT_EQ(pieces[1].look.height, 3.0);
    EXPECT_EQ(pieces[1].look.widthFactor, 0.5);
    EXPECT_NEAR(pieces[2].look.oblique, 0.5236, 1e-4);
    EXPECT_EQ(pieces[2].look.tracking, 2.0);
    EXPECT_EQ(pieces[3].look.colour, 1);
    EXPECT_EQ(pieces[4].look.trueColour, 0xFF0000) << "files hold blue, green, red";
    EXPECT_EQ(pieces[5].look.height, 10.0) << "values that no letter can have change nothing";
    EXPECT_EQ(pieces[5].look.widthFactor, 1.0);
}

TEST(Paragraphs, LinesBreakAtBlanksAndStayWithinTheWidth)
{
    const char* text = "Alle Kanten entgraten und alle Schnittflaechen reinigen";
    for (double width = 80.0; width < 400.0; width += 7.0) {
        const Paragraphs out = laid(mtext(text, width));
        std::string joined;
        for (const Lettering& piece : out.pieces) {
            joined += ascii(piece.text);
            std::u32string drawn = piece.text;
            while (!drawn.empty() && drawn.back() == U' ') drawn.pop_back();
            const double end = piece.x + widthOf({drawn, piece.look, 0.0, 0.0});
            if (piece.x > 0.0) { // a long word may stand alone
                EXPECT_LE(end, width + 1e-6) << width;
            }
        }
        EXPECT_EQ(joined, text);
        EXPECT_EQ(out.right - out.left, width);
    }
    EXPECT_EQ(laid(mtext(text, 0.0)).pieces.back().y, -10.0) << "no width: one line";
}

TEST(Paragraphs, IndentsStopsAndSidesOfParagraphs)
{
    // Lengths in codes count in heights of the text, which is 10 here.
    const std::vector<Lettering> hanging =
        laid(mtext("\\pi-3,l4,t8,12;1.\tHang Hang\\Pb\tc", 125.0)).pieces;
    ASSERT_EQ(hanging.size(), 5u);
    const double expected[] = {10.0, 80.0, 40.0, 10.0, 80.0};
    for (std::size_t i = 0; i < 5; ++i) EXPECT_NEAR(hanging[i].x, expected[i], 1e-9) << i;
    // From here on right, two heights off the border; then as at first, with stops every four.
    const Paragraphs sides = laid(mtext("\\pqr,r2;abc\\P\\pi0,l0,r0,ql,t*;d\te", 200.0));
    ASSERT_EQ(sides.pieces.size(), 3u);
    EXPECT_NEAR(sides.pieces[0].x + widthOf(sides.pieces[0]), 180.0, 1e-9);
    EXPECT_EQ(sides.pieces[1].x, 0.0);
    EXPECT_NEAR(sides.pieces[2].x, 40.0, 1e-9);
}

TEST(Paragraphs, JustifiedLinesReachBothBordersButTheLast)
{
    const Paragraphs out =
        laid(mtext("\\pqj;Alle Kanten gut entgraten und alle Flaechen fein reinigen", 150.0));
    std::map<double, std::pair<double, double>, std::greater<>> lines; // by height: from, to
    for (const Lettering& piece : out.pieces) {
        std::u32string drawn = piece.text;
        while (!drawn.empty() && drawn.back() == U' ') drawn.pop_back();
        const double end = piece.x + widthOf({drawn, piece.look, 0.0, 0.0});
        const auto [line, isNew] = lines.try_emplace(piece.y, piece.x, end);
        line->second.second = std::max(line->second.second, end);
    }
    ASSERT_GE(lines.size(), 3u);
    std::size_t number = 0;
    for (const auto& [y, reach] : lines) {
        EXPECT_NEAR(reach.first, 0.0, 1e-9);
        if (++number < lines.size()) {
            EXPECT_NEAR(reach.second, 150.0, 1e-9) << number;
        } else {
            EXPECT_LT(reach.second, 149.0);
        }
    }
}

TEST(Paragraphs, FractionsStandHangOrAreCentredAsAsked)
{
    // Box of a fraction of half height beside letters from 0 to 10.
    const auto box = [](const char* text) {
        const Paragraphs out = laid(mtext(text));
        const Lettering &upper = out.pieces[1], &lower = out.pieces[2];
        return std::pair(lower.y - out.bottom, upper.y + upper.look.height - out.bottom);
    };
    const auto [low, top] = box("x{\\H.5x;\\S1/2;}");
    EXPECT_EQ(low, 0.0);
    EXPECT_GT(top, 11.0);
    const auto [lowCentred, topCentred] = box("\\A1;x{\\H.5x;\\S1/2;}");
    EXPECT_NEAR(lowCentred + topCentred, 10.0, 1e-9);
    EXPECT_NEAR(topCentred - lowCentred, top - low, 1e-9);
    EXPECT_NEAR(box("\\A2;x{\\H.5x;\\S1/2;}").second, 10.0, 1e-9);
}

TEST(Paragraphs, LinesAreSetOffByWhatStandsOnThemUnlessExact)
{
    drawing::MTextView view = mtext("a\\P{\\H3x;b}\\Pc");
    EXPECT_NEAR(laid(view).pieces[1].y, -10.0 - 50.0, 1e-9);
    view.exactSpacing = true;
    view.lineSpacing = 1.5;
    const Paragraphs exact = laid(view);
    EXPECT_NEAR(exact.pieces[1].y, -10.0 - 25.0, 1e-9);
    EXPECT_NEAR(exact.pieces[2].y, -10.0 - 50.0, 1e-9);
}

TEST(Paragraphs, AttachmentPlacesTheBlock)
{
    const char* text = "Zeile eins\\PZwei";
    const Paragraphs topLeft = laid(mtext(text));
    const double width = topLeft.right, height = -topLeft.bottom;
    EXPECT_NEAR(height, 10.0 + 10.0 * 5.0 / 3.0, 1e-9);
    for (int attachment = 1; attachment <= 9; ++attachment) {
        const Paragraphs out = laid(mtext(text, 0.0, attachment));
        const int column = (attachment - 1) % 3, row = (attachment - 1) / 3;
        EXPECT_NEAR(out.left, -width * column / 2.0, 1e-9);
        EXPECT_NEAR(out.top, height * row / 2.0, 1e-9);
        // The short line stands left, in the middle or right of the long one.
        const double spare = width - widthOf(out.pieces.back());
        EXPECT_NEAR(out.pieces.back().x - out.left, spare * column / 2.0, 1e-9);
        EXPECT_NEAR(out.pieces.back().y, out.bottom, 1e-9);
    }
}

} // namespace
} // namespace orvald::picture
