// SPDX-License-Identifier: LicenseRef-ORVALD
// Angles, arcs and rounding: the identities and error bounds of their declarations over random and
// near-degenerate input. Exact values come from long double, whose last bit is 2000 times finer.
#include "kex_values.h"

#include "kex/arc.h"
#include "kex/rounding.h"

#include <limits>
#include <vector>

namespace {

using kextest::Random;
using namespace KEX;

constexpr double kEps = std::numeric_limits<double>::epsilon();
constexpr double kFar = 1e7; // a site plan in millimetres
using Exact = long double;

/// 2π as g_ang has it, for references.
constexpr Exact kTurn = kTwoPi;

TEST(Angle, SignedDifferencesAreOddButForTheHalfTurn)
{
    EXPECT_EQ(g_dw1(0.0, kPi), kPi);
    EXPECT_EQ(g_dw1(kPi, 0.0), kPi);
    EXPECT_EQ(g_dw1(0.3, 0.3 - 5 * kPi), kPi);
    EXPECT_EQ(g_dw1(1.0, 1.0 - 0x1p-40), -0x1p-40); // no noise is cut here
    EXPECT_TRUE(std::isnan(g_dw1(0.0, std::numeric_limits<double>::infinity())));
    Random random(11);
    for (int i = 0; i < 20000; ++i) {
        const double a = random.from(-20, 20), b = random.from(-20, 20);
        const double turn = g_dw1(a, b);
        ASSERT_TRUE(turn > -kPi && turn <= kPi);
        ASSERT_NEAR(std::remainder(a + turn - b, kTwoPi), 0.0, 1e-14);
        ASSERT_EQ(g_dw1(b, a), turn == kPi ? kPi : -turn);
        ASSERT_TRUE(g_w_halb(a, b) >= 0.0 && g_w_halb(a, b) < kPi);
        ASSERT_NEAR(std::abs(g_dw1(g_w_mid(a, b), g_w_mid(b, a))), kPi, 1e-12);
        ASSERT_NEAR(g_qw(a), g_qw(kPi - a), 1e-14);
    }
}

TEST(Angle, PartsOfTheTurnAreCountedFromOne)
{
    for (int n = 0; n < 24; ++n) {
        const double boundary = n * kPi / 4 - 2 * kTwoPi;
        ASSERT_EQ(g_oktant(boundary, 1e-6), n % 8 + 1) << n;
        ASSERT_EQ(g_oktant(boundary - 1e-5, 1e-6), (n + 7) % 8 + 1) << n;
        ASSERT_EQ(g_sextant(n * kPi / 3 - 9e-7, 1e-6), n % 6 + 1) << n;
    }
    for (const double odd : {std::numeric_limits<double>::quiet_NaN(), 1e308 * 10}) {
        EXPECT_EQ(g_oktant(odd, 1e-6), 0);
        EXPECT_GE(g_oktant(1.0, odd), 1); // whatever the tolerance
    }
}

/// The angle opposite c from the cosine's half-angle form in extended precision.
Exact triangleAngle(Exact a, Exact b, Exact c)
{
    const Exact under = (a + b + c) * (a + b - c), over = (c - (a - b)) * (c + (a - b));
    if (under <= 0) return acosl(-1.0L);
    return over <= 0 ? 0 : 2 * atanl(sqrtl(over / under));
}

TEST(Angle, NeedlesOfTrianglesKeepTheirAngle)
{
    Random random(12);
    for (int i = 0; i < 20000; ++i) {
        const double a = std::exp(random.from(-3, 16)), b = a * std::exp(random.from(-1, 1));
        const double slack = std::exp(random.from(-30, 0)); // how flat
        double c = i % 2 == 0 ? std::abs(a - b) + a * slack : (a + b) * (1 - slack / 2);
        if (i % 50 == 0) c = a + b;
        const Exact exact = triangleAngle(a, b, c);
        ASSERT_LE(std::abs(g_w_3eck(a, b, c) - exact), 8 * kEps * exact)
            << a << ' ' << b << ' ' << c;
    }
    EXPECT_EQ(g_w_3eck(0, 1, 1), 0.0);
    EXPECT_EQ(g_w_3eck(1, 1, 0), 0.0);
    EXPECT_NEAR(g_w_3eck(-3, 4, 5), kPi / 2, 1e-15);
    EXPECT_NEAR(g_w_3eck(-1, 1, 1), 2 * kPi / 3, 1e-15); // as the cosine has it
}

TEST(Direction, AnglesOfThreePointsAgree)
{
    Random random(13);
    for (int i = 0; i < 20000; ++i) {
        const CKexPoint3d p2 = random.point(i % 2 == 0 ? 10 : kFar);
        const CKexPoint3d p1 = p2 + random.point(1).asVector();
        CKexPoint3d p3 = p2 + random.point(1).asVector();
        if (i % 3 == 0) p3 = p2 + (p2 - p1) * random.from(0.1, 3); // a path that goes on
        const double turned = g_delta_w1(p1, p2, p3);
        ASSERT_NEAR(g_ang(turned), g_delta_w(p1, p2, p3), 1e-15);
        ASSERT_NEAR(g_dw1(turned + kPi, g_delta_w2(p1, p2, p3)), 0.0, kAngleNoise);
        ASSERT_NEAR(g_dw1(acutAngle(p2, p3), acutAngle(p2, p1) + turned), 0.0, kAngleNoise);
        const CKexVector3d a = p1 - p2, b = p3 - p2;
        const Exact cx = (Exact)a.y * b.z - (Exact)a.z * b.y,
                    cy = (Exact)a.z * b.x - (Exact)a.x * b.z,
                    cz = (Exact)a.x * b.y - (Exact)a.y * b.x;
        const Exact dot = (Exact)a.x * b.x + (Exact)a.y * b.y + (Exact)a.z * b.z;
        const Exact space = atan2l(sqrtl(cx * cx + cy * cy + cz * cz), dot);
        ASSERT_LE(std::abs(g_aabs(p1, p2, p3) - space), 4 * kEps * (1 + space));
    }
    const CKexPoint3d o, x(1, 0), back(-3, -0.0);
    EXPECT_EQ(g_delta_w1(x, o, back), kPi); // the sign of a zero does not turn it round
    EXPECT_EQ(g_delta_w1(back, o, x), kPi);
    EXPECT_EQ(g_delta_w(o, o, x), 0.0);
    EXPECT_EQ(g_aabs(o, CKexPoint3d(0, 0, 0.00005), x), 0.0);
}

struct ExactArc
{
    Exact x, y, radius, bulge;
};

/// Circle and bulge through three points in extended precision.
ExactArc exactArc(const CKexPoint3d& p1, const CKexPoint3d& p2, const CKexPoint3d& p3)
{
    const Exact ux = (Exact)p1.x - p2.x, uy = (Exact)p1.y - p2.y, vx = (Exact)p3.x - p2.x,
                vy = (Exact)p3.y - p2.y, cx = (Exact)p3.x - p1.x, cy = (Exact)p3.y - p1.y;
    const Exact cross = ux * vy - uy * vx, dot = ux * vx + uy * vy, k = dot / cross / 2;
    const Exact x = p1.x + cx / 2 - cy * k, y = p1.y + cy / 2 + cx * k;
    return {x, y, hypotl(x - p1.x, y - p1.y), tanl(atan2l(-cross, -dot) / 2)};
}

TEST(Arc, ThroughThreePointsHoldsItsErrorBoundsNearAndFar)
{
    Random random(14);
    double worstCentre = 0.0, worstBulge = 0.0;
    for (int i = 0; i < 40000; ++i) {
        const double reach = i % 2 == 0 ? 100.0 : kFar;
        const CKexPoint3d centre = random.point(reach);
        const double r = std::exp(random.from(-4, 9)), a = random.from(0, 7);
        const double sweep = i % 3 == 0 ? random.from(1e-3, 0.1) : random.from(0.1, 6.2);
        CKexPoint3d p1 = polar(centre, a, r),
                    p2 = polar(centre, a + sweep * random.from(0.2, 0.8), r),
                    p3 = polar(centre, a + sweep, r);
        if (i % 5 == 0) std::swap(p1, p3);
        const ExactArc exact = exactArc(p1, p2, p3);
        CKexPoint3d found;
        double bulge = 0.0;
        if (!g_arc3p_cen(p1, p2, p3, found)) { // flat: then the bulge is 0, or there is none
            ASSERT_TRUE(!g_arc3p_bulg(p1, p2, p3, bulge) || bulge == 0.0);
            continue;
        }
        ASSERT_TRUE(g_arc3p_bulg(p1, p2, p3, bulge));
        const double far =
            std::max({std::abs(p1.x), std::abs(p1.y), std::abs(found.x), std::abs(found.y)});
        const double chord = (p3 - p1).lengthXY(), radius = static_cast<double>(exact.radius);
        const double centreError = (double)hypotl(found.x - exact.x, found.y - exact.y);
        worstCentre = std::max(worstCentre, centreError / (kEps * (radius * radius / chord + far)));
        const double bulgeError = (double)fabsl(bulge - exact.bulge);
        worstBulge = std::max(worstBulge, bulgeError / (kEps * (1 + bulge * bulge)));
        ASSERT_EQ(found.z, p1.z);
        double back = 0.0;
        ASSERT_TRUE(g_arc3p_bulg(p3, p2, p1, back));
        ASSERT_NEAR(back, -bulge, 8 * kEps * (1 + bulge * bulge));
    }
    EXPECT_LE(worstCentre, 4.0);
    EXPECT_LE(worstBulge, 8.0);
}

TEST(Arc, OfARadiusHasItWhateverTheChord)
{
    Random random(15);
    double worst = 0.0;
    for (int i = 0; i < 20000; ++i) {
        const CKexPoint3d p1 = random.point(100);
        const CKexPoint3d p2 = polar(p1, random.from(0, 7), std::exp(random.from(-5, 10)));
        const double chord = (p2 - p1).lengthXY();
        const double r = 0.5 * chord * (1 + std::exp(random.from(-34, 8))) * (i % 2 == 0 ? 1 : -1);
        double minor = 0.0, major = 0.0;
        ASSERT_TRUE(g_arcrad_bulg(minor, r, p1, p2, 0.0));
        ASSERT_TRUE(g_arcrad_bulg(major, r, p1, p2, -2.0));
        ASSERT_NEAR(minor * major, 1.0, 1e-15);
        const Exact dx = (Exact)p2.x - p1.x, dy = (Exact)p2.y - p1.y, k = hypotl(dx, dy) / 2 / r;
        const Exact exact = tanl(asinl(std::clamp<Exact>(k, -1, 1)) / 2);
        // At the half circle the bulge changes with the square root of what the chord loses.
        const Exact steep = 1 + 1 / sqrtl(std::max<Exact>(1 - k * k, 1e-16L));
        worst = std::max(worst, (double)(fabsl(minor / exact - 1) / steep));
        ASSERT_EQ(std::signbit(minor), r < 0);
    }
    EXPECT_LE(worst, 8 * kEps);
}

TEST(Arc, AboutACentreTakesTheShorterWay)
{
    Random random(16);
    for (int i = 0; i < 10000; ++i) {
        const CKexPoint3d centre = random.point(100);
        const double r = random.from(0.1, 50), a1 = random.from(-7, 7), a2 = random.from(-7, 7);
        const CKexPoint3d p1 = polar(centre, a1, r), p2 = polar(centre, a2, 2 * r);
        ASSERT_NEAR(g_arcmp_bulg(p1, p2, centre), g_ang_bulg(g_dw1(a1, a2)), 1e-11);
        ASSERT_NEAR(g_arc_bulg(a1, a2) * g_arc_bulg(a2, a1), 1.0, 1e-9);
        const CKexVertex arc(centre, r, a1, a2);
        ASSERT_NEAR(g_arc_len(r, a1, a2), arc.bulgLen(), 1e-8 * r);
        ASSERT_TRUE(g_arc_mid(centre, r, a1, a2).isEqualTo(arc.mid(), 1e-9 * r));
        ASSERT_TRUE(
            g_arc_mid(centre, -r, a1, a2).isEqualTo(g_arc_mid(centre, r, a2, a1), 1e-9 * r));
        ASSERT_NEAR(g_bulg_len(arc.startPoint(), arc.endPoint(), arc.mid(), 1e-12), arc.bulgLen(),
                    1e-6 * r);
    }
}

TEST(Rounding, GivesTheNearestMultipleAndTakesDecimalHalvesForHalves)
{
    Random random(17);
    for (int i = 0; i < 20000; ++i) {
        const double steps[] = {0.001, 0.01, 0.05, 0.1, 0.25, 1.0, 2.5, 5.0, 12.5, 0.3, 25.4};
        const double step = steps[random.below(11)];
        const double x = random.from(-1, 1) * std::exp(random.from(0, 16));
        const double rounded = round(x, step);
        const double slack = 8 * kEps * std::abs(x);
        ASSERT_LE(std::abs(rounded - x), step / 2 + slack) << x << ' ' << step;
        ASSERT_EQ(round(rounded, step), rounded);
        ASSERT_EQ(round(-x, step), 0.0 - rounded);
        const double up = g_rnd_up(x, step, 0.001);
        ASSERT_TRUE(up >= x - 0.001 - slack && up < x - 0.001 + step + slack) << x << ' ' << step;
        // Halves written in decimals: (2n + 1)·5 of the next digit.
        const int n = random.below(100000);
        ASSERT_EQ(round((2 * n + 1) * 5 / 1000.0, 0.01), (n + 1) / 100.0) << n;
    }
    EXPECT_EQ(round(1e300, 0.1), 1e300);
    EXPECT_EQ(round(0.1, 1e-320), 0.1);
    EXPECT_EQ(g_rnd_unit(1.0, std::numeric_limits<int>::min(), 4), 0.0);
    EXPECT_NEAR(g_rnd_quad(kPi / 4 - 1e-11), kPi / 2, 1e-15); // only noise is missing
    EXPECT_TRUE(std::isnan(round(std::numeric_limits<double>::quiet_NaN(), 1.0)));
}

} // namespace
