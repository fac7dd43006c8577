// SPDX-License-Identifier: LicenseRef-ORVALD
// Pattern lines: inside the boundary, evenly spread, as many as the area asks for.
#include "hatch_lines.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <numbers>

namespace orvald::picture {
namespace {

const Bounds kEverything{-1e6, -1e6, 1e6, 1e6, false};
constexpr std::size_t kMany = 1'000'000;

// A ring: a polygon of 60 corners with a hole.
std::vector<Chords> ring()
{
    std::vector<Chords> runs(2);
    for (int i = 0; i < 60; ++i) {
        const double t = i * std::numbers::pi / 30.0;
        runs[0].points.push_back({100.0 + 50.0 * std::cos(t), 80.0 + 50.0 * std::sin(t)});
        runs[1].points.push_back({100.0 + 20.0 * std::cos(t), 80.0 + 20.0 * std::sin(t)});
    }
    return runs;
}
constexpr double kRingArea = 30.0 * (50.0 * 50.0 - 20.0 * 20.0) * 0.10452846326765346; // sin 6 deg

double lengthOf(const std::vector<HatchSegment>& segments)
{
    double sum = 0.0;
    for (const HatchSegment& s : segments) sum += length(s.to - s.from);
    return sum;
}

TEST(HatchLines, CoverTheAreaAtTheirDistance)
{
    for (const double angle : {0.0, 0.3, std::numbers::pi / 2.0, 2.5, -1.0}) {
        for (const double distance : {0.4, -0.4}) {
            SCOPED_TRACE(angle);
            const Vec along{std::cos(angle), std::sin(angle)};
            drawing::HatchLine family;
            family.angle = angle;
            family.base = {3.0, -7.0, 0.0};
            family.offset = {-distance * along.y + 0.3 * along.x,
                             distance * along.x + 0.3 * along.y, 0.0};
            std::vector<HatchSegment> out;
            ASSERT_TRUE(hatchLines(ring(), family, 0.1, kEverything, kMany, out));
            EXPECT_NEAR(lengthOf(out) * 0.4, kRingArea, 0.002 * kRingArea);
            for (const HatchSegment& s : out) {
                const double r = length(0.5 * (s.from + s.to) - Vec{100.0, 80.0});
                EXPECT_LT(r, 50.0);
                EXPECT_NEAR(cross(along, s.to - s.from), 0.0, 1e-9);
            }
            // Dashes draw their share of it, from the base point of each line on.
            family.dashes = {1.0, -0.5, 0.0, -0.5};
            std::vector<HatchSegment> dashed;
            ASSERT_TRUE(hatchLines(ring(), family, 0.1, kEverything, kMany, dashed));
            EXPECT_NEAR(lengthOf(dashed), lengthOf(out) / 2.0, 0.02 * lengthOf(out));
            dashed.clear();
            ASSERT_TRUE(hatchLines(ring(), family, 3.0, kEverything, kMany, dashed));
            EXPECT_EQ(dashed.size(), out.size()) << "dashes that cannot be seen are drawn through";
        }
    }
}

TEST(HatchLines, DashesStartAtTheBaseOfTheirLine)
{
    const Chords square{{{0, 0}, {40, 0}, {40, 40}, {0, 40}}, true};
    drawing::HatchLine brick; // every second row is moved by half a brick
    brick.base = {1.0, 2.0, 0.0};
    brick.offset = {5.0, 10.0, 0.0};
    brick.dashes = {4.0, -6.0};
    std::vector<HatchSegment> out;
    ASSERT_TRUE(hatchLines({&square, 1}, brick, 0.1, kEverything, kMany, out));
    for (const auto& [y, x] : {std::pair{2.0, 1.0}, {12.0, 6.0}, {22.0, 1.0}, {32.0, 6.0}})
        EXPECT_TRUE(std::any_of(out.begin(), out.end(), [&](const HatchSegment& s) {
            return std::abs(s.from.x - x) < 1e-9 && std::abs(s.from.y - y) < 1e-9 &&
                   std::abs(s.to.x - x - 4.0) < 1e-9;
        })) << y;
}

TEST(HatchLines, AreBoundedByWindowAndCount)
{
    const Chords huge{{{-1e9, -1e9}, {1e9, -1e9}, {1e9, 1e9}, {-1e9, 1e9}}, true};
    drawing::HatchLine family;
    family.offset = {0.0, 1.0, 0.0};
    std::vector<HatchSegment> out;
    EXPECT_TRUE(hatchLines({&huge, 1}, family, 0.1, {0.0, 0.0, 100.0, 50.0, false}, kMany, out));
    EXPECT_NEAR(double(out.size()), 50.0, 1.0);
    EXPECT_NEAR(lengthOf(out), 5000.0, 100.0);
    out.clear();
    EXPECT_FALSE(hatchLines({&huge, 1}, family, 0.1, {0.0, 0.0, 1e8, 1e8, false}, 1000, out));
    EXPECT_LE(out.size(), 1000u);
    family.offset = {1.0, 0.0, 0.0}; // along itself: one line
    family.base = {0.0, 25.0, 0.0};
    out.clear();
    EXPECT_TRUE(hatchLines({&huge, 1}, family, 0.1, {0.0, 0.0, 100.0, 50.0, false}, kMany, out));
    ASSERT_EQ(out.size(), 1u);
    EXPECT_EQ(out[0].from.y, 25.0);
}

} // namespace
} // namespace orvald::picture
