// SPDX-License-Identifier: LicenseRef-ORVALD
// Colours, layers, blocks: who decides how an entity looks, and whether it is seen.
#include "colour.h"
#include "sheet.h"

#include <gtest/gtest.h>

namespace orvald::picture {
namespace {

using namespace test;

TEST(Colours, FollowTheNumberedScheme)
{
    const auto light = [](int number) {
        const Colour c = numberedColour(number, Background::light);
        return std::uint32_t(c.red << 16 | c.green << 8 | c.blue);
    };
    const std::pair<int, std::uint32_t> cases[] = {
        {1, 0xFF0000},   {2, 0xFFFF00},   {5, 0x0000FF},   {7, 0x000000},   {8, 0x808080},
        {10, 0xFF0000},  {11, 0xFF7F7F},  {12, 0xA50000},  {19, 0x261313},  {20, 0xFF3F00},
        {30, 0xFF7F00},  {50, 0xFFFF00},  {90, 0x00FF00},  {141, 0x7FDFFF}, {170, 0x0000FF},
        {210, 0xFF00FF}, {240, 0xFF003F}, {250, 0x333333}, {255, 0xFFFFFF}, {0, 0x000000},
        {999, 0x000000},
    };
    for (const auto& [number, rgb] : cases) EXPECT_EQ(light(number), rgb) << number;
    EXPECT_EQ(numberedColour(7, Background::dark), (Colour{255, 255, 255}));
}

TEST(Looks, ColourComesFromEntityLayerOrBlock)
{
    Sheet sheet;
    sheet.layer("ROT", {{62, 1}});
    sheet.layer("ECHT", {{62, 1}, {420, 0x123456}});
    const Index block = sheet.drawing().addBlock("FARBEN");
    sheet.box(block, 0, 0, 10, 10, {{8, "0"}});           // the insert's layer
    sheet.box(block, 10, 0, 20, 10, {{8, "ROT"}});        // its own layer
    sheet.box(block, 20, 0, 30, 10, {{8, "0"}, {62, 0}}); // the insert's colour
    sheet.box(block, 30, 0, 40, 10, {{62, 4}, {420, 0x102030}});
    sheet.add(Kind::insert, {{2, "FARBEN"}, {10, Point{0, 0, 0}}}, {{8, "ECHT"}, {62, 3}});
    sheet.box(0, 20, 10, 30, {{8, "rot"}}); // names compare without case
    sheet.box(10, 20, 20, 30, {{8, "nie angelegt"}});
    sheet.box(20, 20, 30, 30, {{62, 0}});
    sheet.box(30, 20, 40, 30, {{62, 1}, {440, 0x0200007F}}); // half transparent
    const Picture picture(sheet, 50, 40);
    EXPECT_EQ(picture.at(5, 5), 0x123456u);
    EXPECT_EQ(picture.at(15, 5), kRed);
    EXPECT_EQ(picture.at(25, 5), kGreen);
    EXPECT_EQ(picture.at(35, 5), 0x102030u);
    EXPECT_EQ(picture.at(5, 25), kRed);
    EXPECT_EQ(picture.at(15, 25), kBlack);
    EXPECT_EQ(picture.at(25, 25), kBlack);
    EXPECT_EQ(picture.at(35, 25), 0xFF8080u);
    EXPECT_EQ(picture.at(45, 35), kWhite);
}

TEST(Looks, OpacityComesFromEntityLayerOrBlock)
{
    Sheet sheet;
    sheet.layer("GLAS", {{62, 1}});
    Drawing& drawing = sheet.drawing();
    TagList& xdata =
        drawing.edit(drawing.findRecord(drawing::TableId::layer, "GLAS")).needExtras().xdata;
    xdata.addText(1001, "AcCmTransparency");
    xdata.addInteger(1071, 0x0200007F);
    const Index block = drawing.addBlock("FENSTER");
    sheet.box(block, 0, 0, 10, 10, {{8, "GLAS"}});
    sheet.box(block, 10, 0, 20, 10, {{62, 1}, {440, 0x01000000}});
    sheet.box(block, 20, 0, 30, 10, {{62, 1}});
    sheet.box(block, 30, 0, 40, 10, {{8, "GLAS"}, {440, 0x020000FF}});
    sheet.add(Kind::insert, {{2, "FENSTER"}, {10, Point{0, 0, 0}}}, {{440, 0x0200007F}});
    sheet.box(0, 10, 10, 20, {{8, "GLAS"}, {62, 5}});
    const Picture picture(sheet, 40, 20);
    EXPECT_EQ(picture.at(5, 5), 0xFF8080u);
    EXPECT_EQ(picture.at(15, 5), 0xFF8080u) << "by block";
    EXPECT_EQ(picture.at(25, 5), kRed);
    EXPECT_EQ(picture.at(35, 5), kRed) << "its own";
    EXPECT_EQ(picture.at(5, 15), 0x8080FFu);
}

TEST(Looks, HiddenEntitiesAreNotDrawn)
{
    Sheet sheet;
    sheet.layer("AUS", {{62, -1}});
    sheet.layer("FROST", {{70, 1}});
    sheet.layer("AN", {{62, 5}});
    const Index block = sheet.drawing().addBlock("B");
    sheet.box(block, 0, 0, 10, 10, {{8, "0"}});
    sheet.box(block, 10, 0, 20, 10, {{8, "AN"}});
    const auto insert = [&](double y, const Groups& common) {
        sheet.add(Kind::insert, {{2, "B"}, {10, Point{0, y, 0}}}, common);
    };
    insert(0, {{8, "AUS"}});          // hides what follows its layer
    insert(20, {{8, "FROST"}});       // hides everything
    insert(40, {{8, "AN"}, {60, 1}}); // invisible itself
    insert(60, {{8, "AN"}});
    sheet.box(30, 0, 40, 10, {{8, "AUS"}});
    sheet.box(30, 20, 40, 30, {{8, "FROST"}});
    sheet.drawing().setErased(sheet.box(30, 40, 40, 50, {{8, "AN"}}), true);
    const Picture picture(sheet, 50, 80);
    EXPECT_EQ(picture.at(5, 5), kWhite);
    EXPECT_EQ(picture.at(15, 5), kBlue);
    EXPECT_EQ(picture.at(5, 65), kBlue);
    EXPECT_EQ(picture.inked(), 300);
}

TEST(Looks, TheTableOfTheDrawOrderSaysWhatCovers)
{
    Sheet sheet;
    Drawing& drawing = sheet.drawing();
    const Index red = sheet.box(0, 0, 20, 20, {{62, 1}}), blue = sheet.box(0, 0, 20, 20, {{62, 5}});
    EXPECT_EQ(Picture(sheet, 20, 20).at(5, 5), kBlue);
    drawing::Record table("SORTENTSTABLE", drawing::Family::object);
    table.tags.addHandle(331, drawing.at(red).handle);
    table.tags.addHandle(5, drawing.at(blue).handle + 1);
    drawing.addToDictionary(drawing.needExtensionDictionary(drawing.modelSpace()), "ACAD_SORTENTS",
                            drawing.add(std::move(table)));
    EXPECT_EQ(Picture(sheet, 20, 20).at(5, 5), kRed);
}

TEST(Looks, LineWeightsAreThoseOfAnA3Sheet)
{
    Sheet sheet;
    sheet.layer("DICK", {{370, 100}});
    sheet.line({10, 100, 0}, {390, 100, 0}, {{370, 211}});
    sheet.line({10, 200, 0}, {390, 200, 0}, {{8, "DICK"}});
    sheet.line({10, 300, 0}, {390, 300, 0});
    const auto thickness = [](const Picture& picture, int y) {
        int count = 0;
        for (int d = -20; d <= 20; ++d) count += picture.at(200, y + d) != kWhite ? 1 : 0;
        return count;
    };
    Options options;
    const Picture picture(sheet, 840, 400, options); // two pixels a millimetre
    EXPECT_NEAR(thickness(picture, 100), 4.22, 0.8);
    EXPECT_EQ(thickness(picture, 200), 2);
    EXPECT_EQ(thickness(picture, 300), 1) << "never thinner than a pixel";
    options.lineWeights = false;
    EXPECT_EQ(thickness(Picture(sheet, 840, 400, options), 100), 1);
}

TEST(Looks, LineTypesLeaveTheirGaps)
{
    Sheet sheet;
    const char* name = "STRICH";
    drawing::Record type(Kind::ltype, drawing::Family::tableRecord);
    for (const Group& group : Groups{{100, "AcDbSymbolTableRecord"},
                                     {100, "AcDbLinetypeTableRecord"},
                                     {2, name},
                                     {70, 0},
                                     {3, ""},
                                     {72, 65},
                                     {73, 2},
                                     {40, 2.0},
                                     {49, 1.5},
                                     {74, 0},
                                     {49, -0.5},
                                     {74, 0}})
        addGroup(type.tags, group);
    Drawing& drawing = sheet.drawing();
    ASSERT_TRUE(drawing.appendRecord(drawing::TableId::ltype, drawing.add(std::move(type))));
    drawing.header.setReal("$LTSCALE", 40, 5.0);
    sheet.layer("GESTRICHELT", {{6, name}});
    sheet.line({0, 10, 0}, {200, 10, 0}, {{6, name}});
    sheet.line({0, 20, 0}, {200, 20, 0}, {{8, "GESTRICHELT"}, {48, 2.0}});
    sheet.line({0, 30, 0}, {200, 30, 0}, {{8, "GESTRICHELT"}, {6, "Continuous"}});
    const Picture picture(sheet, 200, 40);
    const auto drawn = [&](int y) {
        int count = 0;
        for (int x = 0; x < 200; ++x) count += picture.at(x, y) < 0x808080 ? 1 : 0;
        return count;
    };
    // Level lines are moved to the nearest row of pixels.
    EXPECT_NEAR(std::max(drawn(9), drawn(10)), 150, 12);
    EXPECT_NEAR(std::max(drawn(19), drawn(20)), 150, 12);
    EXPECT_EQ(std::max(drawn(29), drawn(30)), 200);
}

TEST(Looks, LineTypesMayHoldTextsAndSigns)
{
    Sheet sheet;
    Drawing& drawing = sheet.drawing();
    drawing::Record font(Kind::style, drawing::Family::tableRecord);
    for (const Group& group : Groups{{2, ""}, {70, 1}, {40, 0.0}, {3, "ltypeshp.shx"}})
        addGroup(font.tags, group);
    const Index signs = drawing.add(std::move(font));
    const Index letters = drawing.findRecord(drawing::TableId::style, "Standard");
    ASSERT_TRUE(drawing.appendRecord(drawing::TableId::style, signs));
    const auto lineType = [&](const char* name, const Groups& mark, Index style) {
        drawing::Record type(Kind::ltype, drawing::Family::tableRecord);
        for (const Group& g : Groups{{2, name}, {70, 0}, {73, 3}, {49, 30.0}, {74, 0}, {49, -10.0}})
            addGroup(type.tags, g);
        addGroup(type.tags, mark[0]);
        addGroup(type.tags, {75, 132}); // a box of two scales each way
        type.tags.addHandle(340, drawing.at(style).handle);
        for (const Group& g : Groups{{46, 10.0}, {50, 0.0}, {44, -10.0}, {45, 0.0}})
            addGroup(type.tags, g);
        if (mark.size() > 1) addGroup(type.tags, mark[1]);
        for (const Group& g : Groups{{49, -10.0}, {74, 0}}) addGroup(type.tags, g);
        EXPECT_TRUE(drawing.appendRecord(drawing::TableId::ltype, drawing.add(std::move(type))));
    };
    lineType("KASTEN", {{74, 4}}, signs);
    lineType("WORT", {{74, 2}, {9, "H"}}, letters);
    const auto inked = [&](const char* name, int column) {
        Sheet& s = sheet;
        const Index line = s.line({0, 50, 0}, {130, 50, 0}, {{6, name}});
        const Picture picture(s, 130, 100);
        s.drawing().setErased(line, true);
        int count = 0;
        for (int y = 0; y < 100; ++y) count += picture.at(column, y) != kWhite ? 1 : 0;
        return count;
    };
    // Two patterns of 50 in 130: ends of 30, so the gaps lie from 30 to 50 and from 80 to 100.
    EXPECT_EQ(inked("KASTEN", 15), 1);
    EXPECT_EQ(inked("KASTEN", 40), 2) << "through the box, whose sides lie ten above and below";
    EXPECT_GE(inked("KASTEN", 50), 20) << "its right side";
    EXPECT_EQ(inked("KASTEN", 60), 1);
    EXPECT_GE(inked("WORT", 30) + inked("WORT", 31), 10) << "the stem of the letter";
    EXPECT_LE(inked("WORT", 33), 2);
    EXPECT_EQ(inked("WORT", 45), 0);
}

} // namespace
} // namespace orvald::picture
