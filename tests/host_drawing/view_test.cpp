// SPDX-License-Identifier: LicenseRef-ORVALD
// Typed views and boxes.
#include "chain_text.h"
#include "drawing/views.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

using namespace orvald::drawing;

namespace {

void expectBox(const Box& box, Point low, Point high)
{
    ASSERT_FALSE(box.empty());
    EXPECT_NEAR(length(box.min() - low), 0.0, 1e-9)
        << box.min().x << " " << box.min().y << " " << box.min().z;
    EXPECT_NEAR(length(box.max() - high), 0.0, 1e-9)
        << box.max().x << " " << box.max().y << " " << box.max().z;
}

Box boxOf(Fixture& f, std::string_view text)
{
    const ObjectId id = f.make(text);
    EXPECT_EQ(f.error, ErrNo::none) << text;
    return extents(*f.drawing, f.drawing->indexOf(id));
}

} // namespace

TEST(EntityCoordinates, FormARightHandedSystemWithTheNormalAsZ)
{
    for (const Point normal : {Point{0, 0, 1}, Point{0, 0, -1}, Point{1, 0, 0},
                               Point{0.01, 0.01, 1}, Point{3, -4, 12}}) {
        const Transform map = entityToWorld(normal);
        EXPECT_NEAR(dot(map.x, map.y), 0.0, 1e-15);
        EXPECT_NEAR(length(cross(map.x, map.y) - map.z), 0.0, 1e-15);
        EXPECT_NEAR(length(length(normal) * map.z - normal), 0.0, 1e-12);
    }
    EXPECT_EQ(entityToWorld({0, 0, -1}).x, (Point{-1, 0, 0}));
}

TEST(Extents, OfCurvesTouchThem)
{
    Fixture f;
    expectBox(boxOf(f, "0 CIRCLE|10 1 2 3|40 5"), {-4, -3, 3}, {6, 7, 3});
    expectBox(boxOf(f, "0 CIRCLE|10 1 0 0|40 2|210 0 0 -1"), {-3, -2, 0}, {1, 2, 0});
    // An arc over the top and over the zero angle.
    expectBox(boxOf(f, "0 ARC|10 0 0 0|40 1|50 -1.5707963267948966|51 1.5707963267948966"),
              {0, -1, 0}, {1, 1, 0});
    expectBox(
        boxOf(f, "0 LWPOLYLINE|100 AcDbEntity|100 AcDbPolyline|90 2|38 7|10 0 0 0|42 1|10 4 0 0"),
        {0, -2, 7}, {4, 0, 7});
    expectBox(
        boxOf(
            f,
            "0 LWPOLYLINE|100 AcDbEntity|100 AcDbPolyline|90 2|70 1|10 0 0 0|42 -1|10 4 0 0|42 -1"),
        {0, -2, 0}, {4, 2, 0});
    // A turned ellipse: half axes 2 and 1 at 45 degrees.
    const double reach = std::sqrt(2.5);
    expectBox(boxOf(f, "0 ELLIPSE|100 AcDbEntity|100 AcDbEllipse|10 0 0 0|11 1.4142135623730951 "
                       "1.4142135623730951 0|"
                       "40 0.5|41 0|42 6.283185307179586"),
              {-reach, -reach, 0}, {reach, reach, 0});
    EXPECT_TRUE(boxOf(f, "0 XLINE|100 AcDbEntity|100 AcDbXline|10 0 0 0|11 1 0 0").empty());
}

TEST(Extents, FollowInsertsArraysAndBlocksWithinBlocks)
{
    Fixture f;
    f.make("0 BLOCK|2 K|10 1 1 0");
    f.make("0 CIRCLE|10 1 1 0|40 1");
    f.make("0 ENDBLK");
    f.make("0 BLOCK|2 P|10 0 0 0");
    f.make("0 INSERT|2 K|10 0 0 0|41 2|42 3");
    f.make("0 ENDBLK");
    expectBox(boxOf(f, "0 INSERT|2 K|10 10 0 0"), {9, -1, 0}, {11, 1, 0});
    expectBox(boxOf(f, "0 INSERT|2 P|10 0 0 0|50 1.5707963267948966"), {-3, -2, 0}, {3, 2, 0});
    expectBox(boxOf(f, "0 INSERT|2 K|10 0 0 0|70 3|71 2|44 10|45 100"), {-1, -1, 0}, {21, 101, 0});
}

