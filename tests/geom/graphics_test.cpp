// SPDX-License-Identifier: LicenseRef-ORVALD
// Temporary graphics: every stroke to the number, in a view 100 high.
#include "geom/graphics.h"
#include "hostapi/entity.h"
#include "kex/direction.h"
#include "kex_values.h"
#include "test_host.h"

#include <functional>

namespace {

using namespace KEX;

struct Stroke
{
    CKexPoint3d from, to;
    int colour, highlight;
};
std::vector<Stroke> strokes;

/// What a symbol draws; in a view of that height, none for 0.
std::vector<Stroke> drawn(const std::function<void()>& draw, double viewHeight = 100.0)
{
    strokes.clear();
    testHost().realVariables.clear();
    if (viewHeight > 0.0) testHost().realVariables["VIEWSIZE"] = viewHeight;
    testHost().pointVariables = {
        {"VSMIN", {-50, -40, 9}}, {"VSMAX", {150, 60, 9}}, {"VIEWCTR", {50, 10, 2}}};
    draw();
    return strokes;
}

void expectPath(const std::vector<Stroke>& found, const std::vector<CKexPoint3d>& path)
{
    ASSERT_EQ(found.size() + 1, path.size());
    for (std::size_t i = 0; i < found.size(); ++i) {
        EXPECT_TRUE(found[i].from.isEqualTo(path[i], 1e-12)) << i;
        EXPECT_TRUE(found[i].to.isEqualTo(path[i + 1], 1e-12)) << i;
        EXPECT_EQ(found[i].colour, -1);
        EXPECT_EQ(found[i].highlight, 0);
    }
}

const CKexPoint3d p(10, 20, 3);

CKexPoint3d off(double x, double y) { return p + CKexVector3d(x, y); }

TEST(Graphics, SignsHaveTheirStrokesInOrder)
{
    const double d = 2.5 * std::sqrt(0.5);
    const auto cross = drawn([] { EXPECT_EQ(g_cross(p), 0); });
    ASSERT_EQ(cross.size(), 2u);
    expectPath({cross[0]}, {off(-d, -d), off(d, d)});
    expectPath({cross[1]}, {off(d, -d), off(-d, d)});
    expectPath(drawn([] { g_minus_sig(p); }), {off(-1.5, 0), off(1.5, 0)});
    const auto plus = drawn([] { g_plus_sig(p); });
    ASSERT_EQ(plus.size(), 2u);
    expectPath({plus[0]}, {off(-1.5, 0), off(1.5, 0)});
    expectPath({plus[1]}, {off(0, -1.5), off(0, 1.5)});
    expectPath(drawn([] { g_rhombus(p); }),
               {off(2.5, 0), off(0, 2.5), off(-2.5, 0), off(0, -2.5), off(2.5, 0)});
}

TEST(Graphics, ArrowHasItsTipAtThePointAndGivesTheShaft)
{
    CKexPoint3d shaft;
    const double away = 6.0 * kPi / 7.0;
    const auto head = drawn([&] { shaft = g_arrow(p, 0.5); });
    const CKexPoint3d left = polar(p, 0.5 + away, 5), right = polar(p, 0.5 - away, 5);
    expectPath(head, {p, left, right, p});
    EXPECT_TRUE(shaft.isEqualTo(polar(p, 0.5 + kPi, 5 * std::cos(kPi / 7.0)), 1e-12));
    const auto red = drawn([&] { g_arrow(p, 0.0, 1, true); });
    EXPECT_TRUE(red[2].colour == 1 && red[2].highlight == 1);
}

TEST(Graphics, RectangleRunsCounterClockwiseFromItsFirstCorner)
{
    for (const CKexPoint3d other :
         {CKexPoint3d(5, 4), CKexPoint3d(-5, 4), CKexPoint3d(-5, -4), CKexPoint3d(5, -4)}) {
        const auto sides = drawn([&] { g_rect({0, 0, 7}, other); });
        ASSERT_EQ(sides.size(), 4u);
        double area = 0.0;
        for (std::size_t i = 0; i < 4; ++i) {
            EXPECT_EQ(sides[i].to, sides[(i + 1) % 4].from);
            EXPECT_EQ(sides[i].to.z, 7.0);
            area += 0.5 * crossXY(sides[i].from.asVector(), sides[i].to.asVector());
        }
        EXPECT_EQ(sides[0].from, CKexPoint3d(0, 0, 7));
        EXPECT_EQ(area, 20.0);
    }
}

TEST(Graphics, ViewLinesAndCoordinatesFollowTheView)
{
    expectPath(drawn([] { g_xline(p); }), {{-50, 20, 3}, {150, 20, 3}});
    expectPath(drawn([] { g_yline(p); }), {{10, -40, 3}, {10, 60, 3}});
    EXPECT_EQ(*g_vsmin(), CKexPoint3d(-50, -40, 2)); // at the height of the centre
    EXPECT_EQ(*g_vsmax(), CKexPoint3d(150, 60, 2));
    EXPECT_EQ(*g_af_fact(), 2.0);
    auto symbol = drawn([] { g_bksymbol(p); });
    ASSERT_EQ(symbol.size(), 8u);
    expectPath({symbol[0]}, {p, off(10, 0)});
    expectPath({symbol[1]}, {p, off(0, 10)});
    symbol.erase(symbol.begin(), symbol.begin() + 2);
    std::vector<CKexPoint3d> arc;
    for (int i = 0; i <= 6; ++i) arc.push_back(polar(p, i * kPi / 12, 4.5));
    expectPath(symbol, arc);
}

TEST(Graphics, NothingIsDrawnWithoutAView)
{
    const auto all = [] {
        g_cross(p);
        g_arrow(p, 0);
        g_rhombus(p);
        g_plus_sig(p);
        g_bksymbol(p);
        testHost().pointVariables.clear();
        g_xline(p);
        g_yline(p);
        EXPECT_FALSE(g_vsmin().has_value() || g_af_fact().has_value());
    };
    EXPECT_TRUE(drawn(all, 0.0).empty());
}

} // namespace

extern "C" int acedGrDraw(const ads_point from, const ads_point to, int colour, int highlight)
{
    strokes.push_back({CKexPoint3d(from), CKexPoint3d(to), colour, highlight});
    return RTNORM;
}
