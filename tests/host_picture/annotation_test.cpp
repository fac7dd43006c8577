// SPDX-License-Identifier: LicenseRef-ORVALD
// Dimensions without a block, leaders, frames of tolerances, parallel lines.
#include "sheet.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

namespace orvald::picture {
namespace {

using namespace test;

// At least a third of a colour whose channels are full or nothing, the rest white.
bool isShade(std::uint32_t pixel, std::uint32_t colour)
{
    for (const int shift : {0, 8, 16}) {
        const std::uint32_t part = pixel >> shift & 255;
        if ((colour >> shift & 255) != 0 ? part != 255 : part > 170) return false;
    }
    return true;
}
// The box of all pixels of a colour, the last ones included.
struct InkBox
{
    int left = 1000, bottom = 1000, right = -1, top = -1;
};
InkBox boxOf(const Picture& picture, int width, int height, std::uint32_t colour)
{
    InkBox box;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            if (!isShade(picture.at(x, y), colour)) continue;
            box.left = std::min(box.left, x), box.right = std::max(box.right, x);
            box.bottom = std::min(box.bottom, y), box.top = std::max(box.top, y);
        }
    }
    return box;
}

// A style for parts in three colours: lines red, extension lines green, letters blue.
void colourParts(Sheet& sheet)
{
    Drawing& drawing = sheet.drawing();
    const Index style = drawing.findRecord(drawing::TableId::dimstyle, "Standard");
    TagList& tags = drawing.edit(style).tags;
    for (const Group& group : Groups{{40, 1.0},
                                     {41, 6.0},
                                     {42, 2.0},
                                     {44, 3.0},
                                     {140, 10.0},
                                     {147, 2.0},
                                     {144, 1.0},
                                     {142, 0.0},
                                     {176, 1},
                                     {177, 3},
                                     {178, 5},
                                     {271, 1},
                                     {78, 8}}) {
        while (tags.has(group.code)) tags.erase(tags.find(group.code));
        addGroup(tags, group);
    }
}

TEST(Dimension, WithoutABlockIsDrawnFromItsPoints)
{
    Sheet sheet;
    colourParts(sheet);
    sheet.add(Kind::dimension, {{70, 0},
                                {10, Point{0, 80.5, 0}},
                                {13, Point{20.5, 20, 0}},
                                {14, Point{120.5, 40, 0}},
                                {50, 0.0}});
    const Picture picture(sheet, 150, 120);
    const InkBox lines = boxOf(picture, 150, 120, kRed);
    EXPECT_NEAR(lines.left, 20, 1);
    EXPECT_NEAR(lines.right, 120, 1);
    EXPECT_NEAR(lines.bottom + lines.top, 160, 1) << "arrows lie on it";
    EXPECT_EQ(picture.at(20, 25), kGreen);
    EXPECT_EQ(picture.at(20, 20), kWhite) << "off the point";
    EXPECT_EQ(picture.at(20, 82), kGreen) << "and beyond the line";
    EXPECT_EQ(picture.at(120, 39), kWhite);
    const InkBox text = boxOf(picture, 150, 120, kBlue);
    EXPECT_NEAR(text.bottom, 83, 1.5) << "a gap above the line";
    EXPECT_NEAR(text.top, 93, 1.5);
    EXPECT_NEAR((text.left + text.right) / 2.0, 70, 2);

    // The same turned by a quarter: what ran up now runs left.
    Sheet turned;
    colourParts(turned);
    turned.add(Kind::dimension, {{70, 0},
                                 {10, Point{40.5, 0, 0}},
                                 {13, Point{100, 20.5, 0}},
                                 {14, Point{80, 120.5, 0}},
                                 {50, 90.0}});
    const Picture left(turned, 120, 150);
    int different = 0; // ends of lines fall between other pixels
    for (int y = 15; y < 120; ++y)
        for (int x = 15; x < 150; ++x)
            different += (picture.at(x, y) == kWhite) != (left.at(120 - y, x) == kWhite) ? 1 : 0;
    EXPECT_LE(different, 10);
}