TEST(Extents, EndForBlocksThatMultiplyOrHoldThemselves)
{
    Fixture f;
    f.make("0 BLOCK|2 L0|10 0 0 0");
    f.make("0 POINT|10 1 1 0");
    f.make("0 ENDBLK");
    for (int level = 1; level < 20; ++level) { // 10^19 points
        f.make("0 BLOCK|2 L" + std::to_string(level) + "|10 0 0 0");
        for (int i = 0; i < 10; ++i)
            f.make("0 INSERT|2 L" + std::to_string(level - 1) + "|10 " + std::to_string(i) +
                   " 0 0");
        f.make("0 ENDBLK");
    }
    expectBox(boxOf(f, "0 INSERT|2 L19|10 0 0 0"), {1, 1, 0}, {172, 1, 0});
    // A circle of blocks, as a broken file may have it.
    const Index block = f.drawing->findRecord(TableId::blockRecord, "L0");
    Record insert(Kind::insert, Family::entity);
    insert.tags.addText(2, "L1");
    f.drawing->appendChild(block, f.drawing->add(std::move(insert)));
    EXPECT_FALSE(boxOf(f, "0 INSERT|2 L1|10 0 0 0").empty());
}

TEST(HatchView, ReadsPathsWhateverTheCountsSay)
{
    Fixture f;
    const ObjectId id = f.make(
        "0 HATCH|100 AcDbEntity|100 AcDbHatch|10 0 0 5|210 0 0 1|2 ANSI31|70 0|71 0|91 99|"
        "92 2|72 1|73 1|93 -4|10 0 0 0|42 0.5|10 10 0 0|10 10 10 0|97 0|"
        "92 1|93 7|72 1|10 0 0 0|11 1 1 0|72 2|10 0 0 0|40 2|50 0.5|51 1.5|73 0|97 0|75 1|76 1|"
        "52 0.1|41 2|77 0|78 1|53 0.7|43 1|44 2|45 3|46 4|79 2|49 1|49 -1|98 1|10 1 1 0");
    ASSERT_EQ(f.error, ErrNo::none);
    const HatchView view = hatchView(f.record(id));
    ASSERT_EQ(view.paths.size(), 2u);
    EXPECT_EQ(view.elevation, 5.0);
    EXPECT_EQ(view.paths[0].vertices.size(), 3u);
    EXPECT_EQ(view.paths[0].vertices[0].bulge, 0.5);
    ASSERT_EQ(view.paths[1].edges.size(), 2u);
    const HatchEdge& arc = view.paths[1].edges[1]; // clockwise: mirrored in the file
    EXPECT_NEAR(arc.from, -0.5, 1e-15);
    EXPECT_NEAR(arc.to, -1.5, 1e-15);
    ASSERT_EQ(view.lines.size(), 1u);
    EXPECT_EQ(view.lines[0].offset, (Point{3, 4, 0}));
    EXPECT_EQ(view.lines[0].dashes.size(), 2u);
    EXPECT_EQ(view.style, 1);
}

TEST(PolylineView, ReadsWidthsBulgesAndLeavesFramePointsOut)
{
    Fixture f;
    f.make("0 POLYLINE|10 0 0 4|70 5|40 0.5|41 0.5");
    f.make("0 VERTEX|10 0 0 4|42 1");
    f.make("0 VERTEX|10 9 9 4|70 16");
    f.make("0 VERTEX|10 2 0 4|40 1|41 2|70 8");
    const PolylineView view = polylineView(*f.drawing, f.drawing->indexOf(f.make("0 SEQEND")));
    ASSERT_EQ(view.vertices.size(), 2u);
    EXPECT_TRUE(view.closed);
    EXPECT_EQ(view.elevation, 4.0);
    EXPECT_EQ(view.vertices[0].bulge, 1.0);
    EXPECT_EQ(view.vertices[0].endWidth, 0.5);
    EXPECT_EQ(view.vertices[1].endWidth, 2.0);
}

TEST(TextViews, TellJustificationAndJoinedPieces)
{
    Fixture f;
    const TextView text =
        textView(f.record(f.make("0 TEXT|10 0 0 0|11 5 5 0|40 2|1 a°|72 1|73 2|50 0.5|41 0.8")));
    EXPECT_EQ(text.text, "a°");
    EXPECT_EQ(text.horizontal, 1);
    EXPECT_EQ(text.vertical, 2);
    EXPECT_NEAR(text.rotation, 0.5, 1e-15);
    const std::string longText(700, 'y');
    const MTextView mtext = mtextView(f.record(
        f.make("0 MTEXT|100 AcDbEntity|100 AcDbMText|10 0 0 0|40 2|71 5|11 0 1 0|1 " + longText)));
    EXPECT_EQ(mtext.text, longText);
    EXPECT_EQ(mtext.attachment, 5);
    EXPECT_NEAR(mtext.rotation, std::numbers::pi / 2, 1e-15);
}
