// SPDX-License-Identifier: LicenseRef-ORVALD
// Places on segments, and areas, against what follows from centre and radius or from many chords.
#include "kex/vertex_area.h"
#include "kex/vertex_place.h"

#include <gtest/gtest.h>

#include <random>

using namespace KEX;

namespace {

std::vector<CKexVertex> randomVertices(double offset)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> place(-10.0, 10.0), bulge(-4.0, 4.0);
    std::vector<CKexVertex> all;
    for (int i = 0; i < 300; ++i) {
        const CKexPoint3d a(offset + place(random), offset + place(random), 3.0);
        const CKexPoint3d b(offset + place(random), offset + place(random), 3.0);
        const double kinds[] = {bulge(random), 0.0, 1.0, -1.0, 1e-9, -1e-5, 50.0};
        all.emplace_back(a, b, kinds[i % 7]);
    }
    return all;
}

CKexVertexArray chordsOf(const CKexVertexArray& list, int count)
{
    CKexVertexArray chords;
    for (const CKexVertex& vertex : list) {
        for (int i = 0; i < count; ++i) {
            chords.append(CKexVertex(vx_point(vertex, double(i) / count),
                                     vx_point(vertex, double(i + 1) / count)));
        }
    }
    return chords;
}

/// A sheet with a neck, arcs of more and less than half a turn, and a slot.
const CKexVertexArray kOutline = {
    CKexVertex({0, 0}, {10, 0}, 0.5),  CKexVertex({10, 0}, {10, 8}),
    CKexVertex({10, 8}, {6, 8}, -0.8), CKexVertex({6, 8}, {2, 8}, 2.5),
    CKexVertex({2, 8}, {0, 8}),        CKexVertex({0, 8}, {0, 0}, -0.2)};

} // namespace

TEST(VertexPlace, PointsAndTangentsRunAlongTheSegment)
{
    for (const double offset : {0.0, 1e7}) {
        const double error = offset == 0.0 ? 1e-9 : 1e-6;
        for (const CKexVertex& vertex : randomVertices(offset)) {
            EXPECT_EQ(vx_point(vertex, 0.0), vertex.startPoint());
            EXPECT_LE(vx_point(vertex, 1.0).distanceTo(vertex.endPoint()), error);
            EXPECT_LE(vx_point(vertex, 0.5).distanceTo(vertex.mid()), error * 50);
            double length = 0.0;
            CKexPoint3d before = vertex.startPoint();
            constexpr int kParts = 1000;
            for (int i = 1; i <= kParts; ++i) {
                const double share = double(i) / kParts;
                const CKexPoint3d p = vx_point(vertex, share);
                const CKexVector3d step = p - before;
                const CKexVector3d tangent = vx_tangent(vertex, share - 0.5 / kParts);
                EXPECT_NEAR(tangent.length(), 1.0, 1e-12);
                const double off = offset == 0.0 ? 1e-7 : 1.0; // the step is a few last bits there
                EXPECT_NEAR(tangent.dot(step.normal()), 1.0, off);
                length += step.length();
                before = p;
            }
            EXPECT_NEAR(length, vertex.bulgLen(), 1e-4 * vertex.bulgLen() + error * kParts);
        }
    }
}

TEST(VertexPlace, NothingOnTheSegmentIsNearerThanTheNearest)
{
    std::mt19937 random(11);
    std::uniform_real_distribution<double> place(-20.0, 20.0);
    for (const CKexVertex& vertex : randomVertices(0.0)) {
        const CKexPoint3d p(place(random), place(random), 3.0);
        const double share = vx_nearest(vertex, p), open = vx_nearest(vertex, p, true);
        ASSERT_TRUE(share >= 0.0 && share <= 1.0);
        const double distance = vx_point(vertex, share).distanceTo(p);
        for (int i = 0; i <= 200; ++i) {
            EXPECT_GE(vx_point(vertex, i / 200.0).distanceTo(p), distance - 1e-9);
            EXPECT_GE(vx_point(vertex, open + (i - 100) / 100.0).distanceTo(p),
                      vx_point(vertex, open).distanceTo(p) - 1e-9);
        }
        // What lies on it is found again.
        EXPECT_NEAR(vx_nearest(vertex, vx_point(vertex, 0.3)), 0.3, 1e-7);
    }
    const CKexVertex half({0, 0}, {2, 0}, 1.0), none({1, 1}, {1, 1}, 0.5);
    EXPECT_EQ(vx_nearest(half, half.center()), 0.5);
    EXPECT_EQ(vx_nearest(none, {5, 5}), 0.0);
    EXPECT_EQ(vx_tangent(none, 0.5), CKexVector3d());
}