TEST(Dimension, SaysItsMeasureOrWhatTheUserWants)
{
    // Pixels of the text tell it apart from others; the same text is the same pixels.
    const auto inked = [](const Groups& more) {
        Sheet sheet;
        colourParts(sheet);
        Groups groups{
            {70, 1 + 32}, {10, Point{0, 50, 0}}, {13, Point{20, 20, 0}}, {14, Point{120, 20, 0}}};
        groups.insert(groups.end(), more.begin(), more.end());
        sheet.add(Kind::dimension, groups);
        return Picture(sheet, 150, 120).count(kBlue);
    };
    EXPECT_EQ(inked({}), inked({{1, "100"}})) << "zeros behind the point are dropped";
    EXPECT_EQ(inked({{1, "<> mm"}}), inked({{1, "100 mm"}}));
    EXPECT_NE(inked({}), inked({{1, "<> mm"}}));
    EXPECT_EQ(inked({{1, " "}}), 0);
}

TEST(Dimension, OfAnAngleShowsTheSectorThatItsArcPasses)
{
    const auto reach = [](Point arc) {
        Sheet sheet;
        colourParts(sheet);
        sheet.add(Kind::dimension, {{70, 2},
                                    {13, Point{100, 100, 0}},
                                    {14, Point{110, 100, 0}},
                                    {15, Point{100, 100, 0}},
                                    {10, Point{100, 110, 0}},
                                    {16, arc}});
        return boxOf(Picture(sheet, 200, 200), 200, 200, kRed);
    };
    const InkBox upperRight = reach({140, 130, 0}), lowerLeft = reach({60, 70, 0});
    EXPECT_GE(upperRight.left, 99);
    EXPECT_GE(upperRight.bottom, 99);
    EXPECT_NEAR(upperRight.right, 150, 1);
    EXPECT_LE(lowerLeft.right, 101);
    EXPECT_LE(lowerLeft.top, 101);
    EXPECT_NEAR(lowerLeft.left, 50, 1);
}

TEST(MultiLeader, HasArrowsLinesLandingAndText)
{
    Sheet sheet;
    const auto leader = [&](const Groups& content) {
        Groups groups{{300, "CONTEXT_DATA{"}, {41, 10.0}, {140, 8.0}};
        groups.insert(groups.end(), content.begin(), content.end());
        for (const Group& g : Groups{{302, "LEADER{"},
                                     {290, 1},
                                     {291, 1},
                                     {10, Point{60, 50.5, 0}},
                                     {11, Point{1, 0, 0}},
                                     {40, 20.0},
                                     {304, "LEADER_LINE{"},
                                     {10, Point{10, 50.5, 0}},
                                     {305, "}"},
                                     {303, "}"},
                                     {301, "}"},
                                     {91, -1023410175}, // red by number
                                     {170, 1},
                                     {291, 1}})
            groups.push_back(g);
        return groups;
    };
    const Index index = sheet.addNamed("MULTILEADER",
                                       leader({{290, 1},
                                               {304, "HH"},
                                               {12, Point{90, 55, 0}},
                                               {13, Point{1, 0, 0}},
                                               {90, -1056964608}, // by block: the leader's own
                                               {171, 1}}),
                                       {{62, 5}});
    const Picture picture(sheet, 150, 100);
    const InkBox line = boxOf(picture, 150, 100, kRed), text = boxOf(picture, 150, 100, kBlue);
    EXPECT_NEAR(line.right, 80, 1) << "to the end of the landing";
    EXPECT_NEAR(line.left, 11, 2);
    EXPECT_NEAR(line.top - line.bottom, 8.0 / 3.0, 2) << "the arrow's back";
    EXPECT_NEAR(text.left, 90, 1);
    EXPECT_NEAR(text.bottom, 45, 1);
    EXPECT_NEAR(text.top, 55, 1);
    sheet.drawing().setErased(index, true);

    // A block instead of the text, with the text of its attribute.
    Drawing& drawing = sheet.drawing();
    const Index bubble = drawing.addBlock("BLASE");
    sheet.box(bubble, 0, 0, 10, 1, {{62, 0}});
    const Index tag =
        sheet.addTo(bubble, Kind::attdef,
                    {{10, Point{0, 5, 0}}, {40, 10.0}, {1, "?"}, {2, "NR"}, {70, 0}}, {{62, 0}});
    const Index second = sheet.addNamed(
        "MULTILEADER",
        leader({{290, 0}, {296, 1}, {15, Point{90, 20, 0}}, {16, Point{2, 2, 2}}, {46, 0.0}}),
        {{62, 5}});
    EXPECT_EQ(Picture(sheet, 150, 100).count(kBlue), 0) << "no block";
    TagList& tags = drawing.edit(second).tags;
    TagList block;
    block.addHandle(341, drawing.at(bubble).handle);
    tags.insert(std::next(tags.find(300)), block);
    tags.addHandle(330, drawing.at(tag).handle);
    tags.addText(302, "HHH");
    const Picture shown(sheet, 150, 100);
    EXPECT_EQ(shown.at(95, 21), kBlue);
    const InkBox letters = boxOf(shown, 150, 100, kBlue);
    EXPECT_NEAR(letters.top, 50, 1.5);
    EXPECT_GT(letters.right, 130) << "three letters, twice as large";
}

