// SPDX-License-Identifier: LicenseRef-ORVALD
// The image of an entity is where the map carries its points.
#include "chain_text.h"
#include "drawing/transform.h"
#include "drawing/views.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>

using namespace orvald::drawing;

namespace {

constexpr double kPi = std::numbers::pi;
using Points = std::vector<Point>;

void along(Points& out, double from, double to, const std::function<Point(double)>& at)
{
    for (int i = 0; i <= 8; ++i) out.push_back(at(from + (to - from) * i / 8.0));
}

void addPath(Points& out, const Transform& place, const std::vector<PolylineVertex>& vertices,
             double z, bool spatial)
{
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        Point p = vertices[i].at, q = vertices[(i + 1) % vertices.size()].at;
        if (!spatial) p.z = q.z = z;
        out.push_back(place(p));
        // The middle of the arc lies right of the chord for a positive bulge.
        const Point d = q - p;
        const double rise = vertices[i].bulge / 2.0;
        if (!spatial) out.push_back(place(0.5 * (p + q) + Point{d.y * rise, -d.x * rise, 0.0}));
    }
}

/// Points of the world that tell where an entity is, in an order that does not change.
Points shapeOf(const Drawing& drawing, Index index)
{
    const Record& record = drawing.at(index);
    Points out;
    const auto circular = [&](const Transform& place, Point centre, double r, double a, double b) {
        along(out, a, b, [&](double t) {
            return place(centre + Point{r * std::cos(t), r * std::sin(t), 0.0});
        });
    };
    switch (record.kind()) {
    case Kind::circle: { // where its parameter begins tells nothing
        const ArcView circle = arcView(record);
        out.push_back(entityToWorld(circle.normal)(circle.centre));
        break;
    }
    case Kind::arc: {
        const ArcView arc = arcView(record);
        circular(entityToWorld(arc.normal), arc.centre, arc.radius, arc.start, arc.end);
        break;
    }
    case Kind::ellipse: {
        const EllipseView ellipse = ellipseView(record);
        along(out, ellipse.start, ellipse.end, [&](double t) { return ellipse.at(t); });
        break;
    }
    case Kind::lwpolyline:
    case Kind::polyline: {
        const PolylineView line = polylineView(drawing, index);
        const Transform place = line.spatial ? Transform() : entityToWorld(line.normal);
        addPath(out, place, line.vertices, line.elevation, line.spatial);
        break;
    }
    case Kind::text: {
        const TextView text = textView(record);
        const double c = std::cos(text.rotation), s = std::sin(text.rotation);
        const double back = text.backward ? -text.height : text.height;
        for (const Point p : {text.insert, text.insert + back * Point{c, s, 0.0},
                              text.insert + text.height * Point{-s, c, 0.0}})
            out.push_back(entityToWorld(text.normal)(p));
        break;
    }
    case Kind::mtext: {
        const MTextView text = mtextView(record);
        const double c = std::cos(text.rotation), s = std::sin(text.rotation);
        out = {text.insert, text.insert + text.height * Point{c, s, 0.0}};
        break;
    }
    case Kind::insert: {
        const InsertView insert = insertView(record);
        for (const Point p : {Point{}, Point{1, 0, 0}, Point{0, 1, 0}, Point{0, 0, 1}})
            out.push_back(insert.transform({}, insert.columns - 1, insert.rows - 1)(p));
        break;
    }
    case Kind::hatch: {
        const HatchView view = hatchView(record);
        Transform place = entityToWorld(view.normal);
        place.origin = place({0, 0, view.elevation});
        for (const HatchPath& path : view.paths) {
            addPath(out, place, path.vertices, 0.0, false);
            for (const HatchEdge& edge : path.edges) {
                const Point turned{-edge.end.y, edge.end.x, 0.0};
                if (edge.type == HatchEdge::Type::arc)
                    circular(place, edge.start, edge.radius, edge.from, edge.to);
                else if (edge.type == HatchEdge::Type::ellipse)
                    along(out, edge.from, edge.to, [&](double t) {
                        return place(edge.start + std::cos(t) * edge.end +
                                     edge.radius * std::sin(t) * turned);
                    });
                else out.insert(out.end(), {place(edge.start), place(edge.end)});
            }
        }
        for (const HatchLine& line : view.lines) {
            const Point way{std::cos(line.angle), std::sin(line.angle), 0.0};
            const Point dash = line.dashes.empty() ? Point{} : line.dashes[0] * way;
            for (const Point p : {line.base, line.base + line.offset, line.base + dash})
                out.push_back(place(p));
        }
        break;
    }
    default:
        for (const Tag tag : record.tags)
            if (tag.code() >= 10 && tag.code() <= 13)
                out.push_back(entityToWorld(record.kind() == Kind::solid
                                                ? record.tags.point(210, {0, 0, 1})
                                                : Point{0, 0, 1})(tag.point()));
    }
    return out;
}

/// The same points, in the same order or from the end.
bool same(const Points& a, Points b)
{
    const auto near = [](Point p, Point q) { return length(p - q) < 1e-9 * (1.0 + length(p)); };
    if (std::ranges::equal(a, b, near)) return true;
    // What runs the other way round begins at the other end.
    return std::ranges::is_permutation(a, b, near);
}

