// SPDX-License-Identifier: LicenseRef-ORVALD
// Vectors, planes, matrices and lists of points: the laws of their declarations over random input.
#include "kex_values.h"

#include "kex/elevation.h"
#include "kex/frame.h"
#include "kex/polygon.h"
#include "kex/shapes.h"

#include <algorithm>
#include <limits>

namespace {

using kextest::Random;
using namespace KEX;

constexpr double kTol = 1e-4;
constexpr double kTolAngle = 1e-6;

CKexVector3d vectorOf(Random& random) { return random.point(9).asVector(); }

TEST(Vector, AnglesAndTurnsAgree)
{
    Random random(31);
    for (int i = 0; i < 10000; ++i) {
        const CKexVector3d a = vectorOf(random), axis = vectorOf(random);
        const double angle = random.from(-3.1, 3.1);
        const CKexVector3d turned = g_vc_rot(a, axis, angle);
        ASSERT_NEAR(turned.length(), a.length(), 1e-13);
        ASSERT_NEAR(g_vc_ang(a, turned, axis), angle, 1e-9);
        ASSERT_EQ(g_vc_ang(turned, a, axis), -g_vc_ang(a, turned, axis));
        ASSERT_NEAR(g_vc_ang(a, turned), g_vc_ang(turned, a), 1e-13);
        ASSERT_EQ(g_vc_ang(a, axis * random.from(-2, 2), axis),
                  0.0); // along the axis: no direction
        ASSERT_EQ(g_vc_par(a, a * random.from(0.1, 5), kTolAngle), 1);
        ASSERT_EQ(g_vc_par(a, a * -2.0, kTolAngle), -1);
        const CKexVector3d moved = (*g_mtx_rot(angle, std::nullopt, axis)) * a;
        ASSERT_LT((moved - turned).length(), 1e-13);
    }
}

TEST(Plane, DistancesProjectionsAndIntersectionsFit)
{
    Random random(32);
    for (int i = 0; i < 10000; ++i) {
        const double reach = i % 2 == 0 ? 50 : 1e7;
        const CKexVector3d far = random.point(reach).asVector();
        const auto point = [&] { return random.point(50) + far; };
        const double bit = 1e-15 * reach;
        const CKexPoint3d p1 = point(), p2 = point(), p3 = point(), p = point(), q = point();
        const auto plane = g_plan_3p(p1, p2, p3);
        ASSERT_TRUE(plane.has_value());
        for (const CKexPoint3d& own : {p1, p2, p3})
            ASSERT_NEAR(g_plan_dist(own, *plane), 0.0, 1e-12);
        ASSERT_TRUE(g_plan_equal(*plane, *g_plan_3p(p2, p3, p1), true, kTol, kTolAngle));
        ASSERT_FALSE(g_plan_equal(*plane, *g_plan_3p(p2, p1, p3), true, kTol, kTolAngle));
        ASSERT_TRUE(g_plan_equal(*plane, *g_plan_3p(p2, p1, p3), false, kTol, kTolAngle));
        const CKexVector3d direction = vectorOf(random);
        if (const auto foot = g_plan_proj(p, *plane, direction, kTolAngle)) {
            const double steep = std::abs(plane->normal.dot(direction)) / direction.length();
            ASSERT_NEAR(g_plan_dist(*foot, *plane), 0.0, 1e-12 / steep + 8 * bit);
            ASSERT_LE((*foot - p).cross(direction.normal()).length(), 1e-12 / steep + 8 * bit);
        }
        if (const auto hit = g_plan_int_l(*plane, p, q, false, kTol, kTolAngle)) {
            const double off = (*hit - p).length();
            ASSERT_NEAR(g_plan_dist(*hit, *plane), 0.0, 1e-14 * off + 1e-12 + 8 * bit);
            const bool between = g_plan_dist(p, *plane) * g_plan_dist(q, *plane) < -1e-3;
            if (between) {
                ASSERT_TRUE(g_plan_int_l(*plane, p, q, true, kTol, kTolAngle).has_value());
            }
        }
        const Plane other = *g_plan_3p(p, q, p1);
        if (const auto line = g_plan_int(*plane, other, kTolAngle)) {
            const double sine = plane->normal.cross(other.normal).length();
            for (const CKexPoint3d& on : {line->start, line->end}) {
                const double bound = (1e-12 + 1e-14 * (on - p1).length()) / sine + 8 * bit;
                ASSERT_NEAR(g_plan_dist(on, *plane), 0.0, bound);
                ASSERT_NEAR(g_plan_dist(on, other), 0.0, bound);
            }
            const CKexVector3d along = line->end - line->start;
            ASSERT_NEAR(along.dot(line->start.asVector()), 0.0,
                        1e-7 * (1 + line->start.asVector().length()));
            ASSERT_NEAR(std::abs(g_plan_ang(*plane, other, along)), g_plan_ang(*plane, other),
                        1e-8);
        }
        const CKexMatrix3d frame = *g_plan_mtx(*plane, std::nullopt, kTolAngle);
        ASSERT_NEAR(frame.det(), 1.0, 1e-12);
        ASSERT_TRUE(g_plan_equal(*g_mtx_plan(frame), *plane, true, 1e-9, 1e-12));
    }
}

TEST(Matrix, MapsKeepWhatTheyMustKeep)
{
    Random random(33);
    for (int i = 0; i < 5000; ++i) {
        const CKexPoint3d a = random.point(50), b = random.point(50), c = random.point(50),
                          p = random.point(50);
        const CKexMatrix3d mirror = *g_mtx_mir(a, b, i % 2 == 0 ? std::optional(c) : std::nullopt);
        ASSERT_TRUE(g_mtx_is_mir(mirror));
        ASSERT_TRUE(g_mtx_equal(mirror * mirror, CKexMatrix3d(), 1e-11, 1e-13));
        ASSERT_TRUE((mirror * a).isEqualTo(a, 1e-12) && (mirror * b).isEqualTo(b, 1e-12));
        const CKexMatrix3d turn = *g_mtx_rot(random.from(-9, 9), a, b - a);
        ASSERT_TRUE((turn * b).isEqualTo(b, 1e-11));
        ASSERT_FALSE(g_mtx_is_mir(turn));
        ASSERT_TRUE(g_mtx_equal(turn * *g_mtx_inv(turn), CKexMatrix3d(), 1e-11, 1e-13));
        const CKexMatrix3d scale = g_mtx_scale({2, 3, -4}, a);
        ASSERT_TRUE((scale * a).isEqualTo(a, 1e-12));
        ASSERT_NEAR(scale.det(), -24.0, 1e-12);
        const CKexMatrix3d frame = *g_mtx_3p(a, b, c);
        const CKexPoint3d inFrame = *g_mtx_inv(frame) * c;
        ASSERT_TRUE(inFrame.y > 0 && std::abs(inFrame.z) < 1e-11);
        const CKexMatrix3d ocs = *g_mtx_ocs(b - a, c);
        ASSERT_EQ(g_vc_par(g_mtx_column(ocs, 2), b - a, 1e-12), 1);
        ASSERT_NEAR(ocs.det(), 1.0, 1e-12);
        ASSERT_TRUE(ocs(2, 0) == 0.0 || std::abs(ocs(2, 2)) > 0.999); // X lies level but near Z
        const CKexMatrix3d view = g_elev_mtx(random.from(0, 7), p);
        ASSERT_TRUE((view * p).isEqualTo({}, 1e-12));
        ASSERT_NEAR(view.det(), 1.0, 1e-12);
    }
}

CKexPoint3dArray cloud(Random& random, int count, double reach)
{
    CKexPoint3dArray points;
    for (int i = 0; i < count; ++i) points.append(random.point(reach));
    return points;
}

TEST(Points, HullHoldsAllPointsAndIsConvex)
{
    Random random(34);
    for (int i = 0; i < 300; ++i) {
        CKexPoint3dArray points = cloud(random, 3 + random.below(200), i % 2 == 0 ? 50 : 1e7);
        if (i % 3 == 0) { // a grid has many on a line
            for (CKexPoint3d& p : points) p = {std::round(p.x / 10), std::round(p.y / 10)};
        }
        const CKexPoint3dArray hull = g_pl_hull(points);
        const auto lowest = *std::ranges::min_element(points, {}, &CKexPoint3d::y);
        ASSERT_EQ(hull[0].y, lowest.y);
        if (hull.length() < 3) continue;
        for (int n = 0; n < hull.length(); ++n) {
            const CKexPoint3d &a = hull[n], &b = hull[(n + 1) % hull.length()],
                              &c = hull[(n + 2) % hull.length()];
            ASSERT_GT(crossXY(b - a, c - b), 0.0);
        }
        for (const CKexPoint3d& p : points) ASSERT_GE(g_pl_inside(hull, p, 1e-6), 0) << i;
    }
}

TEST(Points, SectionPropertiesDoNotDependOnPlaceSenseOrStart)
{
    Random random(35);
    for (int i = 0; i < 500; ++i) {
        CKexPoint3dArray points = g_pl_hull(cloud(random, 12, 50));
        const Statics here = *g_pl_statics(points);
        CKexPoint3dArray moved = g_pl_mtx(points, g_mtx_move({1e6, -2e6, 0}));
        std::reverse(moved.begin(), moved.end());
        std::rotate(moved.begin(), moved.begin() + 1, moved.end());
        const Statics there = *g_pl_statics(moved);
        const double size2 = 1e4 * here.area;
        ASSERT_NEAR(there.area, here.area, 1e-9 * 1e4);
        ASSERT_NEAR(there.ix, here.ix, 1e-9 * size2);
        ASSERT_NEAR(there.ixy, here.ixy, 1e-9 * size2);
        ASSERT_TRUE(there.centroid.isEqualTo(here.centroid + CKexVector3d(1e6, -2e6), 1e-8));
        ASSERT_NEAR(here.i1() + here.i2(), here.ix + here.iy, 1e-12 * size2);
        // Turned by alpha the product of inertia is gone and Ix is the larger one.
        const CKexMatrix3d back = *g_mtx_rot(-here.alpha(), std::nullopt, std::nullopt);
        const Statics turned = *g_pl_statics(g_pl_mtx(points, back));
        ASSERT_NEAR(turned.ixy, 0.0, 1e-10 * size2);
        ASSERT_NEAR(turned.ix, here.i1(), 1e-10 * size2);
        ASSERT_TRUE(here.centroid.isEqualTo(
            *g_pl_cen(points) - CKexVector3d(0, 0, g_pl_cen(points)->z), 1e-9));
    }
}

TEST(Points, UniqueSortedAndThinnedListsKeepTheirPromises)
{
    Random random(36);
    for (int i = 0; i < 200; ++i) {
        const double tol = i % 5 == 0 ? 0.0 : random.from(0.01, 3);
        CKexPoint3dArray points = cloud(random, 80, 9);
        points.append(points[3]);
        const CKexPoint3dArray kept = g_pl_uniq(points, tol);
        CKexPoint3dArray plain; // the definition
        for (const CKexPoint3d& p : points) {
            const bool near = std::ranges::any_of(
                plain, [&](const CKexPoint3d& q) { return p.distanceTo(q) < tol || p == q; });
            if (!near) plain.append(p);
        }
        ASSERT_EQ(kept, plain);
        const double angle = random.from(0, 7);
        const CKexPoint3dArray sorted = g_pl_sort(points, angle, false, kTol);
        ASSERT_EQ(sorted.length(), points.length());
        for (int n = 1; n < sorted.length(); ++n) {
            ASSERT_GE(dotXY(directionOf(angle), sorted[n] - sorted[n - 1]), -kTol);
        }
        CKexPoint3dArray wave;
        for (int n = 0; n < 200; ++n)
            wave.append({n * 0.1, std::sin(n * 0.1) * 3 + random.from(-0.01, 0.01)});
        const double dif = random.from(0.001, 0.5);
        const CKexPoint3dArray thin = g_pl_thin(wave, dif);
        ASSERT_EQ(thin.first(), wave.first());
        ASSERT_EQ(thin.last(), wave.last());
        for (const CKexPoint3d& p : wave) {
            bool near = false;
            for (int n = 1; n < thin.length(); ++n)
                near = near || g_line_pt(thin[n - 1], thin[n], p, dif + 1e-12);
            ASSERT_TRUE(near);
        }
    }
    // Cells far below the last bit of a coordinate.
    CKexPoint3dArray many{CKexPoint3d(1e300, 0), CKexPoint3d(1e300, 0), CKexPoint3d(-1e300, 1)};
    EXPECT_EQ(g_pl_uniq(many, 1e-4).length(), 2);
    EXPECT_TRUE(g_pl_colin(g_pl_uniq(many, 0.0), 1e-4));
}

TEST(Points, TakeAnyNumbers)
{
    const double awkward[] = {0.0, 1e-320, -1e-5, 1.0, 1e160, -1e308, 1e308 * 10, std::nan("")};
    Random random(37);
    for (int i = 0; i < 3000; ++i) {
        const auto number = [&] { return awkward[random.below(8)]; };
        CKexPoint3dArray points;
        for (int n = random.below(8); n > 0; --n) points.append({number(), number(), number()});
        const double a = number();
        g_pl_hull(points);
        g_pl_uniq(points, a);
        g_pl_sort(points, a, true);
        g_pl_thin(points, a);
        g_pl_colin(points, a);
        g_pl_plan(points, a);
        g_pl_cen(points);
        g_pl_statics(points);
        g_pl_inside(points, {a, number()});
        g_pl_vl(points, true, {a, number()});
        if (points.length() < 4) continue;
        if (const auto plane = g_plan_3p(points[0], points[1], points[2])) {
            g_plan_int_l(*plane, points[2], points[3], true, kTol, kTolAngle);
            g_plan_mtx(*plane, points[3].asVector(), kTolAngle);
            g_plan_int(*plane, Plane{points[3], {0, 1, 0}}, kTolAngle);
        }
        g_mtx_mir(points[0], points[1], points[2]);
        g_vc_ang(points[0].asVector(), points[1].asVector(), points[2].asVector());
    }
}

} // namespace