TEST(Tolerance, FramesItsCells)
{
    const auto rows = [](const char* text) {
        Sheet sheet;
        colourParts(sheet);
        sheet.add(Kind::tolerance, {{1, text}, {10, Point{10.5, 60.5, 0}}, {11, Point{1, 0, 0}}});
        const Picture picture(sheet, 200, 100);
        std::vector<int> crossings; // of frame lines, through the first and the second row
        for (const int y : {52, 32}) {
            int count = 0;
            for (int x = 0; x < 200; ++x) count += picture.at(x, y) == kRed ? 1 : 0;
            crossings.push_back(count);
        }
        return crossings;
    };
    EXPECT_EQ(rows("{\\Fgdt;j}%%v0.1"), (std::vector{3, 0}));
    EXPECT_EQ(rows("A%%v%%vB%%vC^JD"), (std::vector{4, 2})) << "empty cells are left out";
}

TEST(ParallelLines, RunWhereTheirVerticesSay)
{
    Sheet sheet;
    Drawing& drawing = sheet.drawing();
    drawing::Record style(Kind::mlineStyle, drawing::Family::object);
    for (const Group& g :
         Groups{{100, "AcDbMlineStyle"},
                {2, "WAND"},
                {70, 1 | 16 | 1024}, // filled, a line at the start, round at the end
                {62, 2},
                {71, 2},
                {49, 10.0},
                {62, 1},
                {6, "BYLAYER"},
                {49, -10.0},
                {62, 5},
                {6, "BYLAYER"}})
        addGroup(style.tags, g);
    const Index index = drawing.add(std::move(style));
    ASSERT_TRUE(drawing.addToDictionary(
        drawing.dictionaryEntry(drawing.rootDictionary(), "ACAD_MLINESTYLE"), "WAND", index));
    Groups groups{{2, "WAND"},           {40, 1.0}, {70, 1}, {71, 1}, {72, 2}, {73, 2},
                  {10, Point{20, 50, 0}}};
    for (const Point vertex : {Point{20.5, 50.5, 0}, Point{100.5, 50.5, 0}}) {
        for (const Group& g : Groups{{11, vertex}, {12, Point{1, 0, 0}}, {13, Point{0, 1, 0}}})
            groups.push_back(g);
        // The upper line is cut from 30 to 50 along it.
        for (const Group& g : Groups{{74, 4},
                                     {41, 10.0},
                                     {41, 0.0},
                                     {41, 30.0},
                                     {41, 50.0},
                                     {75, 0},
                                     {74, 2},
                                     {41, -10.0},
                                     {41, 0.0},
                                     {75, 0}})
            groups.push_back(g);
    }
    sheet.add(Kind::mline, groups);
    const Picture picture(sheet, 150, 100);
    EXPECT_EQ(picture.at(30, 60), kRed);
    EXPECT_EQ(picture.at(60, 58), kYellow) << "cut";
    EXPECT_EQ(picture.at(80, 60), kRed);
    EXPECT_EQ(picture.at(60, 40), kBlue);
    EXPECT_EQ(picture.at(60, 50), kYellow);
    EXPECT_EQ(picture.at(20, 55), kRed) << "each half of a cap is the nearer line's";
    EXPECT_EQ(picture.at(20, 45), kBlue);
    EXPECT_EQ(picture.at(105, 50), kYellow) << "a round end is filled too";
    EXPECT_EQ(picture.at(113, 50), kWhite);
}

} // namespace
} // namespace orvald::picture