TEST(VertexPlace, LengthsAlongAListLeadToPlacesAndBack)
{
    const double whole = kOutline.geomLength();
    for (double d = 0.0; d <= whole; d += whole / 97.0) {
        const auto place = vl_placeAt(kOutline, d);
        ASSERT_TRUE(place);
        EXPECT_NEAR(vl_lengthTo(kOutline, *place), d, 1e-9);
        const auto found = vl_nearest(kOutline, vl_point(kOutline, *place));
        EXPECT_NEAR(vl_lengthTo(kOutline, *found), d, 1e-6);
    }
    // A joint is the start of what begins there, the end is the end.
    EXPECT_EQ(vl_nearest(kOutline, {10, 8})->vertex, 2);
    EXPECT_EQ(vl_placeAt(kOutline, whole)->share, 1.0);
    EXPECT_TRUE(vl_placeAt(kOutline, whole + 0.5 * CKexPoint3d::tol));
    EXPECT_FALSE(vl_placeAt(kOutline, whole + 1.0));
    EXPECT_FALSE(vl_placeAt(kOutline, -1.0));
    EXPECT_FALSE(vl_placeAt({}, 0.0));
    EXPECT_FALSE(vl_nearest({}, {0, 0}));
}

TEST(VertexArea, AgreesWithManyChords)
{
    const CKexVertexArray fine = chordsOf(kOutline, 4000), coarse = chordsOf(kOutline, 2000);
    // The error of chords falls with the square of their number.
    const double limit = vl_area(fine) + (vl_area(fine) - vl_area(coarse)) / 3.0;
    EXPECT_NEAR(vl_area(kOutline), limit, 1e-9);
    EXPECT_NEAR(vl_area({CKexVertex({0, 0}, {2, 0}, 1.0), CKexVertex({2, 0}, {0, 0}, 1.0)}), kPi,
                1e-14);
    // The series for flat arcs meets the closed form.
    const double flat = std::tan(0.01 / 4.0);
    const CKexVertex below({0, 0}, {10, 0}, flat * 0.999999),
        above({0, 0}, {10, 0}, flat * 1.000001);
    EXPECT_NEAR(vx_segmentArea(below) / vx_segmentArea(above), 0.999998, 1e-9);
    EXPECT_EQ(vl_area({}), 0.0);
}

TEST(VertexArea, InsideIsWhatManyChordsEnclose)
{
    const CKexVertexArray chords = chordsOf(kOutline, 200);
    int inside = 0;
    for (int i = -20; i <= 70; ++i) {
        for (int k = -20; k <= 70; ++k) {
            const CKexPoint3d p(i / 5.0, k / 5.0); // many on the level of a corner or a centre
            const int told = vl_inside(kOutline, p);
            if (vl_inside(chords, p, 1e-3) == 0) continue;
            EXPECT_EQ(told, vl_inside(chords, p, 1e-3)) << p.x << " " << p.y;
            inside += told == 1;
        }
    }
    EXPECT_NEAR(inside / 25.0, vl_area(kOutline), 3.0);
    EXPECT_EQ(vl_inside(kOutline, {10, 4}), 0);
    EXPECT_EQ(vl_inside(kOutline, vx_point(kOutline[3], 0.7)), 0);
    EXPECT_EQ(vl_inside({}, {0, 0}), -1);
}
