// SPDX-License-Identifier: LicenseRef-ORVALD
// Whole pictures: every kind of entity shows where it must, pages fit, files are written whole.
#include "sheet.h"

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <numbers>

namespace orvald::picture {
namespace {

using namespace test;

// A square from its lower left corner, red and blue.
Groups gradientSquare(Point corner, double side, const char* shape, double angle)
{
    const auto at = [&](double x, double y) { return corner + Point{x * side, y * side, 0}; };
    return {{10, Point{}},  {2, "SOLID"},    {70, 1},     {91, 1},        {92, 2},
            {72, 0},        {73, 1},         {93, 4},     {10, at(0, 0)}, {10, at(1, 0)},
            {10, at(1, 1)}, {10, at(0, 1)},  {97, 0},     {75, 0},        {76, 1},
            {450, 1},       {460, angle},    {453, 2},    {463, 0.0},     {421, 0xFF0000},
            {463, 1.0},     {421, 0x0000FF}, {470, shape}};
}

// A drawing with something of every kind.
Sheet everyKind(Point shift = {})
{
    Sheet sheet;
    const auto at = [&](double x, double y) { return Point{x, y, 0} + shift; };
    sheet.layer("A & \"B\" <ä>", {{62, 3}});
    sheet.line(at(0, 0), at(100, 0), {{8, "A & \"B\" <ä>"}});
    sheet.add(Kind::circle, {{10, at(20, 20)}, {40, 10.0}});
    sheet.add(Kind::arc, {{10, at(50, 20)}, {40, 10.0}, {50, 30.0}, {51, 300.0}});
    sheet.add(Kind::ellipse,
              {{10, at(80, 20)}, {11, Point{10, 5, 0}}, {40, 0.5}, {41, 0.0}, {42, 5.0}});
    sheet.add(Kind::lwpolyline, {{90, 3},
                                 {70, 1},
                                 {10, at(0, 40)},
                                 {42, 0.5},
                                 {10, at(20, 40)},
                                 {10, at(20, 60)},
                                 {42, -1.0}});
    sheet.add(Kind::text, {{10, at(30, 40)}, {40, 5.0}, {1, "Blech %%c8"}});
    sheet.add(Kind::mtext,
              {{10, at(30, 60)}, {40, 4.0}, {41, 40.0}, {1, "\\LHinweis\\l: drei Zeilen"}});
    sheet.add(Kind::hatch,
              {{10, Point{}},    {2, "X"},  {70, 0},    {91, 1},          {92, 2},
               {72, 0},          {73, 1},   {93, 3},    {10, at(70, 40)}, {10, at(90, 40)},
               {10, at(80, 60)}, {97, 0},   {75, 0},    {76, 1},          {52, 0.0},
               {41, 1.0},        {78, 1},   {53, 45.0}, {43, 0.0},        {44, 0.0},
               {45, -1.5},       {46, 1.5}, {79, 0}});
    sheet.add(Kind::point, {{10, at(95, 50)}});
    sheet.add(Kind::hatch, gradientSquare(at(0, 80), 20.0, "SPHERICAL", 0.5));
    sheet.add(Kind::dimension, {{70, 1}, {13, at(30, 80)}, {14, at(60, 85)}, {10, at(60, 90)}});
    sheet.add(Kind::xline, {{10, at(0, 70)}, {11, Point{1, 0.1, 0}}});
    return sheet;
}

TEST(Picture, EqualDrawingsGiveEqualBytes)
{
    EXPECT_EQ(svg(everyKind().drawing()), svg(everyKind().drawing()));
    EXPECT_EQ(png(everyKind().drawing()), png(everyKind().drawing()));
}

TEST(Picture, FarFromTheOriginItIsTheSame)
{
    // Powers of two move all coordinates without rounding.
    const Point far{8388608.0, -4194304.0, 0.0};
    const Sheet here = everyKind(), there = everyKind(far);
    const std::string a = svg(here.drawing()), b = svg(there.drawing());
    const Image p = readPng(png(here.drawing())), q = readPng(png(there.drawing()));
    // The pattern's lines are counted from the origin and may fall elsewhere; all else is alike.
    EXPECT_NEAR(double(a.size()), double(b.size()), 0.1 * double(a.size()));
    ASSERT_EQ(p.pixels.size(), q.pixels.size());
    std::size_t different = 0;
    for (std::size_t i = 0; i < p.pixels.size(); ++i)
        different += p.pixels[i] != q.pixels[i] ? 1 : 0;
    EXPECT_LT(double(different), 0.03 * double(p.pixels.size()));
}

TEST(Picture, SvgIsWellFormed)
{
    const std::string python = "/usr/bin/python3";
    if (!std::filesystem::exists(python)) GTEST_SKIP() << "no " << python;
    const std::string command =
        python + " -c 'import sys,xml.etree.ElementTree as e\n"
                 "t=e.fromstring(sys.stdin.buffer.read())\n"
                 "names=[g.get(\"data-layer\") for g in t]\n"
                 "sys.exit(0 if \"A & \\\"B\\\" <\\u00e4>\" in names and len(names)>3 else 1)'";
    std::FILE* pipe = ::popen(command.c_str(), "w");
    ASSERT_NE(pipe, nullptr);
    const std::string text = svg(everyKind().drawing());
    std::fwrite(text.data(), 1, text.size(), pipe);
    EXPECT_EQ(::pclose(pipe), 0);
}

TEST(Picture, SvgKeepsCirclesAndArcsExact)
{
    Sheet sheet;
    sheet.add(Kind::circle, {{10, Point{50, 50, 0}}, {40, 30.0}});
    Options options;
    options.width = options.height = 100;
    options.window = Window{0, 0, 100, 100};
    EXPECT_NE(
        svg(sheet.drawing(), options)
            .find("d=\"M80 50a30 30 0 0 0-45-25.981 30 30 0 0 0 0 51.962 30 30 0 0 0 45-25.981z\""),
        std::string::npos);
}

// Pixels on the outline of a curve that must be inked, and pixels beside it that must not.
void expectOutline(const Picture& picture, const std::vector<Point>& on,
                   const std::vector<Point>& off)
{
    const auto inked = [&](Point p) {
        for (int dx = -1; dx <= 1; ++dx)
            for (int dy = -1; dy <= 1; ++dy)
                if (picture.at(int(p.x) + dx, int(p.y) + dy) != kWhite) return true;
        return false;
    };
    for (const Point p : on) EXPECT_TRUE(inked(p)) << p.x << ' ' << p.y;
    for (const Point p : off) EXPECT_FALSE(inked(p)) << p.x << ' ' << p.y;
}

TEST(Picture, CurvesRunWhereTheirGroupsSay)
{
    const double d = 40.0 / std::numbers::sqrt2;
    struct
    {
        const char* name;
        Kind kind;
        Groups groups;
        std::vector<Point> on, off;
    } cases[] = {
        {"arc",
         Kind::arc,
         {{10, Point{50, 50, 0}}, {40, 40.0}, {50, 300.0}, {51, 90.0}},
         {{90, 50, 0}, {50, 90, 0}, {50 + d, 50 + d, 0}, {50 + d, 50 - d, 0}},
         {{10, 50, 0}, {50, 10, 0}, {50 - d, 50 + d, 0}}},
        {"arc seen from below",
         Kind::arc,
         {{10, Point{-50, 50, 0}}, {40, 40.0}, {50, 0.0}, {51, 90.0}, {210, Point{0, 0, -1}}},
         {{10, 50, 0}, {50 - d, 50 + d, 0}, {50, 90, 0}},
         {{90, 50, 0}, {50 + d, 50 + d, 0}}},
        {"ellipse",
         Kind::ellipse,
         {{10, Point{50, 50, 0}},
          {11, Point{0, 40, 0}},
          {40, 0.5},
          {41, 0.0},
          {42, std::numbers::pi}},
         {{50, 90, 0}, {30, 50, 0}, {50, 10, 0}},
         {{70, 50, 0}, {90, 50, 0}}},
        {"bulge to the left turns counter-clockwise",
         Kind::lwpolyline,
         {{90, 2}, {70, 0}, {10, Point{10, 50, 0}}, {42, 1.0}, {10, Point{90, 50, 0}}},
         {{50, 10, 0}, {50 - d, 50 - d, 0}},
         {{50, 90, 0}, {50, 50, 0}}},
        {"closed polyline with a clockwise arc home",
         Kind::lwpolyline,
         {{90, 2}, {70, 1}, {10, Point{10, 50, 0}}, {10, Point{90, 50, 0}}, {42, -1.0}},
         {{50, 50, 0}, {50, 10, 0}},
         {{50, 90, 0}}},
        {"spline through three control points",
         Kind::spline,
         {{70, 0},
          {71, 2},
          {40, 0.0},
          {40, 0.0},
          {40, 0.0},
          {40, 1.0},
          {40, 1.0},
          {40, 1.0},
          {10, Point{10, 10, 0}},
          {10, Point{50, 90, 0}},
          {10, Point{90, 10, 0}}},
         {{10, 10, 0}, {50, 50, 0}, {30, 40, 0}},
         {{50, 90, 0}, {50, 30, 0}}},
        {"ray",
         Kind::ray,
         {{10, Point{50, 50, 0}}, {11, Point{-1, 0, 0}}},
         {{2, 50, 0}, {30, 50, 0}},
         {{70, 50, 0}}},
        {"construction line",
         Kind::xline,
         {{10, Point{5000, 5000, 0}}, {11, Point{1, 1, 0}}},
         {{2, 2, 0}, {50, 50, 0}, {97, 97, 0}},
         {{20, 80, 0}}},
        {"face with a hidden edge",
         Kind::face3d,
         {{10, Point{10, 10, 0}},
          {11, Point{90, 10, 0}},
          {12, Point{90, 90, 0}},
          {13, Point{10, 90, 0}},
          {70, 2}},
         {{50, 10, 0}, {10, 50, 0}, {50, 90, 0}},
         {{90, 50, 0}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Sheet sheet;
        sheet.add(c.kind, c.groups);
        expectOutline(Picture(sheet, 100, 100), c.on, c.off);
    }
}

TEST(Picture, WidePolylinesAreAreas)
{
    const auto polyline = [](const Groups& widths) {
        Groups groups{{90, 2}, {70, 0}};
        groups.insert(groups.end(), widths.begin(), widths.end());
        return groups;
    };
    Sheet even, tapered, ring;
    even.add(Kind::lwpolyline,
             polyline({{43, 20.0}, {10, Point{10, 50, 0}}, {10, Point{90, 50, 0}}}));
    tapered.add(Kind::lwpolyline,
                polyline({{10, Point{10, 50, 0}}, {40, 40.0}, {41, 0.0}, {10, Point{90, 50, 0}}}));
    ring.add(Kind::lwpolyline, {{90, 2},
                                {70, 1},
                                {43, 10.0},
                                {10, Point{20, 50, 0}},
                                {42, 1.0},
                                {10, Point{80, 50, 0}},
                                {42, 1.0}});
    EXPECT_NEAR(Picture(even, 100, 100).blackened(), 80 * 20, 1);
    EXPECT_NEAR(Picture(tapered, 100, 100).blackened(), 80 * 40 / 2, 5);
    EXPECT_NEAR(Picture(ring, 100, 100).blackened(), std::numbers::pi * (35 * 35 - 25 * 25), 10);
    // An insert that squeezes a wide arc squeezes its width as well.
    Sheet squeezed;
    const Index block = squeezed.drawing().addBlock("RING");
    squeezed.addTo(block, Kind::lwpolyline,
                   {{90, 2},
                    {70, 1},
                    {43, 10.0},
                    {10, Point{-30, 0, 0}},
                    {42, 1.0},
                    {10, Point{30, 0, 0}},
                    {42, 1.0}});
    squeezed.add(Kind::insert, {{2, "RING"}, {10, Point{50, 50, 0}}, {41, 1.0}, {42, 0.5}});
    const Picture picture(squeezed, 100, 100);
    EXPECT_EQ(picture.at(20, 50), kBlack);
    EXPECT_EQ(picture.at(50, 65), kBlack);
    EXPECT_EQ(picture.at(50, 70), kWhite);
    EXPECT_EQ(picture.at(50, 60), kWhite);
}

TEST(Picture, InsertsNestTurnScaleAndRepeat)
{
    Sheet sheet;
    Drawing& drawing = sheet.drawing();
    const Index inner = drawing.addBlock("INNEN", {10, 10, 0}), outer = drawing.addBlock("AUSSEN");
    sheet.box(inner, 10, 10, 12, 11, {{62, 1}}); // 2 by 1 at its base point
    sheet.addTo(outer, Kind::insert,
                {{2, "INNEN"}, {10, Point{5, 0, 0}}, {41, 5.0}, {42, 10.0}, {50, 90.0}});
    // A row of three, then all of it upside down.
    sheet.add(Kind::insert,
              {{2, "aussen"}, {10, Point{20, 50, 0}}, {42, -1.0}, {70, 3}, {44, 25.0}});
    const Picture picture(sheet, 100, 100);
    // 10 by 10 after scaling, turned to the left of x = 5, mirrored below y = 50.
    for (int column = 0; column < 3; ++column) {
        EXPECT_EQ(picture.at(20 + 25 * column, 45), kRed) << column;
        EXPECT_EQ(picture.at(20 + 25 * column, 55), kWhite) << column;
        EXPECT_EQ(picture.at(30 + 25 * column, 45), kWhite) << column;
    }
    EXPECT_EQ(picture.inked(), 300);
}

TEST(Picture, HatchesFillByParityAndStyle)
{
    const auto hatch = [](int style, bool clockwiseEdges) {
        Groups groups{{10, Point{}}, {2, "SOLID"}, {70, 1}, {91, 3}};
        const auto loop = [&](int flags, double r) {
            groups.push_back({92, flags | 2});
            for (const Group& g : Groups{{72, 0},
                                         {73, 1},
                                         {93, 4},
                                         {10, Point{50 - r, 50 - r, 0}},
                                         {10, Point{50 + r, 50 - r, 0}},
                                         {10, Point{50 + r, 50 + r, 0}},
                                         {10, Point{50 - r, 50 + r, 0}},
                                         {97, 0}})
                groups.push_back(g);
        };
        loop(1, 40);
        loop(16, 30);
        if (clockwiseEdges) { // an edge path: a circle that runs clockwise
            for (const Group& g : Groups{{92, 0},
                                         {93, 1},
                                         {72, 2},
                                         {10, Point{50, 50, 0}},
                                         {40, 20.0},
                                         {50, 0.0},
                                         {51, 360.0},
                                         {73, 0},
                                         {97, 0}})
                groups.push_back(g);
        } else {
            loop(0, 20);
        }
        groups.insert(groups.end(), {{75, style}, {76, 1}});
        Sheet sheet;
        sheet.add(Kind::hatch, groups);
        return Picture(sheet, 100, 100).blackened();
    };
    EXPECT_EQ(hatch(0, false), 80 * 80 - 60 * 60 + 40 * 40);
    EXPECT_EQ(hatch(1, false), 80 * 80 - 60 * 60);
    EXPECT_EQ(hatch(2, false), 80 * 80);
    EXPECT_NEAR(hatch(0, true), 80 * 80 - 60 * 60 + std::numbers::pi * 400, 10);
}

TEST(Picture, GradientsRunOverTheWholeHatch)
{
    const auto picture = [](const char* shape, double angle) {
        Sheet sheet;
        sheet.add(Kind::hatch, gradientSquare({10, 10, 0}, 100.0, shape, angle));
        return Picture(sheet, 120, 120);
    };
    const auto red = [](const Picture& p, int x, int y) { return double(p.at(x, y) >> 16); };
    const Picture linear = picture("LINEAR", 0.0);
    for (int x = 10; x < 110; x += 9) {
        EXPECT_NEAR(red(linear, x, 40), 255.0 * (109.5 - x) / 100.0, 2.0) << x;
        EXPECT_EQ(linear.at(x, 40), linear.at(x, 90));
    }
    const Picture turned = picture("LINEAR", std::numbers::pi / 2.0);
    const Picture there = picture("CYLINDER", 0.0), back = picture("INVCYLINDER", 0.0);
    const Picture round = picture("SPHERICAL", 0.0);
    for (int x = 10; x < 110; x += 9) {
        EXPECT_NEAR(red(turned, 50, x), red(linear, x, 50), 2.0);
        EXPECT_NEAR(red(there, x, 50), red(there, 119 - x, 50), 2.0);
        EXPECT_NEAR(red(there, x, 50) + red(back, x, 50), 255.0, 2.0);
        EXPECT_NEAR(red(round, x, 30), red(round, 30, x), 2.0);
    }
    EXPECT_NEAR(red(round, 60, 60), 0.0, 4.0) << "light falls on the middle";
}

TEST(Picture, TextsStandAtTheirPoints)
{
    // The box of all ink of "HH" (29 wide, 20 high at this size, and the pen), by justification.
    struct
    {
        int horizontal, vertical;
        double left, bottom;
    } cases[] = {{0, 0, 50, 50}, {1, 0, 35.5, 50}, {2, 0, 21, 50},  {4, 0, 35.5, 40},
                 {0, 2, 50, 40}, {2, 3, 21, 30},   {1, 1, 35.5, 56}};
    for (const auto& c : cases) {
        Sheet sheet;
        sheet.add(Kind::text, {{10, Point{50, 50, 0}},
                               {40, 20.0},
                               {1, "HH"},
                               {72, c.horizontal},
                               {11, Point{50, 50, 0}},
                               {73, c.vertical}});
        const Picture picture(sheet, 120, 100);
        int left = 1000, bottom = 1000, right = -1, top = -1;
        for (int y = 0; y < 100; ++y) {
            for (int x = 0; x < 120; ++x) {
                if (picture.at(x, y) == kWhite) continue;
                left = std::min(left, x), right = std::max(right, x);
                bottom = std::min(bottom, y), top = std::max(top, y);
            }
        }
        EXPECT_NEAR(left + 0.8, c.left, 1.2) << c.horizontal << c.vertical;
        EXPECT_NEAR(bottom + 0.8, c.bottom, 1.2) << c.horizontal << c.vertical;
        EXPECT_NEAR(right - left, 30, 1.5);
        EXPECT_NEAR(top - bottom, 21, 1.5);
    }
}

TEST(Picture, AttributesShowAndDefinitionsOnlyByThemselves)
{
    Sheet sheet;
    const Index block = sheet.drawing().addBlock("B");
    sheet.addTo(block, Kind::attdef,
                {{10, Point{0, 0, 0}}, {40, 20.0}, {1, "HHH"}, {2, "NAME"}, {70, 0}});
    const Index insert = sheet.add(Kind::insert, {{2, "B"}, {10, Point{10, 10, 0}}, {66, 1}});
    EXPECT_EQ(Picture(sheet, 200, 100).inked(), 0);
    const Groups text{{10, Point{10, 50, 0}}, {40, 20.0}, {1, "H"}, {2, "NAME"}};
    Groups hidden = text;
    hidden.push_back({70, 1});
    sheet.addTo(insert, Kind::attrib, hidden);
    EXPECT_EQ(Picture(sheet, 200, 100).inked(), 0);
    sheet.addTo(insert, Kind::attrib, text);
    const int one = Picture(sheet, 200, 100).inked();
    EXPECT_GT(one, 30);
    sheet.add(Kind::attdef, {{10, Point{100, 50, 0}}, {40, 20.0}, {1, "-"}, {2, "H"}, {70, 0}});
    EXPECT_NEAR(Picture(sheet, 200, 100).inked(), 2 * one, 25) << "a definition shows its name";
}

TEST(Picture, DimensionsShowTheirBlock)
{
    Sheet sheet;
    sheet.box(sheet.drawing().addBlock("*D1"), 10, 10, 20, 20, {{62, 0}});
    sheet.add(Kind::dimension, {{2, "*D1"}, {10, Point{5, 5, 0}}, {70, 32}}, {{62, 1}});
    const Picture picture(sheet, 50, 50);
    EXPECT_EQ(picture.at(15, 15), kRed);
    EXPECT_EQ(picture.inked(), 100);
}

TEST(Picture, OverlayLiesOnTop)
{
    Sheet sheet;
    sheet.box(0, 0, 100, 100, {{62, 5}});
    Options options;
    options.overlay = {{{0, 20, 0}, {100, 20, 0}, 1, false}, {{0, 60, 0}, {100, 60, 0}, -1, true}};
    const Picture picture(sheet, 100, 100, options);
    int red = 0, black = 0;
    for (int x = 0; x < 100; ++x) {
        red += picture.at(x, 19) == kRed || picture.at(x, 20) == kRed ? 1 : 0;
        black += picture.at(x, 59) == kBlack || picture.at(x, 60) == kBlack ? 1 : 0;
    }
    EXPECT_EQ(red, 100);
    EXPECT_NEAR(black, 60, 8) << "dashed";
}

TEST(Page, FitsWhatIsDrawn)
{
    const auto size = [](const Sheet& sheet, const Options& options = {}) {
        const Image image = readPng(png(sheet.drawing(), options));
        return std::pair(image.width, image.height);
    };
    Sheet sheet;
    EXPECT_EQ(size(sheet).first, 1600);
    EXPECT_EQ(readPng(png(sheet.drawing())).pixels,
              std::vector<std::uint32_t>(1600 * 1600, kWhite));
    sheet.box(1000, 1000, 1400, 1200, {{62, 1}});
    EXPECT_EQ(size(sheet), std::pair(1600, 840)) << "half as high, with equal margins";
    const Image image = readPng(png(sheet.drawing()));
    EXPECT_EQ(image.at(39, 420), kWhite);
    EXPECT_EQ(image.at(41, 41), kRed);
    EXPECT_EQ(image.at(1558, 798), kRed);
    sheet.line({1000, 1000, 0}, {1000, 99999, 0});
    EXPECT_EQ(size(sheet), std::pair(1600, 2400))
        << "never higher than one and a half of the width";
    Sheet level;
    level.line({0, 0, 0}, {1000, 0, 0});
    EXPECT_EQ(size(level), std::pair(1600, 400)) << "nor lower than a quarter";
    Options options;
    options.width = 3;
    options.height = 1 << 30;
    EXPECT_EQ(size(level, options), std::pair(kLeastSize, kMostSize));
}

TEST(Page, ShowsTheLayoutThatWasAskedFor)
{
    Sheet sheet;
    Drawing& drawing = sheet.drawing();
    sheet.box(0, 0, 10, 10, {{62, 1}});
    sheet.box(drawing.paperSpace(), 20, 0, 30, 10, {{62, 5}});
    Options options;
    options.layout = "layout1";
    const Picture sheetOne(sheet, 40, 20, options);
    EXPECT_EQ(sheetOne.at(5, 5), kWhite);
    EXPECT_EQ(sheetOne.at(25, 5), kBlue);
    EXPECT_EQ(Picture(sheet, 40, 20).at(5, 5), kRed);
    EXPECT_EQ(spaceOf(drawing, "MODEL"), drawing.modelSpace());
    EXPECT_EQ(spaceOf(drawing, "nirgends"), drawing::kNone);
}

TEST(Summary, CountsWhatWasNotDrawn)
{
    Sheet sheet;
    sheet.box(0, 0, 1, 1);
    sheet.add(Kind::solid3d, {});
    sheet.add(Kind::region, {});
    sheet.add(Kind::region, {});
    Summary summary;
    svg(sheet.drawing(), {}, &summary);
    EXPECT_EQ(summary.entities, 4u);
    EXPECT_TRUE(summary.complete);
    EXPECT_EQ(summary.notDrawn,
              (std::map<std::string, std::size_t>{{"3DSOLID", 1}, {"REGION", 2}}));
}

class SavedPicture : public testing::Test
{
protected:
    SavedPicture()
        : folder(std::filesystem::temp_directory_path() /
                 ("picture" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) +
                  "-" + std::to_string(std::uintptr_t(this))))
    {
        std::filesystem::create_directory(folder);
    }
    ~SavedPicture() override { std::filesystem::remove_all(folder); }
    std::string content(const char* name) const
    {
        std::ifstream in(folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    std::size_t files() const
    {
        return std::size_t(std::distance(std::filesystem::directory_iterator(folder), {}));
    }
    std::filesystem::path folder;
};

TEST_F(SavedPicture, IsWhatItsEndingSays)
{
    const Sheet sheet = everyKind();
    std::string problem;
    EXPECT_TRUE(savePicture(sheet.drawing(), folder / "a.SVG", {}, problem)) << problem;
    EXPECT_EQ(content("a.SVG"), svg(sheet.drawing()));
    EXPECT_TRUE(savePicture(sheet.drawing(), folder / "b.png", {}, problem)) << problem;
    EXPECT_EQ(content("b.png"), png(sheet.drawing()));
    EXPECT_EQ(files(), 2u) << "nothing is left beside them";
}

TEST_F(SavedPicture, SaysWhyNotAndLeavesEverythingAsItWas)
{
    const Sheet sheet = everyKind();
    Options wrongLayout;
    wrongLayout.layout = "Blatt 7";
    std::string problem;
    for (const char* name : {"a.jpg", "svg", ".svg", "no/such/folder.png"}) {
        problem.clear();
        EXPECT_FALSE(savePicture(sheet.drawing(), folder / name, {}, problem)) << name;
        EXPECT_NE(problem.find(name), std::string::npos) << problem;
    }
    EXPECT_FALSE(savePicture(sheet.drawing(), folder / "a.svg", wrongLayout, problem));
    EXPECT_NE(problem.find("Blatt 7"), std::string::npos) << problem;
    std::filesystem::create_directory(folder / "taken.png"); // cannot be renamed over
    EXPECT_FALSE(savePicture(sheet.drawing(), folder / "taken.png", {}, problem));
    EXPECT_EQ(files(), 1u);
}

} // namespace
} // namespace orvald::picture
