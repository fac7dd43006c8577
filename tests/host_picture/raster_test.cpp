// SPDX-License-Identifier: LicenseRef-ORVALD
// Areas and lengths of what the rasteriser covers, against the figures of the shapes themselves.
#include "coverage.h"
#include "dashes.h"
#include "raster_canvas.h"
#include "stroker.h"

#include <gtest/gtest.h>
#include <numbers>
#include <numeric>
#include <random>

namespace orvald::picture {
namespace {

void addPolygon(Coverage& coverage, const std::vector<Vec>& corners)
{
    for (std::size_t i = 0; i < corners.size(); ++i)
        coverage.edge(corners[i], corners[(i + 1) % corners.size()]);
}

double sweptArea(Coverage& coverage, FillRule rule)
{
    double sum = 0.0;
    coverage.sweep(rule, [&](int, int first, int last, double cover) {
        EXPECT_LE(cover, 1.0 + 1e-12);
        sum += (last - first) * cover;
    });
    return sum;
}

double polygonArea(const std::vector<Vec>& corners)
{
    double twice = 0.0;
    for (std::size_t i = 0; i < corners.size(); ++i)
        twice += cross(corners[i], corners[(i + 1) % corners.size()]);
    return std::abs(twice) / 2.0;
}

// The part of a polygon at one side of a line x = border or y = border (Sutherland and Hodgman).
std::vector<Vec> clipped(const std::vector<Vec>& corners, bool alongX, double border, double side)
{
    const auto depth = [&](Vec p) { return side * ((alongX ? p.x : p.y) - border); };
    std::vector<Vec> out;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Vec a = corners[i], b = corners[(i + 1) % corners.size()];
        const double da = depth(a), db = depth(b);
        if (da >= 0.0) out.push_back(a);
        if ((da < 0.0) != (db < 0.0)) out.push_back(a + da / (da - db) * (b - a));
    }
    return out;
}

TEST(Coverage, OfAnyTriangleIsItsAreaOnThePage)
{
    constexpr int kWidth = 90, kHeight = 70;
    Coverage coverage(kWidth, kHeight);
    std::mt19937 engine(1);
    for (int i = 0; i < 3000; ++i) {
        const double reach = i % 3 == 0 ? 40.0 : i % 3 == 1 ? 200.0 : 5.0;
        std::uniform_real_distribution<double> at(-reach, reach + 50.0);
        std::vector<Vec> triangle;
        for (int k = 0; k < 3; ++k) {
            Vec p{at(engine), at(engine)};
            if (i % 5 == 0) p = {std::round(p.x), std::round(p.y)}; // on pixel corners
            triangle.push_back(p);
        }
        std::vector<Vec> seen = clipped(triangle, true, 0.0, 1.0);
        seen = clipped(seen, true, kWidth, -1.0);
        seen = clipped(seen, false, 0.0, 1.0);
        seen = clipped(seen, false, kHeight, -1.0);
        addPolygon(coverage, triangle);
        // Coverage below a thousandth is not handed over.
        ASSERT_NEAR(sweptArea(coverage, FillRule::nonZero), polygonArea(seen), 0.1) << i;
        ASSERT_EQ(sweptArea(coverage, FillRule::nonZero), 0.0) << "the page is not empty again";
    }
}

TEST(Coverage, FollowsTheFillRule)
{
    Coverage coverage(100, 100);
    const std::vector<Vec> outer{{10, 10}, {60, 10}, {60, 60}, {10, 60}};
    const std::vector<Vec> inner{{20, 20}, {40, 20}, {40, 40}, {20, 40}};
    addPolygon(coverage, outer);
    addPolygon(coverage, inner);
    EXPECT_NEAR(sweptArea(coverage, FillRule::nonZero), 2500.0, 1e-9);
    addPolygon(coverage, outer);
    addPolygon(coverage, inner);
    EXPECT_NEAR(sweptArea(coverage, FillRule::evenOdd), 2100.0, 1e-9);
}

double strokeArea(const Chords& run, double width, Ends ends, bool capped)
{
    Coverage coverage(400, 400);
    addStroke(coverage, run, width, ends, capped);
    return sweptArea(coverage, FillRule::nonZero);
}

TEST(Stroke, CoversLengthTimesWidthAndItsEnds)
{
    const Chords slanting{{{50.3, 60.1}, {350.3, 260.1}}, false};
    const double length = std::hypot(300.0, 200.0);
    for (const double width : {1.0, 2.0, 7.5, 40.0}) {
        SCOPED_TRACE(width);
        EXPECT_NEAR(strokeArea(slanting, width, Ends::round, false), length * width, 0.5);
        EXPECT_NEAR(strokeArea(slanting, width, Ends::round, true),
                    length * width + std::numbers::pi / 4.0 * width * width,
                    0.02 * width * width + 0.5);
    }
    const Chords dot{{{200.0, 200.0}}, false};
    EXPECT_NEAR(strokeArea(dot, 40.0, Ends::round, true), std::numbers::pi * 400.0, 10.0);
    EXPECT_EQ(strokeArea(dot, 40.0, Ends::sharp, true), 0.0);
}

TEST(Stroke, CornersAreClosedOnTheOuterSide)
{
    // A square frame: mitred corners are square, round ones lose a quarter disc against that each.
    const std::vector<Vec> corners{{100, 100}, {300, 100}, {300, 300}, {100, 300}};
    const std::vector<Vec> reversed(corners.rbegin(), corners.rend());
    for (const auto& points : {corners, reversed}) {
        const Chords frame{points, true};
        EXPECT_NEAR(strokeArea(frame, 20.0, Ends::sharp, true), 220.0 * 220 - 180 * 180, 0.5);
        EXPECT_NEAR(strokeArea(frame, 20.0, Ends::round, true),
                    220.0 * 220 - 180 * 180 - (4.0 - std::numbers::pi) * 100.0, 4.0);
    }
}

double drawnLength(const std::vector<Chords>& runs, std::size_t count)
{
    double sum = 0.0;
    for (std::size_t i = 0; i < count; ++i)
        for (std::size_t k = 1; k < runs[i].points.size(); ++k)
            sum += length(runs[i].points[k] - runs[i].points[k - 1]);
    return sum;
}

// The drawn pieces of a level line from x = 0.
std::vector<std::pair<double, double>> drawnPieces(const Dashes& dashes, double length)
{
    const Chords line{{{0.0, 1.0}, {length, 1.0}}, false};
    std::vector<Chords> out;
    const std::size_t count = cutDashes(line, dashes, {-1.0, 0.0, 1e6, 2.0, false}, out, 0);
    std::vector<std::pair<double, double>> pieces;
    for (std::size_t i = 0; i < count; ++i)
        pieces.emplace_back(out[i].points.front().x, out[i].points.back().x);
    return pieces;
}

TEST(Dashes, LinesKeepTheirPatternAndGiveTheRestToBothEnds)
{
    Dashes dashes;
    const std::vector<double> pattern{6.0, -2.0, 1.0, -2.0}; // twice as large: 12 4 2 4
    for (double length = 22.0; length < 300.0; length += 7.3) {
        SCOPED_TRACE(length);
        ASSERT_EQ(fitDashes(pattern, 2.0, length, true, 1.0, dashes), Fit::dashed);
        const auto pieces = drawnPieces(dashes, length);
        const std::size_t count = pieces.size(), patterns = std::size_t(length / 22.0);
        ASSERT_EQ(count, 2 * patterns + 1);
        const double end = pieces[0].second;
        EXPECT_EQ(pieces[0].first, 0.0);
        EXPECT_NEAR(pieces[count - 1].second, length, 1e-9);
        EXPECT_NEAR(pieces[count - 1].first, length - end, 1e-9) << "both ends alike";
        EXPECT_GE(end, 6.0 - 1e-9) << "half a dash at least";
        EXPECT_LT(end, 6.0 + 11.0);
        for (std::size_t i = 1; i + 1 < count; ++i) {
            EXPECT_NEAR(pieces[i].second - pieces[i].first, i % 2 == 1 ? 2.0 : 12.0, 1e-9);
            EXPECT_NEAR(pieces[i].first - pieces[i - 1].second, 4.0, 1e-9);
        }
        EXPECT_NEAR(dashes.origin, end - 12.0, 1e-9) << "where marks count from";
    }
    EXPECT_EQ(fitDashes(pattern, 2.0, 21.9, true, 1.0, dashes), Fit::none) << "too short";
}

TEST(Dashes, ClosedLinesGetWholePatternsFromTheMiddleOfADash)
{
    Dashes dashes;
    for (const double length : {40.0, 99.0, 100.0, 101.0, 1234.5}) {
        ASSERT_EQ(fitDashes({5.0, -2.0, 0.0, -2.0}, 2.0, length, false, 1.0, dashes), Fit::dashed);
        const double period = std::accumulate(dashes.lengths.begin(), dashes.lengths.end(), 0.0);
        const double repeats = length / period;
        EXPECT_NEAR(repeats, std::round(repeats), 1e-9) << length;
        EXPECT_EQ(dashes.offset, dashes.lengths[0] / 2.0);
    }
    ASSERT_EQ(fitDashes({-2.0, 5.0}, 1.0, 70.0, false, 1.0, dashes), Fit::dashed);
    EXPECT_EQ(dashes.lengths, (std::vector<double>{5.0, 2.0})) << "a gap in front moves behind";
    ASSERT_EQ(fitDashes({3.0, -2.0, 2.0}, 1.0, 70.0, false, 1.0, dashes), Fit::dashed);
    EXPECT_EQ(dashes.lengths, (std::vector<double>{5.0, 2.0}));
    for (const std::vector<double>& none : {std::vector<double>{}, {-5.0}, {0.5, -0.5}})
        EXPECT_EQ(fitDashes(none, 1.0, 100.0, false, 0.5, dashes), Fit::none);
    EXPECT_EQ(fitDashes({5.0, 3.0}, 1.0, 100.0, true, 1.0, dashes), Fit::unbroken);
}

TEST(Dashes, MarksStandWhereTheirElementEnds)
{
    LineType type{{6.0, -2.0, -2.0}, {}};
    type.marks.emplace_back().element = 1;
    Dashes dashes;
    ASSERT_EQ(fitDashes(type.lengths, 1.0, 47.0, true, 1.0, dashes), Fit::dashed);
    const Chords bent{{{0.0, 10.0}, {27.0, 10.0}, {27.0, 30.0}}, false};
    const Bounds page{0.0, 0.0, 100.0, 100.0, false};
    std::vector<MarkPlace> places;
    ASSERT_TRUE(markPlaces(bent, dashes, type, page, 100, places));
    ASSERT_EQ(places.size(), 4u);
    // Ends of 6.5: gaps of 4 begin at 6.5, 16.5 ...; each mark is in the middle of one.
    EXPECT_NEAR(places[0].at.x, 8.5, 1e-9);
    EXPECT_NEAR(places[1].at.x, 18.5, 1e-9);
    EXPECT_NEAR(places[2].at.y, 10.0 + 28.5 - 27.0, 1e-9);
    EXPECT_EQ(places[3].along, (Vec{0.0, 1.0}));
    places.clear();
    EXPECT_FALSE(markPlaces(bent, dashes, type, page, 2, places));
    EXPECT_LE(places.size(), 2u);
}

TEST(Dashes, CutsTheDrawnShareAndOnlyWhatThePageShows)
{
    Dashes dashes;
    dashes.lengths = {6.0, 4.0};
    dashes.offset = 3.0;
    const Bounds page{0.0, 0.0, 1000.0, 1000.0, false};
    std::vector<Chords> out;
    const Chords bent{{{100, 100}, {400, 100}, {400, 500}}, false};
    std::size_t count = cutDashes(bent, dashes, page, out, 0);
    EXPECT_NEAR(drawnLength(out, count), 700.0 * 0.6, 1e-9);
    // The dash at the corner is in one piece.
    EXPECT_TRUE(
        std::any_of(out.begin(), out.begin() + std::ptrdiff_t(count), [](const Chords& run) {
            return run.points.size() == 3 && run.points[1] == Vec{400, 100};
        }));
    const Chords ring{{{100, 100}, {400, 100}, {400, 500}, {100, 500}}, true};
    count = cutDashes(ring, dashes, page, out, 0);
    EXPECT_NEAR(drawnLength(out, count), 1400.0 * 0.6, 1e-9);
    const Chords endless{{{-1e15, 300.0}, {1e15, 300.0}}, false};
    count = cutDashes(endless, dashes, page, out, 0);
    EXPECT_NEAR(drawnLength(out, count), 600.0, 10.0);
    EXPECT_LE(count, 102u);
}

TEST(Crisp, LevelAndUprightLinesBeginAtPixels)
{
    Path path, crisp;
    path.moveTo({10.3, 20.2});
    path.lineTo({50.9, 20.2});
    path.lineTo({50.9, 70.7});
    path.lineTo({20.4, 40.4}); // slanting ends keep what no straight line asks of them
    makeCrisp(path, 1.0, crisp);
    EXPECT_EQ(crisp.pieces()[0].to, (Vec{10.3, 20.5}));
    EXPECT_EQ(crisp.pieces()[1].to, (Vec{50.5, 20.5}));
    EXPECT_EQ(crisp.pieces()[2].to, (Vec{50.5, 70.7}));
    EXPECT_EQ(crisp.pieces()[3].to, (Vec{20.4, 40.4}));
}

} // namespace
} // namespace orvald::picture