Transform turnAbout(Point axis, double angle)
{
    const double c = std::cos(angle), s = std::sin(angle);
    axis = 1.0 / length(axis) * axis;
    const auto turned = [&](Point v) {
        return c * v + s * cross(axis, v) + (1.0 - c) * dot(axis, v) * axis;
    };
    return {turned({1, 0, 0}), turned({0, 1, 0}), turned({0, 0, 1}), {}};
}

enum class Suits
{
    all,     // every entity has an image
    upright, // those do that lie flat
    few
};
struct NamedMap
{
    const char* name;
    Transform map;
    Suits suits;
};
std::vector<NamedMap> maps()
{
    Transform moved, scaled, mirrored, flat, sheared, tall;
    moved.origin = {100, -20, 3};
    scaled.x = {2.5, 0, 0}, scaled.y = {0, 2.5, 0}, scaled.z = {0, 0, 2.5};
    mirrored.x = {-1, 0, 0};
    mirrored.origin = {7, 0, 0};
    tall.z = {0, 0, 3};
    flat.y = {0, 0.4, 0};
    sheared.y = {0.3, 1, 0};
    const Transform turned = turnAbout({0, 0, 1}, 2.0), tilted = turnAbout({1, 2, -3}, 1.2);
    return {{"moved", moved, Suits::all},
            {"turned", turned, Suits::all},
            {"scaled", scaled, Suits::all},
            {"mirrored", mirrored, Suits::all},
            {"tilted", tilted, Suits::all},
            {"upside down", turnAbout({1, 0, 0}, kPi), Suits::all},
            {"all together", moved.after(tilted.after(mirrored.after(scaled))), Suits::all},
            {"taller", tall, Suits::upright},
            {"unequal", flat, Suits::few},
            {"sheared", moved.after(turned.after(sheared)), Suits::few}};
}

constexpr const char* kPolyline = "0 LWPOLYLINE|100 AcDbEntity|100 AcDbPolyline|90 3|";

} // namespace

TEST(TransformEntity, CarriesEveryPointWithIt)
{
    struct Case
    {
        std::string groups;
        bool anyMap, tilts = true;
    };
    const std::vector<Case> cases = {
        {"0 LINE|10 1 2 3|11 4 5 -6", true},
        {"0 POINT|10 1 2 3", true},
        {"0 3DFACE|10 0 0 0|11 1 0 0|12 1 1 5|13 0 1 0", true},
        {"0 SOLID|10 0 0 1|11 1 0 1|12 0 1 1|13 1 1 1|210 0 1 1", true},
        {"0 CIRCLE|10 1 2 3|40 5", false},
        {"0 ARC|10 1 2 3|40 5|50 0.5|51 6.0|210 0 0 -1", false},
        {"0 ARC|10 1 2 3|40 5|50 3.0|51 1.0|210 1 2 3", false},
        {"0 ELLIPSE|100 AcDbEntity|100 AcDbEllipse|10 1 2 0|11 3 1 0|40 0.4|41 0.5|42 4.0", true},
        {"0 ELLIPSE|100 AcDbEntity|100 AcDbEllipse|10 1 2 0|11 3 1 0|40 1.0|41 0.5|42 4.0", true},
        {kPolyline + std::string("70 1|38 2|10 0 0 0|42 0.5|10 9 0 0|42 -1.7|10 9 9 0|42 0"),
         false},
        {kPolyline + std::string("10 0 0 0|10 9 0 0|10 9 9 0|210 0.2 0 1"), true},
        {"0 TEXT|10 1 2 0|40 2.5|50 0.3|1 Blech", false},
        {"0 MTEXT|100 AcDbEntity|100 AcDbMText|10 1 2 0|40 2.5|41 50|50 0.3|1 Blech", false, false},
        {"0 INSERT|2 B|10 1 2 3|41 2|42 -3|43 1|50 0.7|70 3|71 2|44 10|45 20", false},
    };
    for (const Case& one : cases) {
        for (const NamedMap& map : maps()) {
            Fixture f;
            f.make("0 BLOCK|2 B|10 0 0 0");
            f.make("0 LINE|10 0 0 0|11 1 1 1");
            f.make("0 ENDBLK");
            const ObjectId id = f.make(one.groups);
            ASSERT_EQ(f.error, ErrNo::none) << one.groups;
            const Index index = f.drawing->indexOf(id);
            Points expected = shapeOf(*f.drawing, index);
            for (Point& p : expected) p = map.map(p);
            const TagList before = f.drawing->at(index).tags;
            const Transformed done = transformEntity(*f.drawing, index, map.map);
            if (done == Transformed::done) {
                if (!one.tilts && map.map.z.z < 0.999) continue; // shape is told in the plane
                if (!one.tilts && dot(cross(map.map.x, map.map.y), map.map.z) < 0) continue;
                EXPECT_TRUE(same(expected, shapeOf(*f.drawing, index))) << one.groups << "\n"
                                                                        << map.name;
            } else {
                EXPECT_NE(map.suits, Suits::all) << one.groups << "\n" << map.name;
                EXPECT_FALSE(one.anyMap) << one.groups << "\n" << map.name;
                EXPECT_EQ(before, f.drawing->at(index).tags);
            }
        }
    }
}

