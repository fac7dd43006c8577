// SPDX-License-Identifier: LicenseRef-ORVALD
// What shows or covers only a part: view ports, clipped inserts, images, wipeouts.
#include "sheet.h"

#include <gtest/gtest.h>

namespace orvald::picture {
namespace {

using namespace test;

Options sheetOne()
{
    Options options;
    options.layout = "Layout1";
    return options;
}

TEST(Viewport, ShowsItsPartOfTheModelAtItsScale)
{
    Sheet sheet;
    Drawing& drawing = sheet.drawing();
    sheet.layer("NUR MODELL", {});
    sheet.layer("RAHMEN", {{62, -1}});
    sheet.box(0, 0, 1000, 1000, {{62, 1}});
    sheet.box(100, 100, 110, 110, {{62, 5}, {8, "NUR MODELL"}});
    // 40 by 20 on paper, two to one, the model's (105 102.5) in its middle at (50 30).
    const Groups view{{10, Point{50, 30, 0}},
                      {40, 40.0},
                      {41, 20.0},
                      {68, 2},
                      {69, 2},
                      {12, Point{5, 2.5, 0}},
                      {16, Point{0, 0, 1}},
                      {17, Point{100, 100, 0}},
                      {45, 10.0},
                      {51, 0.0}};
    const Index port = sheet.addTo(drawing.paperSpace(), Kind::viewport, view, {{8, "RAHMEN"}});
    const Picture shown(sheet, 100, 60, sheetOne());
    EXPECT_EQ(shown.count(kRed) + shown.count(kBlue), 40 * 20) << "nothing beyond its frame";
    EXPECT_EQ(shown.count(kBlue), 20 * 15);
    EXPECT_EQ(shown.at(40, 25), kBlue);
    EXPECT_EQ(shown.at(39, 25), kRed);
    EXPECT_EQ(Picture(sheet, 100, 60).count(kRed), 100 * 60) << "the model has no view ports";

    drawing.edit(port).tags.addHandle(
        331, drawing.at(drawing.findRecord(drawing::TableId::layer, "NUR MODELL")).handle);
    const Picture frozen(sheet, 100, 60, sheetOne());
    EXPECT_EQ(frozen.count(kRed), 40 * 20) << "a layer is frozen in this view port";
    EXPECT_EQ(Picture(sheet, 120, 120).count(kBlue), 100) << "and nowhere else";

    // Turned by a quarter to the left about its target, which is now in the middle.
    drawing.setErased(port, true);
    Groups turned = view;
    turned[5].value = Point{0, 0, 0};
    turned[9].value = 90.0;
    sheet.addTo(drawing.paperSpace(), Kind::viewport, turned, {{8, "RAHMEN"}});
    const Picture left(sheet, 100, 60, sheetOne());
    EXPECT_EQ(left.at(49, 31), kBlue);
    EXPECT_EQ(left.at(51, 31), kRed);
    EXPECT_EQ(left.at(31, 39), kBlue);
    EXPECT_EQ(left.at(49, 29), kRed);
}

TEST(Viewport, MayHaveTheOutlineOfAnotherEntity)
{
    Sheet sheet;
    Drawing& drawing = sheet.drawing();
    sheet.box(-100, -100, 100, 100, {{62, 1}});
    const Index circle = sheet.addTo(drawing.paperSpace(), Kind::circle,
                                     {{10, Point{50, 50, 0}}, {40, 20.0}}, {{60, 1}});
    const Index port =
        sheet.addTo(drawing.paperSpace(), Kind::viewport,
                    {{10, Point{50, 50, 0}}, {40, 80.0}, {41, 80.0}, {68, 2}, {69, 2}, {45, 80.0}});
    drawing.edit(port).tags.addHandle(340, drawing.at(circle).handle);
    const Picture picture(sheet, 100, 100, sheetOne());
    EXPECT_NEAR(picture.inked(), 3.1416 * 20 * 20, 130);
    EXPECT_EQ(picture.at(50, 68), kRed);
    EXPECT_EQ(picture.at(50, 71), kWhite);
    // In SVG the clip is the exact circle.
    const std::string text = svg(sheet.drawing(), sheetOne());
    EXPECT_NE(text.find("<clipPath id=\"c1\">"), std::string::npos);
    EXPECT_NE(text.find("clip-path=\"url(#c1)\""), std::string::npos);
}

TEST(Insert, ShowsWhatItsFilterLeaves)
{
    Sheet sheet;
    Drawing& drawing = sheet.drawing();
    sheet.box(drawing.addBlock("B"), 0, 0, 100, 100, {{62, 1}});
    const Index insert = sheet.add(Kind::insert, {{2, "B"}, {10, Point{10, 0, 0}}});
    // The rectangle was drawn when the block stood at (1000 0); the front plane counts for nothing.
    drawing::Record filter("SPATIAL_FILTER", drawing::Family::object);
    for (const Group& g : Groups{{100, "AcDbFilter"},
                                 {100, "AcDbSpatialFilter"},
                                 {70, 2},
                                 {10, Point{1020, 30, 0}},
                                 {10, Point{1040, 40, 0}},
                                 {71, 1},
                                 {72, 1},
                                 {40, 99.0},
                                 {73, 0}})
        addGroup(filter.tags, g);
    for (const double m : {1.0, 0.0, 0.0, -1000.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0, 1.0, 0.0})
        filter.tags.addReal(40, m);
    const Index filters = drawing.addDictionary(true);
    const Index entry = drawing.add(std::move(filter));
    drawing.addToDictionary(filters, "SPATIAL", entry);
    drawing.addToDictionary(drawing.needExtensionDictionary(insert), "ACAD_FILTER", filters);
    const Picture picture(sheet, 120, 120);
    EXPECT_EQ(picture.count(kRed), 20 * 10);
    EXPECT_EQ(picture.at(30, 30), kRed);
    EXPECT_EQ(picture.at(49, 39), kRed);

    Options page;
    page.margin = 0;
    page.width = 200;
    page.height = 0;
    const Image fitted = readPng(png(drawing, page));
    EXPECT_EQ(fitted.height, 100) << "the page is fitted to what is left";
    EXPECT_EQ(std::count(fitted.pixels.begin(), fitted.pixels.end(), kRed), 200 * 100);
}

TEST(Image, ShowsItsFrameAndAWipeoutCovers)
{
    Sheet sheet;
    sheet.box(0, 0, 100, 100, {{62, 1}});
    // 40 by 40 units from (20 20); of its unit square the lower left triangle.
    sheet.addNamed("WIPEOUT", {{10, Point{20, 20, 0}},
                               {11, Point{40, 0, 0}},
                               {12, Point{0, 40, 0}},
                               {13, Point{1, 1, 0}},
                               {71, 2},
                               {91, 3},
                               {14, Point{-0.5, -0.5, 0}},
                               {14, Point{-0.5, 0.5, 0}},
                               {14, Point{0.5, 0.5, 0}}});
    sheet.box(30, 30, 31, 31, {{62, 5}});
    const Picture picture(sheet, 100, 100);
    EXPECT_NEAR(picture.count(kWhite), 40 * 40 / 2, 45);
    EXPECT_EQ(picture.at(22, 50), kWhite);
    EXPECT_EQ(picture.at(50, 55), kRed);
    EXPECT_EQ(picture.at(30, 30), kBlue) << "what comes later lies on top";

    Sheet frame; // 200 by 100 pixels of 0.2 units
    frame.addNamed("IMAGE", {{10, Point{20.5, 20.5, 0}},
                             {11, Point{0.2, 0, 0}},
                             {12, Point{0, 0.2, 0}},
                             {13, Point{200, 100, 0}},
                             {280, 0}});
    Summary summary;
    svg(frame.drawing(), {}, &summary);
    EXPECT_EQ(summary.notDrawn.size(), 1u) << "what the image shows is missing";
    EXPECT_EQ(Picture(frame, 100, 100).inked(), 2 * (40 + 20));
}

} // namespace
} // namespace orvald::picture
