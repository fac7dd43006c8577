// SPDX-License-Identifier: LicenseRef-ORVALD
// Curves and picking on entities that no sound program writes: every question is answered, in time,
// and what is answered lies on the curve. The values themselves are checked by LISP cases.
#include "drawing/curve.h"
#include "drawing/picking.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <limits>
#include <random>

using namespace orvald::drawing;

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kOdd[] = {0.0,  -0.0, 1.0,  -1.0, 0.5,   1e-300,    1e300, -1e300,
                           kInf, kNan, 1e15, 1e-9, 3.0e7, 6.2831853, -7.0,  1e9};
constexpr Kind kKinds[] = {Kind::line,    Kind::ray,        Kind::xline,  Kind::arc,   Kind::circle,
                           Kind::ellipse, Kind::lwpolyline, Kind::spline, Kind::leader};

class Odd
{
public:
    explicit Odd(unsigned seed) : random_(seed) {}
    int below(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }
    double real() { return below(3) == 0 ? kOdd[below(std::size(kOdd))] : below(100) / 8.0; }
    Point point() { return {real(), real(), below(2) == 0 ? 0.0 : real()}; }

    Record entity()
    {
        Record record(kKinds[below(std::size(kKinds))], Family::entity);
        TagList& tags = record.tags;
        tags.addInteger(70, below(12));
        tags.addInteger(71, below(30));
        for (int i = below(12); i >= 0; --i) {
            const bool knots = record.kind() == Kind::spline && below(2) == 0;
            tags.addReal(40, knots ? i * 1.0 : real());
        }
        for (int i = below(8); i >= 0; --i) {
            tags.addPoint(10, point());
            if (below(2) == 0) tags.addReal(42, real());
        }
        tags.addPoint(11, point());
        for (const int angle : {50, 51, 41}) tags.addReal(angle, real());
        if (below(3) == 0) tags.addPoint(210, point());
        return record;
    }

private:
    std::mt19937 random_;
};

void askEverything(const Curve& curve, Odd& odd)
{
    curve.isClosed();
    curve.area();
    for (int i = 0; i < 4; ++i) {
        const double t = odd.real();
        curve.at(t);
        curve.lengthTo(t);
        curve.parameterAtLength(t);
        const Point place = odd.point(), normal = odd.point();
        curve.nearest(place, i % 2 == 0);
        curve.nearest(place, i % 2 == 0, &normal);
        curve.parameterOf(place);
    }
}

TEST(Curves, OfDamagedEntitiesAnswerInTime)
{
    const auto start = std::chrono::steady_clock::now();
    for (unsigned seed = 0; seed < 1500; ++seed) {
        SCOPED_TRACE(seed);
        Odd odd(seed);
        Drawing drawing;
        const Index entity = drawing.add(odd.entity());
        if (const auto curve = Curve::of(drawing, entity)) askEverything(*curve, odd);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
}

TEST(Curves, TheFootOfAPointIsNoFartherThanAnyOtherPoint)
{
    for (unsigned seed = 0; seed < 300; ++seed) {
        SCOPED_TRACE(seed);
        Odd odd(seed);
        Drawing drawing;
        SplineView spline;
        Record record(Kind::spline, Family::entity);
        record.tags.addInteger(71, 3);
        for (const int knot : {0, 0, 0, 0, 1, 2, 3, 3, 3, 3}) record.tags.addReal(40, knot);
        for (int i = 0; i < 6; ++i)
            record.tags.addPoint(10,
                                 {odd.below(40) / 4.0, odd.below(40) / 4.0, odd.below(8) / 4.0});
        const auto curve = Curve::of(drawing, drawing.add(std::move(record)));
        ASSERT_TRUE(curve);
        const Point place{odd.below(40) / 4.0, odd.below(40) / 4.0, 0.0};
        const double least = length(curve->nearest(place, false) - place);
        for (int i = 0; i <= 3000; ++i)
            ASSERT_LE(least, length(curve->at(i / 1000.0)->at - place) + 1e-9);
    }
}

TEST(Picking, AmongDamagedEntitiesAnswersInTime)
{
    const Point border[] = {{0, 0, 0}, {9, 0, 0}, {9, 9, 0}, {0, 9, 0}};
    for (unsigned seed = 0; seed < 200; ++seed) {
        SCOPED_TRACE(seed);
        Odd odd(seed);
        const auto made = Drawing::createNew();
        Drawing& drawing = *made;
        for (int i = 0; i < 5; ++i)
            drawing.appendChild(drawing.currentSpace(), drawing.add(odd.entity()));
        for (const Border how : {Border::window, Border::crossing, Border::fence})
            EXPECT_LE(entitiesIn(drawing, how, border, {}).size(), 5u);
        entityAt(drawing, {1.0, 1.0, 0.0}, 0.5, {});
        entityAt(drawing, odd.point(), 1e-12, {});
    }
}

} // namespace
