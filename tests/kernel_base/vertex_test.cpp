// SPDX-License-Identifier: LicenseRef-ORVALD
// Points, maps, segments: the identities of their declarations over random input, near and far from
// the origin.
#include "kex_values.h"

#include "kex/matrix.h"

#include <limits>

namespace {

using kextest::Random;

/// A site plan in millimetres lies this far from the origin.
constexpr double kFar = 1e7;

TEST(Angle, IsNormalisedToOneTurn)
{
    using namespace KEX;
    EXPECT_EQ(g_ang(0.0), 0.0);
    EXPECT_FALSE(std::signbit(g_ang(-0.0)));
    EXPECT_EQ(g_ang(kTwoPi), 0.0);
    EXPECT_EQ(g_ang(-1e-12), 0.0); // noise below a full turn
    EXPECT_EQ(g_ang(-1e-300), 0.0);
    EXPECT_NEAR(g_ang(-kPi / 2), 1.5 * kPi, 1e-15);
    EXPECT_TRUE(std::isnan(g_ang(std::numeric_limits<double>::infinity())));
    Random random(3);
    for (int i = 0; i < 10000; ++i) {
        const double angle = random.from(-100, 100);
        const double turned = g_ang(angle);
        ASSERT_TRUE(turned >= 0.0 && turned < kTwoPi);
        ASSERT_NEAR(std::cos(turned), std::cos(angle), 1e-9);
        ASSERT_NEAR(std::sin(turned), std::sin(angle), 1e-9);
    }
    EXPECT_DOUBLE_EQ(g_ang_bulg(kPi), 1.0);
    EXPECT_DOUBLE_EQ(g_bulg_ang(-1.0), -kPi);
}

TEST(Vertex, ArcFromCentreGivesItsCentreRadiusAndLengthBack)
{
    Random random(4);
    for (int i = 0; i < 20000; ++i) {
        const CKexPoint3d centre = random.point(i % 2 == 0 ? 10.0 : kFar);
        const double radius = random.from(0.5, 1000) * (i % 3 == 0 ? -1 : 1);
        const double a1 = random.from(-7, 7);
        const double sweep = random.from(0.01, KEX::kTwoPi - 0.01);
        const double a2 = a1 + (radius < 0 ? -sweep : sweep);
        const CKexVertex arc(centre, radius, a1, a2);
        const double reach = std::abs(centre.x) + std::abs(centre.y) + std::abs(radius);
        // The chord is known to a few last bits of the coordinates; a short or nearly closed arc
        // carries that on to its centre by at most this much.
        const double lever = 1.0 / std::sin(std::min(sweep, KEX::kTwoPi - sweep) / 2);
        const double close = 8e-16 * reach * lever * lever;
        ASSERT_NEAR(arc.sweep(), radius < 0 ? -sweep : sweep, 1e-9);
        ASSERT_NEAR(arc.center().x, centre.x, close);
        ASSERT_NEAR(arc.center().y, centre.y, close);
        ASSERT_EQ(arc.center().z, centre.z);
        ASSERT_NEAR(arc.radius(), std::abs(radius), close);
        ASSERT_NEAR(arc.bulgLen(), std::abs(radius) * sweep, close * 7);
        const CKexPoint3d mid = arc.mid();
        ASSERT_NEAR((mid - arc.center()).lengthXY(), arc.radius(), close);
        ASSERT_NEAR(mid.distanceTo(arc.startPoint()), mid.distanceTo(arc.endPoint()), close);
    }
}

TEST(Vertex, ReversedHasTheSameShape)
{
    Random random(5);
    for (int i = 0; i < 5000; ++i) {
        const CKexPoint3d p = random.point(100), q(random.from(-9, 9), random.from(-9, 9), p.z);
        const double bulge = std::tan(random.from(-1.5, 1.5));
        const CKexVertex there(p, q, bulge), back(q, p, -bulge);
        const double scale = 1e-13 * (1 + there.radius());
        ASSERT_NEAR(there.bulgLen(), back.bulgLen(), scale);
        ASSERT_TRUE(there.mid().isEqualTo(back.mid(), scale));
        ASSERT_TRUE(there.center().isEqualTo(back.center(), scale));
    }
}

TEST(Vertex, KeepsItsSenseOfLeft)
{
    const CKexVertex half({0, 0}, {2, 0}, 1.0);
    EXPECT_EQ(half.center(), CKexPoint3d(1, 0));
    EXPECT_EQ(half.mid(), CKexPoint3d(1, -1)); // counter-clockwise, so the arc runs on the right
    EXPECT_GT(CKexVertex({0, 0}, {2, 0}, 0.5).center().y, 0.0);
    EXPECT_LT(CKexVertex({0, 0}, {2, 0}, 2.0).center().y, 0.0);
    EXPECT_NEAR(CKexVertex({0, 0}, {6, 0}, 1.0 / 3.0).radius(), 5.0, 1e-12);
    EXPECT_NEAR(CKexVertex({0, 0}, {6, 0}, 3.0).radius(), 5.0, 1e-12);
    const CKexVertex clockwise(CKexPoint3d(0, 0), -10, 0, -KEX::kPi / 2);
    EXPECT_NEAR(clockwise.sweep(), -KEX::kPi / 2, 1e-15);
    const CKexVertex none(CKexPoint3d(0, 0), 10, 1, 1); // never a full circle
    EXPECT_EQ(none.bulge(), 0.0);
    EXPECT_EQ(none.startPoint(), none.endPoint());
}

TEST(Vertex, LengthPassesSmoothlyIntoTheChordAndNeverOverflows)
{
    double before = 0.0;
    for (double bulge = 1e-18; bulge < 1e6; bulge *= 1.5) {
        const double length = CKexVertex({0, 0}, {1, 0}, bulge).bulgLen();
        ASSERT_GE(length, before * (1 - 4e-16)) << bulge; // a last bit may go back
        before = length;
    }
    // Nearly a full circle: bulge near infinity, chord near 0.
    const CKexVertex circle({10, 0}, {10, 1e-12}, 1e13);
    EXPECT_NEAR(circle.bulgLen() / circle.radius(), KEX::kTwoPi, 1e-9);
    EXPECT_TRUE(std::isfinite(CKexVertex({0, 0}, {1, 0}, 1e200).bulgLen()));
    EXPECT_DOUBLE_EQ(CKexVertex({0, 0, 0}, {3, 4, 12}).bulgLen(), 13.0);
    EXPECT_DOUBLE_EQ(CKexVertex({0, 0, 0}, {2, 0, 5}, 1.0).bulgLen(), KEX::kPi); // an arc lies flat
}

TEST(Vertex, SmallFeaturesFarOutKeepTheirShape)
{
    Random random(6);
    for (int i = 0; i < 2000; ++i) {
        const double bulge = random.from(-2, 2);
        const CKexVector3d chord(random.from(-2e-3, 2e-3), random.from(-2e-3, 2e-3));
        const CKexPoint3d start = random.point(kFar);
        const CKexPoint3d end = start + chord;
        const CKexVertex far(start, end, bulge), near({}, CKexPoint3d() + (end - start), bulge);
        ASSERT_EQ(far.bulgLen(), near.bulgLen());
        ASSERT_TRUE((far.mid() - start - near.mid().asVector()).length() < 4e-9);
        ASSERT_TRUE(((far.center() - start) - near.center().asVector()).length() < 4e-9);
    }
}

CKexVertexArray square()
{
    const CKexPoint3d corner[] = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
    CKexVertexArray list;
    for (int i = 0; i < 4; ++i) list.append(CKexVertex(corner[i], corner[(i + 1) % 4]));
    return list;
}

TEST(VertexArray, TellsClosedFromOpenAndFromGaps)
{
    CKexVertexArray list = square();
    EXPECT_TRUE(list.isClosed());
    EXPECT_EQ(list.geomLength(), 40.0);
    EXPECT_EQ(list.pts().length(), 5); // the first point is repeated
    list.removeAt(1);
    EXPECT_EQ(list.numOpens(), 1);
    EXPECT_FALSE(list.isClosed());
    EXPECT_EQ(list.pts().length(), 5); // both ends at the gap
    EXPECT_EQ(list.pts()[1], CKexPoint3d(10, 0));
    EXPECT_EQ(list.pts()[2], CKexPoint3d(10, 10));
    EXPECT_EQ(list.geomLength(), 30.0);

    list = square();
    list.last().setEndPoint({0, 0.5 * CKexPoint3d::tol});
    EXPECT_TRUE(list.isClosed());
    list.last().setEndPoint({0, 2 * CKexPoint3d::tol});
    EXPECT_FALSE(list.isClosed());
    EXPECT_TRUE(list.isClosed(0.01));

    const CKexVertexArray loop{CKexVertex({0, 0}, {0, 0}, 5.0)};
    EXPECT_FALSE(loop.isClosed()); // one segment never closes on itself
    EXPECT_EQ(CKexVertexArray().pts().length(), 0);
    EXPECT_THROW(list[4], CKexString); // a broken promise, never a wild read
    EXPECT_THROW(list[-1], CKexString);
}

TEST(Matrix, ProductInverseAndRotationAgree)
{
    Random random(7);
    for (int i = 0; i < 2000; ++i) {
        const CKexMatrix3d a = CKexMatrix3d::rotation(random.from(-4, 4),
                                                      random.point(1).asVector(), random.point(50));
        const CKexMatrix3d b =
            CKexMatrix3d::coordSystem(random.point(50), random.point(2).asVector(),
                                      random.point(2).asVector(), {0.3, 0.1, 1});
        const CKexPoint3d p = random.point(20);
        ASSERT_TRUE(((a * b) * p).isEqualTo(a * (b * p), 1e-9));
        ASSERT_NEAR(a.det(), 1.0, 1e-12);
        const std::optional<CKexMatrix3d> back = a.inverse();
        ASSERT_TRUE(back.has_value());
        ASSERT_TRUE((*back * (a * p)).isEqualTo(p, 1e-10));
    }
    const CKexMatrix3d quarter = CKexMatrix3d::rotation(KEX::kPi / 2, {0, 0, 7}, {1, 0});
    EXPECT_TRUE((quarter * CKexPoint3d(2, 0)).isEqualTo({1, 1}, 1e-15));
    EXPECT_TRUE((quarter * CKexPoint3d(1, 0, 3)).isEqualTo({1, 0, 3}, 1e-15));
    const CKexMatrix3d flat = CKexMatrix3d::coordSystem({}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0});
    EXPECT_FALSE(flat.inverse().has_value());
}

} // namespace
