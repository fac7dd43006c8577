// SPDX-License-Identifier: LicenseRef-ORVALD
// Constructions: results lie where their declarations say, within the error bounds given there,
// near and far from the origin and close to touching. Residuals are computed in long double.
#include "kex_values.h"

#include "kex/basket_handle.h"
#include "kex/intersection.h"
#include "kex/point_moves.h"
#include "kex/s_curve.h"
#include "kex/shapes.h"
#include "kex/tangent.h"

#include <algorithm>
#include <limits>

namespace {

using kextest::Random;
using namespace KEX;

constexpr double kEps = std::numeric_limits<double>::epsilon();
constexpr double kFar = 1e7; // a site plan in millimetres
constexpr double kTol = 1e-4;
constexpr double kTolAngle = 1e-6;
using Exact = long double;

double offCircle(const CKexPoint3d& p, const CKexPoint3d& centre, double r)
{
    return static_cast<double>(fabsl(hypotl((Exact)p.x - centre.x, (Exact)p.y - centre.y) - r));
}

double offLine(const CKexPoint3d& p, const CKexPoint3d& a, const CKexPoint3d& b)
{
    const Exact x = (Exact)b.x - a.x, y = (Exact)b.y - a.y;
    return static_cast<double>(fabsl(x * ((Exact)p.y - a.y) - y * ((Exact)p.x - a.x)) /
                               hypotl(x, y));
}

double lastBit(const CKexPoint3d& p) { return kEps * (std::abs(p.x) + std::abs(p.y)); }

TEST(Intersection, PointsLieOnBothCurves)
{
    Random random(21);
    int both = 0, touching = 0;
    for (int i = 0; i < 40000; ++i) {
        const CKexPoint3d c = random.point(i % 2 == 0 ? 100 : kFar);
        const double r = std::exp(random.from(-5, 8));
        // Distances near touching: from far inside the tolerance to far outside.
        const double near =
            i % 3 == 0 ? r * (1 - std::exp(random.from(-30, 0))) : r * random.from(-1.2, 1.2);
        const double angle = random.from(0, 7);
        const CKexPoint3d foot = polar(c, angle + kPi / 2, near);
        const CKexPoint3d p1 = polar(foot, angle, -random.from(0.01, 3) * r),
                          p2 = polar(foot, angle, r);
        const FewPoints hits = g_cli(c, r, p1, p2, kTol);
        const double slack = hits.length() == 1 ? 0.51 * kTol : 0.0; // the line's own point
        for (const CKexPoint3d& p : hits) {
            ASSERT_LE(offLine(p, p1, p2), 8 * kEps * 4 * r + lastBit(p)) << i;
            ASSERT_LE(offCircle(p, c, r), 8 * kEps * 4 * r + lastBit(p) + 2 * slack) << i;
            ASSERT_EQ(p.z, c.z);
        }
        if (hits.length() == 2) {
            ++both;
            ASSERT_GE(dotXY(hits[1] - hits[0], p2 - p1), 0.0);
        } else if (hits.length() == 1) {
            ++touching;
        } else {
            ASSERT_GT(std::abs(near),
                      r - 1e-9 * (1 + r)); // it misses, or is given up as it touches
        }
        const double r2 = std::exp(random.from(-5, 8));
        const double gap = (i % 4 < 2 ? r + r2 : std::abs(r - r2)) +
                           std::exp(random.from(-25, 5)) * (i % 8 < 4 ? 1 : -1);
        const CKexPoint3d c2 = polar(c, angle, gap);
        const FewPoints common = g_cci(c, r, c2, r2, kTol);
        const double reach = 8 * kEps * std::max({r, r2, std::abs(gap)});
        for (const CKexPoint3d& p : common) {
            const double touch = common.length() == 1 ? 0.51 * kTol : 0.0;
            ASSERT_LE(offCircle(p, c, r), reach + lastBit(p) + touch) << i;
            ASSERT_LE(offCircle(p, c2, r2), reach + lastBit(p) + touch) << i;
        }
        const FewPoints turned = g_cci(c2, r2, c, r, kTol);
        ASSERT_EQ(turned.length(), common.length());
        if (common.length() == 2) {
            ASSERT_TRUE(
                turned[0].isEqualTo(CKexPoint3d(common[1].x, common[1].y, turned[0].z), 1e-5));
            ASSERT_GT(crossXY(c2 - c, common[0] - common[1]), 0.0);
        }
    }
    EXPECT_GT(both, 10000);
    EXPECT_GT(touching, 1000);
}

TEST(Intersection, ArcsHoldThePointsBetweenTheirEnds)
{
    Random random(22);
    for (int i = 0; i < 20000; ++i) {
        const CKexPoint3d c = random.point(100);
        const double r = random.from(0.5, 20), a1 = random.from(-7, 7), a2 = random.from(-7, 7);
        const double at = random.from(0, kTwoPi);
        const CKexPoint3d p = polar(c, at, r);
        const double into = g_ang(at - a1), sweep = g_ang(a2 - a1);
        const bool clear =
            std::abs(into - sweep) > kTol / r && into > kTol / r && kTwoPi - into > kTol / r;
        if (clear) {
            ASSERT_EQ(g_arc_pt(c, r, a1, a2, p).has_value(), into < sweep) << i;
            // A line through the point: with it, or without.
            const FewPoints all = g_cli(c, r, c, p), some = g_ali(c, r, a1, a2, c, p);
            ASSERT_EQ(all.length(), 2);
            const bool held = std::ranges::any_of(
                some, [&](const CKexPoint3d& q) { return q.isEqualTo(p, 1e-9); });
            ASSERT_EQ(held, into < sweep);
        }
        ASSERT_TRUE(g_arc_pt(c, r, a1, a2, polar(c, a1 - 0.5 * kTol / r, r)).has_value());
        ASSERT_TRUE(g_arc_pt(c, r, a1, a2, polar(c, a2, r)).has_value());
        ASSERT_FALSE(g_arc_pt(c, r, a1, a1, p).has_value());
        ASSERT_FALSE(g_arc_pt(c, r, a1, a2, polar(c, a1, r + 2 * kTol)).has_value());
        ASSERT_FALSE(g_arc_pt(c, r, a1, a2, polar(c, a1, r) + CKexVector3d(0, 0, 1)).has_value());
    }
}

TEST(Lines, CrossAndHaveTheirFeetWhereTheySay)
{
    Random random(23);
    for (int i = 0; i < 20000; ++i) {
        const CKexPoint3d base = random.point(i % 2 == 0 ? 10 : kFar);
        const auto nearby = [&] { return base + random.point(20).asVector(); };
        const CKexPoint3d p1 = nearby(), p2 = nearby(), p3 = nearby(), p4 = nearby();
        const double size = 60, bit = lastBit(base);
        if (const auto p = g_int_ll(p1, p2, p3, p4, false, kTol, kTolAngle)) {
            const double sine = std::abs(std::sin(turnXY(p2 - p1, p4 - p3)));
            const double off =
                std::max(size, (*p - p1).lengthXY()); // rounding grows with the distance
            ASSERT_LE(offLine(*p, p1, p2), 8 * kEps * off + bit + lastBit(*p));
            ASSERT_LE(offLine(*p, p3, p4), 8 * kEps * off / sine + bit + lastBit(*p)) << i;
            const auto inside = g_int_ll(p1, p2, p3, p4, true, kTol, kTolAngle);
            ASSERT_EQ(inside.has_value(),
                      g_int_ll(p3, p4, p1, p2, true, kTol, kTolAngle).has_value());
        }
        const CKexPoint3d foot = *g_lotp(p3, p1, p2);
        const CKexVector3d way = (p2 - p1).normal();
        const double far = std::max({p3.distanceTo(p1), p3.distanceTo(p2), p1.distanceTo(p2)});
        ASSERT_LE(std::abs((p3 - foot).dot(way)), 4 * kEps * far + 2 * bit);
        ASSERT_NEAR(g_line_dist(p3, p1, p2), p3.distanceTo(foot), 4 * kEps * far + 2 * bit);
        ASSERT_TRUE(g_line_pt(p1, p2, p1 + (p2 - p1) * random.from(0, 1)).has_value());
        ASSERT_FALSE(g_line_pt(p1, p2, p2 + way * (2 * kTol)).has_value());
        ASSERT_EQ(g_side(p1, p2, p3), -g_side(p2, p1, p3));
        const double left = crossXY(p2 - p1, p3 - p1) / g_dist2d(p1, p2);
        ASSERT_EQ(g_side(p1, p2, p3), left > kTol ? 1 : left < -kTol ? -1 : 0);
        if (const auto feet = g_line_near(p1, p2, p3, p4, kTol, kTolAngle)) {
            const CKexVector3d n = way.cross((p4 - p3).normal()), gap = feet->end - feet->start;
            const double bound = 8 * kEps * (size + gap.length()) / n.dot(n) + 4 * bit;
            ASSERT_LE(std::abs(gap.dot(way)), bound) << i;
            ASSERT_LE(std::abs(gap.dot((p4 - p3).normal())), bound) << i;
        }
        const Line shifted = *g_line_par(p1, p2, 5.0);
        ASSERT_NEAR(g_dist_w1(p1, shifted.start, acutAngle(p1, p2)), 5.0, 1e-12 + 2 * bit);
        if (const auto mitre = g_line_gehr(p1, p2, p3, 2, 3, kTol, kTolAngle)) {
            const double stretch = (mitre->end - mitre->start).lengthXY();
            ASSERT_NEAR(g_dist_w1(p1, mitre->end, acutAngle(p1, p2)), 2.0,
                        1e-13 * stretch + 4 * bit);
            const double sine = std::abs(std::sin(g_delta_w2(p1, p2, p3)));
            ASSERT_NEAR(g_dist_w1(p2, mitre->end, acutAngle(p2, p3)), 3.0,
                        1e-13 * stretch / sine + 4 * bit);
        }
        const double turn = random.from(-kPi, kPi);
        ASSERT_NEAR(g_dist_w(p1, p2, turn) * g_dist_w(p1, p2, turn) +
                        g_dist_w1(p1, p2, turn) * g_dist_w1(p1, p2, turn),
                    g_dist2d(p1, p2) * g_dist2d(p1, p2), 1e-11);
        const CKexPoint3d there = g_p_trans3p(p4, p1, p2, p3, false);
        ASSERT_TRUE(g_p_trans3p(there, p1, p2, p3, true).isEqualTo(p4, 1e-12 + 4 * bit));
        ASSERT_GT(g_p_trans3p(p3, p1, p2, p3, false).y, 0.0);
    }
}

TEST(Tangent, TouchesItsCircles)
{
    Random random(24);
    for (int i = 0; i < 20000; ++i) {
        const CKexPoint3d c1 = random.point(i % 2 == 0 ? 50 : kFar);
        const double r1 = std::exp(random.from(-3, 4)), r2 = std::exp(random.from(-3, 4));
        const CKexPoint3d c2 = polar(c1, random.from(0, 7), std::exp(random.from(-3, 5)));
        const double d = (c2 - c1).lengthXY(), bound = 16 * kEps * (d + r1 + r2) + 4 * lastBit(c1);
        const auto lines = g_tang_cc(c1, r1, c2, r2, kTol);
        const auto pair = [d](double x) {
            return d > x && (d - x) * (d + x) > kTol * kTol ? 2 : 0;
        };
        ASSERT_EQ(lines.length(), pair(std::abs(r1 - r2)) + pair(r1 + r2)) << i;
        for (int n = 0; n < lines.length(); ++n) {
            const Line& line = lines[n];
            const double length = (line.end - line.start).lengthXY();
            const double tilt =
                bound * (1 + (r1 + r2 + d) / length); // a short tangent is worse known
            ASSERT_LE(offCircle(line.start, c1, r1), bound);
            ASSERT_LE(offCircle(line.end, c2, r2), bound);
            ASSERT_LE(std::abs(offLine(c1, line.start, line.end) - r1), tilt);
            ASSERT_LE(std::abs(offLine(c2, line.start, line.end) - r2), tilt);
            ASSERT_EQ(crossXY(c2 - c1, line.start - c1) > 0, n % 2 == 0);
        }
        const FewPoints contacts = g_tang_pc(c2, c1, r1, kTol);
        ASSERT_EQ(contacts.length(), d > r1 + kTol ? 2 : d >= r1 - kTol ? 1 : 0);
        if (contacts.length() == 2) {
            ASSERT_LE(offCircle(contacts[0], c1, r1), bound);
            ASSERT_LE(std::abs(dotXY(contacts[0] - c1, contacts[0] - c2)), bound * (d + r1));
            ASSERT_GT(crossXY(c1 - c2, contacts[0] - contacts[1]), 0.0);
        }
        const CKexPoint3d corner = random.point(50), before = random.point(50),
                          after = random.point(50);
        if (const auto fillet = g_tang_ll(before, corner, after, r1, kTol, kTolAngle)) {
            const double size = (fillet->startPoint() - corner).lengthXY() + r1;
            ASSERT_NEAR(fillet->radius(), r1, 1e-11 * size);
            ASSERT_NEAR(offLine(fillet->center(), before, corner), r1, 1e-11 * size * size / r1);
            ASSERT_NEAR(offLine(fillet->center(), corner, after), r1, 1e-11 * size * size / r1);
        }
    }
}

TEST(BasketHandle, ArcsMeetOnTheLineOfTheirCentres)
{
    Random random(25);
    for (int i = 0; i < 20000; ++i) {
        const double w = random.from(1, 5000), s = w / 2;
        const double h = s * (i % 4 == 0 ? 1 + std::exp(random.from(-36, -2))
                                         : std::exp(random.from(-2.5, 2.5)));
        const double r = g_korb_3m(w, h), crown = g_rkorb(w, h, r), size = s + h + crown;
        ASSERT_GT(r, 0.0);
        ASSERT_LE(std::abs(hypotl((Exact)s - r, (Exact)crown - h) - fabsl((Exact)crown - r)),
                  1e-13 * size)
            << h / s;
        const double single = (s * s + h * h) / w; // the springing radius of a single arc
        const double other = h < s ? h * random.from(0.01, 0.99) : single * random.from(1.01, 9);
        if (std::abs(h / s - 1) > 0.01) { // near the half circle any springing has its crown
            ASSERT_NEAR(g_rkorb2(w, h, g_rkorb(w, h, other)), other, 1e-8 * (w + other));
        }
        const auto arch = g_korb_5m(w, h);
        ASSERT_TRUE(arch.has_value());
        const CKexPoint3d* c = arch->centres;
        const double step = 1e-13 * (arch->r1 + arch->r2 + arch->r3);
        ASSERT_NEAR((c[4] - c[3]).lengthXY(), std::abs(arch->r2 - arch->r1), step);
        ASSERT_NEAR((c[3] - c[2]).lengthXY(), std::abs(arch->r3 - arch->r2), step);
        ASSERT_NEAR(c[4].x + arch->r1, s, step);
        ASSERT_NEAR(c[2].y + arch->r3, h, step);
        ASSERT_EQ(c[1].x, 0.0 - c[3].x);
        // Between springing and crown, so that no arc runs the wrong way.
        if (h < s) {

            ASSERT_TRUE(c[3].x >= 0.0 && c[3].x <= c[4].x && c[3].y <= 0.0 && c[3].y >= c[2].y);
        }
    }
}

TEST(SCurve, LeavesAndArrivesLevel)
{
    Random random(26);
    for (int i = 0; i < 5000; ++i) {
        const double l = random.from(50, 500), h = random.from(5, 200) * (i % 2 == 0 ? 1 : -1);
        const double s = i % 3 == 0 ? 0.0 : random.from(0, 20);
        const double both = 2 * g_fries_r(l, std::abs(h), s);
        const double r1 = both * random.from(0.1, 1);
        const CKexVertexArray curve = g_fries_2r(l, h, r1, s);
        ASSERT_FALSE(curve.isEmpty());
        ASSERT_EQ(curve.numOpens(1e-9), 0);
        ASSERT_EQ(curve.last().endPoint(), CKexPoint3d(l, h));
        ASSERT_NEAR(curve.first().radius(), r1, 1e-9 * r1);
        ASSERT_NEAR(curve.last().radius(), both - r1, 1e-7 * both);
        ASSERT_NEAR(curve.first().sweep(), std::copysign(g_fries_w(l, std::abs(h), s), h), 1e-12);
        ASSERT_NEAR(curve.first().center().x, 0.0, 1e-9 * both); // tangent to X
        ASSERT_NEAR(curve.last().center().x, l, 1e-7 * both);
    }
}

TEST(Shapes, AreClosedAndCounterClockwise)
{
    const CKexPoint3d p(3, -2, 1);
    const CKexVertexArray all[] = {g_mk_rect(p, 5, 3, 1.0),       g_mk_rect(p, 5, 3, 1.0, 1.5),
                                   g_mk_circ(p, 2, 0.3),          g_mk_slot(p, {6, 9}, 2),
                                   g_mk_neck(p, 7, 2, 0.1, true), g_mk_elps(p, 2, 9, 0.4)};
    for (const CKexVertexArray& list : all) {
        ASSERT_TRUE(list.isClosed());
        double area = 0.0;
        for (const CKexVertex& v : list) {
            area += crossXY(v.startPoint() - p, v.endPoint() - p) +
                    (v.mid() - v.startPoint()).cross(v.endPoint() - v.mid()).z;
            ASSERT_EQ(v.startPoint().z, 1.0);
        }
        ASSERT_GT(area, 1.0);
    }
    EXPECT_NEAR(g_mk_rect(p, 5, 3, 1.0, 1.5).geomLength(), 4 + 3 * kPi, 1e-12);
}

TEST(Shapes, EllipseKeepsItsDistanceWithTheFewestArcs)
{
    Random random(27);
    for (int i = 0; i < 60; ++i) {
        const double a = std::exp(random.from(0, 6)), b = a * std::exp(random.from(-2, 2)),
                     dif = a * std::exp(random.from(-14, -3));
        const CKexVertexArray list = g_mk_elps({}, a, b, 0.0, dif);
        const auto worst = [&](const CKexVertexArray& arcs) {
            double most = 0.0;
            for (int n = 0; n < arcs.length() / 4; ++n) {
                const double step = kTwoPi / arcs.length();
                for (int k = 0; k <= 60; ++k) {
                    const double t = (n + k / 60.0) * step;
                    const CKexPoint3d q(a * std::cos(t), b * std::sin(t));
                    most = std::max(most,
                                    std::abs((q - arcs[n].center()).lengthXY() - arcs[n].radius()));
                }
            }
            return most;
        };
        ASSERT_LE(worst(list), 1.02 * dif);
        ASSERT_EQ(list.length() % 4, 0);
        if (list.length() > 4) { // fewer arcs, of a larger distance, miss it
            double wider = dif;
            CKexVertexArray fewer = list;
            while (fewer.length() == list.length()) fewer = g_mk_elps({}, a, b, 0.0, wider *= 1.05);
            ASSERT_GT(worst(fewer), dif) << a << ' ' << b << ' ' << dif;
        }
    }
    EXPECT_TRUE(g_mk_elps({}, 1e9, 1.0, 0.0, 1e-300).isEmpty());
}

TEST(Division, HasTheSmallestNumberOfFieldsAndEqualOnes)
{
    Random random(28);
    for (int i = 0; i < 20000; ++i) {
        const double length = random.from(1, 5000), most = random.from(1, 300),
                     bar = i % 3 == 0 ? 0.0 : random.from(0, 50);
        const int n = g_teil_n(length, most, bar, 0.001);
        const auto field = [&](int fields) { return (length - (fields - 1) * bar) / fields; };
        ASSERT_GE(n, 1);
        ASSERT_LE(field(n), most + 0.001);
        if (n > 1) {
            ASSERT_GT(field(n - 1), most + 0.001);
        }
        const CKexPoint3d start = random.point(100), end = polar(start, random.from(0, 7), length);
        const CKexPoint3dArray axes = g_teil_pts(start, end, n, bar);
        ASSERT_EQ(axes.length(), n >= 2 && field(n) > 0 ? n - 1 : 0);
        for (int k = 0; k < axes.length(); ++k) {
            ASSERT_NEAR(axes[k].distanceTo(start), (k + 1) * (field(n) + bar) - bar / 2, 1e-9);
        }
    }
    EXPECT_EQ(g_teil_n(1e300, 1e-300, 0, 0), 0); // more than a number holds
    EXPECT_EQ(g_teil_n(100, 5, -10, 0), 0);
}

/// No awkward number makes a fault; the sanitizers look on.
TEST(Constructions, TakeAnyNumbers)
{
    const double awkward[] = {0.0, -0.0,  1e-320, -1e-5,      1.0,         -3.0,
                              1e7, 1e160, -1e308, 1e308 * 10, std::nan("")};
    Random random(29);
    for (int i = 0; i < 20000; ++i) {
        const auto number = [&] { return awkward[random.below(11)]; };
        const auto point = [&] { return CKexPoint3d(number(), number(), number()); };
        const CKexPoint3d p = point(), q = point(), r = point(), s = point();
        const double a = number(), b = number(), c = number(), d = number();
        g_aai(p, a, b, c, q, d, a, b);
        g_ali(p, a, b, c, q, r);
        g_int_ll(p, q, r, s, true, kTol, kTolAngle);
        g_line_near(p, q, r, s, kTol, kTolAngle);
        g_line_gehr(p, q, r, a, b, kTol, kTolAngle);
        g_tang_cc(p, a, q, b);
        g_tang_pc(p, q, a);
        g_tang_ll(p, q, r, a, kTol, kTolAngle);
        g_lot(p, q, r);
        g_line_pt(p, q, r);
        g_korb_5m(a, b);
        g_fries_2r(a, b, c, d);
        g_fries_w(a, b, c);
        g_mk_rect(p, a, b, c, d);
        g_mk_slot(p, q, a);
        g_mk_neck(p, random.below(9), a, b, true);
        if (i % 100 == 0) g_mk_elps(p, a, b, c, d);
        g_teil_n(a, b, c, 0.001);
        g_teil_pts(p, q, random.below(6) - 1, a);
        g_p_trans3p(p, q, r, s, i % 2 == 0);
    }
}

} // namespace
