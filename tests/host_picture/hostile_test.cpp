// SPDX-License-Identifier: LicenseRef-ORVALD
// Drawings that nobody would draw: pictures come in bounded time and memory, whatever they hold.
#include "sheet.h"

#include <gtest/gtest.h>
#include <random>

namespace orvald::picture {
namespace {

using namespace test;

Options small()
{
    Options options;
    options.width = 200;
    options.height = 120;
    options.mostSteps = 200'000;
    return options;
}

void drawBoth(const Sheet& sheet, const Options& options, Summary* summary = nullptr)
{
    EXPECT_EQ(svg(sheet.drawing(), options, summary).find("nan"), std::string::npos);
    const Image image = readPng(png(sheet.drawing(), options, summary));
    EXPECT_EQ(image.width, options.width);
}

TEST(Hostile, BlocksInBlocksEnd)
{
    Sheet sheet;
    Drawing& drawing = sheet.drawing();
    const Index self = drawing.addBlock("SELBST");
    sheet.box(self, 0, 0, 10, 10);
    sheet.addTo(self, Kind::insert, {{2, "SELBST"}, {10, Point{5, 5, 0}}});
    sheet.add(Kind::insert, {{2, "SELBST"}, {10, Point{0, 0, 0}}});
    sheet.add(Kind::insert, {{2, "fehlt"}, {10, Point{0, 0, 0}}});
    Summary summary;
    drawBoth(sheet, small(), &summary);
    EXPECT_TRUE(summary.complete);

    // Each block shows the next ten times: ten to the power of thirty.
    Index above = drawing.modelSpace();
    for (int i = 0; i < 30; ++i) {
        const std::string name = "B" + std::to_string(i);
        const Index block = drawing.addBlock(name);
        for (int k = 0; k < 10; ++k)
            sheet.addTo(above, Kind::insert, {{2, name.c_str()}, {10, Point{double(k), 0, 0}}});
        above = block;
    }
    sheet.box(above, 0, 0, 1, 1);
    drawBoth(sheet, small(), &summary);
    EXPECT_FALSE(summary.complete);

    Sheet array;
    array.drawing().addBlock("LEER");
    array.add(Kind::insert,
              {{2, "LEER"}, {10, Point{}}, {70, 32767}, {71, 32767}, {44, 1.0}, {45, 1.0}});
    drawBoth(array, small(), &summary);
    EXPECT_FALSE(summary.complete);
}

TEST(Hostile, EndlessDensityIsBounded)
{
    Sheet sheet;
    Drawing& drawing = sheet.drawing();
    drawing::Record type(Kind::ltype, drawing::Family::tableRecord);
    for (const Group& g : Groups{{2, "FEIN"}, {49, 1e-9}, {49, -1e-9}}) addGroup(type.tags, g);
    ASSERT_TRUE(drawing.appendRecord(drawing::TableId::ltype, drawing.add(std::move(type))));
    sheet.line({0, 0, 0}, {1e9, 1e9, 0}, {{6, "FEIN"}});
    sheet.line({0, 0, 0}, {1e9, 1e9, 0}, {{6, "FEIN"}, {48, 1e10}});
    for (const double spacing : {1e-9, 1e-300, 0.0, 1.0, 1e7}) {
        sheet.add(Kind::hatch, {{10, Point{}},
                                {2, "DICHT"},
                                {70, 0},
                                {91, 1},
                                {92, 2},
                                {72, 0},
                                {73, 1},
                                {93, 3},
                                {10, Point{0, 0, 0}},
                                {10, Point{1e9, 0, 0}},
                                {10, Point{0, 1e9, 0}},
                                {97, 0},
                                {75, 0},
                                {76, 1},
                                {52, 0.0},
                                {41, 1.0},
                                {78, 1},
                                {53, 30.0},
                                {43, 0.0},
                                {44, 0.0},
                                {45, 0.0},
                                {46, spacing},
                                {79, 2},
                                {49, spacing},
                                {49, -spacing}});
    }
    drawBoth(sheet, small());
    Options near = small();
    near.window = Window{10.0, 10.0, 10.001, 10.001}; // lines that go far beyond the page
    drawBoth(sheet, near);
}

TEST(Hostile, NoValueOfAnyGroupDoesHarm)
{
    const Kind kinds[] = {Kind::line,    Kind::point,      Kind::circle,   Kind::arc,
                          Kind::ellipse, Kind::lwpolyline, Kind::polyline, Kind::spline,
                          Kind::text,    Kind::mtext,      Kind::attdef,   Kind::insert,
                          Kind::solid,   Kind::trace,      Kind::face3d,   Kind::hatch,
                          Kind::leader,  Kind::dimension,  Kind::ray,      Kind::xline,
                          Kind::mline,   Kind::tolerance,  Kind::viewport};
    const char* named[] = {"MULTILEADER", "WIPEOUT", "IMAGE", "ACAD_TABLE", "MESH", "HELIX"};
    const double reals[] = {0.0,  -0.0,  1.0,     -1.0,       1e-300, -1e-300, 1e300,  -1e300,
                            1e99, 1e150, 3.14159, 1e7 + 1e-3, 360.0,  1e20,    5e-324, 1.7e308};
    const char* texts[] = {"",
                           "{\\H0;x",
                           "\\pi1e300,l-9,t1,1,1e-9,qj;\t\t\\A9;x",
                           "CONTEXT_DATA{",
                           "LEADER{",
                           "LEADER_LINE{",
                           "\\S^;\\S/",
                           "%%",
                           "%%999",
                           "\\W1e300;\\T1e-300;a b",
                           "\xED\xA0\x80",
                           "ein langer Text mit vielen W\xC3\xB6rtern",
                           "B"};
    constexpr int kCodes[] = {1,  2,  3,   7,   10,  11,  12,  13,  38,  39,  40,  41, 42,
                              43, 44, 45,  46,  48,  49,  50,  51,  52,  53,  62,  70, 71,
                              72, 73, 74,  75,  76,  78,  79,  90,  91,  92,  93,  94, 95,
                              96, 97, 140, 210, 290, 296, 300, 302, 304, 370, 420, 440};
    std::mt19937 engine(7);
    const auto pick = [&](const auto& list) { return list[engine() % std::size(list)]; };
    const auto groups = [&] {
        Groups out;
        for (std::size_t i = engine() % 60; i > 0; --i) {
            const int code = pick(kCodes);
            const bool tame = engine() % 3 != 0;
            const auto real = [&] { return tame ? double(engine() % 100) : pick(reals); };
            drawing::TagKind kind = drawing::TagKind::real;
            drawing::fileKind(code, kind);
            if (kind == drawing::TagKind::text) out.push_back({code, pick(texts)});
            else if (drawing::beginsPoint(code))
                out.push_back({code, Point{real(), real(), real()}});
            else if (kind == drawing::TagKind::real) out.push_back({code, real()});
            else out.push_back({code, tame ? int(engine() % 6) : int(engine())});
        }
        return out;
    };
    for (int round = 0; round < 150; ++round) {
        Sheet sheet;
        const Index block = sheet.drawing().addBlock("B");
        for (int i = 0; i < 12; ++i) {
            const Kind kind = pick(kinds);
            Groups own = groups();
            if (kind == Kind::insert) own.insert(own.begin(), {2, "B"});
            const Index index = sheet.addTo(i < 4 ? block : sheet.drawing().modelSpace(), kind, own,
                                            engine() % 2 ? groups() : Groups{});
            if (kind == Kind::polyline)
                for (int v = 0; v < 5; ++v) sheet.addTo(index, Kind::vertex, groups());
        }
        for (const char* type : named) sheet.addNamed(type, groups(), groups());
        Options options = small();
        options.height = round % 2 == 0 ? 120 : 0;
        if (round % 5 == 0)
            options.window = Window{pick(reals), pick(reals), pick(reals), pick(reals)};
        options.mostSteps = 20'000;
        drawBoth(sheet, options);
        if (HasFailure()) FAIL() << "round " << round;
    }
}

} // namespace
} // namespace orvald::picture