TEST(TransformEntity, TakesPartsAlongOrNone)
{
    for (const NamedMap& map : maps()) {
        Fixture f;
        f.make("0 POLYLINE|10 0 0 2|70 1");
        f.make("0 VERTEX|10 0 0 0|42 1");
        f.make("0 VERTEX|10 4 0 0|42 0");
        const Index index = f.drawing->indexOf(f.make("0 SEQEND"));
        ASSERT_EQ(f.drawing->at(index).kind(), Kind::polyline);
        Points expected = shapeOf(*f.drawing, index);
        for (Point& p : expected) p = map.map(p);
        const Transformed done = transformEntity(*f.drawing, index, map.map);
        EXPECT_EQ(done == Transformed::done, map.suits != Suits::few) << map.name;
        if (done == Transformed::done) {
            EXPECT_TRUE(same(expected, shapeOf(*f.drawing, index))) << map.name;
        }
    }
}

TEST(TransformEntity, TakesHatchesWithTheirPatternAlong)
{
    const std::string hatch =
        "0 HATCH|100 AcDbEntity|100 AcDbHatch|10 0 0 3|210 0 0 1|2 X|70 0|71 0|91 2|"
        "92 2|72 1|73 1|93 3|10 0 0 0|42 0.5|10 5 0 0|42 0|10 5 5 0|42 -1|97 0|"
        "92 0|93 3|72 1|10 0 0 0|11 1 0 0|72 2|10 1 2 0|40 3|50 30|51 100|73 0|"
        "72 3|10 1 1 0|11 2 1 0|40 0.5|50 20|51 200|73 1|97 0|75 0|76 1|52 0|41 1|77 0|78 1|"
        "53 45|43 1|44 2|45 -3|46 3|79 1|49 2|98 0";
    for (const NamedMap& map : maps()) {
        Fixture f;
        const ObjectId id = f.make(hatch);
        ASSERT_EQ(f.error, ErrNo::none);
        const Index index = f.drawing->indexOf(id);
        Points expected = shapeOf(*f.drawing, index);
        ASSERT_GT(expected.size(), 20u);
        for (Point& p : expected) p = map.map(p);
        const Transformed done = transformEntity(*f.drawing, index, map.map);
        EXPECT_EQ(done == Transformed::done, map.suits != Suits::few) << map.name;
        if (done == Transformed::done) {
            EXPECT_TRUE(same(expected, shapeOf(*f.drawing, index))) << map.name;
        }
    }
}

TEST(TransformEntity, ScalesThicknessWidthsAndExtendedData)
{
    Fixture f;
    f.drawing->registerApp("A");
    const ObjectId id = f.make(kPolyline + std::string("43 0.5|39 10|10 0 0 0|10 9 0 0|10 9 9 0"));
    const Index index = f.drawing->indexOf(id);
    const Index round = f.drawing->indexOf(f.make("0 CIRCLE|10 1 2 3|40 5"));
    TagList& xdata = f.drawing->edit(index).needExtras().xdata;
    xdata.addText(1001, "A");
    xdata.addPoint(1010, {1, 0, 0});
    xdata.addPoint(1011, {1, 0, 0});
    xdata.addPoint(1013, {1, 0, 0});
    xdata.addReal(1041, 3.0);
    Transform map = turnAbout({0, 0, 1}, kPi / 2.0);
    for (Point* axis : {&map.x, &map.y, &map.z}) *axis = 2.0 * *axis;
    ASSERT_EQ(transformEntity(*f.drawing, index, map), Transformed::done);
    ASSERT_EQ(transformEntity(*f.drawing, round, map), Transformed::done);
    EXPECT_NEAR(f.drawing->at(round).tags.real(40), 10.0, 1e-12);
    const Record& record = f.drawing->at(index);
    EXPECT_NEAR(record.tags.real(43), 1.0, 1e-12);
    EXPECT_NEAR(record.tags.real(39), 20.0, 1e-12);
    const TagList& data = record.extras()->xdata;
    EXPECT_EQ(data.point(1010), (Point{1, 0, 0})); // stays
    EXPECT_NEAR(length(data.point(1011) - Point{0, 2, 0}), 0.0, 1e-12);
    EXPECT_NEAR(length(data.point(1013) - Point{0, 1, 0}), 0.0, 1e-12);
    EXPECT_NEAR(data.real(1041), 6.0, 1e-12);
    // A thickness cannot stand askew, and nothing has an image without extent.
    Transform askew;
    askew.z = {0.5, 0, 1};
    EXPECT_EQ(transformEntity(*f.drawing, index, askew), Transformed::unsuitable);
    askew.z = {};
    EXPECT_EQ(transformEntity(*f.drawing, index, askew), Transformed::unsuitable);
}
