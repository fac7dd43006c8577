// SPDX-License-Identifier: LicenseRef-ORVALD
// Typed views of entities: what a picture or a computation needs, read out of a record's groups.
// Angles in radians. Points of plane entities are in entity coordinates (see entityToWorld) where
// the entity has a normal; counts in the record are not trusted.
#pragma once

#include "drawing/drawing.h"
#include "drawing/point.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace orvald::drawing {

struct LineView // LINE; RAY and XLINE: end is the direction
{
    Point start, end;
};
struct ArcView // CIRCLE, ARC: counter-clockwise from start to end; a circle is 0 to 2 pi
{
    Point centre; // entity coordinates
    double radius = 0.0, start = 0.0, end = 0.0;
    Point normal{0.0, 0.0, 1.0};
};
struct EllipseView // world coordinates
{
    Point centre, major; // major: from the centre to the end of the major axis
    double ratio = 1.0;
    double start = 0.0, end = 0.0; // eccentric parameters
    Point normal{0.0, 0.0, 1.0};

    Point at(double parameter) const;
};
struct PolylineVertex
{
    Point at;           // LWPOLYLINE: z is 0.0
    double bulge = 0.0; // of the segment that starts here: tan(angle / 4), positive to the left
    double startWidth = 0.0, endWidth = 0.0;
};
struct PolylineView // LWPOLYLINE, POLYLINE of all kinds that run from vertex to vertex
{
    std::vector<PolylineVertex> vertices;
    bool closed = false;
    bool spatial = false;   // 3-D polyline: world coordinates, no bulges
    bool mesh = false;      // polygon or polyface mesh: vertices are no path
    double elevation = 0.0; // z of all vertices of a plane one
    Point normal{0.0, 0.0, 1.0};
};
struct TextView // TEXT, ATTRIB, ATTDEF
{
    std::string text; // UTF-8
    Point insert;     // entity coordinates
    Point align;      // second point, counts when a justification is not 0
    double height = 0.0, rotation = 0.0, widthFactor = 1.0, oblique = 0.0;
    int horizontal = 0, vertical = 0; // groups 72 and 73 (ATTRIB 74)
    bool backward = false, upsideDown = false, invisible = false;
    std::string_view style; // file form
    Point normal{0.0, 0.0, 1.0};
};
struct MTextView
{
    std::string text; // UTF-8 with format codes
    Point insert;     // world
    double height = 0.0, width = 0.0, rotation = 0.0, lineSpacing = 1.0;
    int attachment = 1;        // 1 top left ... 9 bottom right
    bool exactSpacing = false; // lines are set off by the text's height, whatever stands on them
    std::string_view style;
    Point normal{0.0, 0.0, 1.0};
};
struct InsertView
{
    std::string_view block; // file form
    Point insert;           // entity coordinates
    Point scale{1.0, 1.0, 1.0};
    double rotation = 0.0, columnSpacing = 0.0, rowSpacing = 0.0;
    int columns = 1, rows = 1;
    Point normal{0.0, 0.0, 1.0};

    /// From the block's coordinates to those of the space that holds the insert; `base` is the
    /// block's base point.
    Transform transform(Point base, int column = 0, int row = 0) const;
};
struct SolidView // SOLID, TRACE: entity coordinates; 3DFACE: world. Corners in drawing order.
{
    Point corners[4];
    Point normal{0.0, 0.0, 1.0};
    int hiddenEdges = 0; // 3DFACE: bit i set, the edge from corner i is invisible
};
struct HatchEdge
{
    enum class Type
    {
        line,
        arc,
        ellipse,
        spline
    };
    Type type = Type::line;
    Point start, end;    // line; arc: centre in start; ellipse: centre, major axis end in end
    double radius = 0.0; // arc; ellipse: ratio
    // Arc: true angles. Ellipse: eccentric parameters. From `from` to `to`, clockwise when to <
    // from.
    double from = 0.0, to = 0.0;
    int degree = 0;
    std::vector<double> knots, weights;
    std::vector<Point> controls;
};
struct HatchPath
{
    int flags = 0; // group 92
    bool isPolyline = false, closed = true;
    std::vector<PolylineVertex> vertices;
    std::vector<HatchEdge> edges;
};
struct HatchLine // one family of lines of a pattern
{
    double angle = 0.0;
    Point base, offset;
    std::vector<double> dashes;
};
struct HatchGradient
{
    std::string_view shape; // "LINEAR", "CYLINDER", "SPHERICAL" ...; "" none
    double angle = 0.0;
    std::vector<std::int64_t> colours; // 0xRRGGBB
};
struct HatchView
{
    std::string_view pattern; // file form
    bool solid = false;
    double elevation = 0.0, angle = 0.0, scale = 1.0;
    Point normal{0.0, 0.0, 1.0};
    int style = 0; // 0 odd parity, 1 outer, 2 ignore
    std::vector<HatchPath> paths;
    std::vector<HatchLine> lines;
    HatchGradient gradient;
};

// Each answers what the record holds; the kind is the caller's to know.
LineView lineView(const Record& record);
ArcView arcView(const Record& record);
EllipseView ellipseView(const Record& record);
/// LWPOLYLINE.
PolylineView lwpolylineView(const Record& record);
/// LWPOLYLINE or POLYLINE with its vertices (spline frame points left out).
PolylineView polylineView(const Drawing& drawing, Index index);
TextView textView(const Record& record);
MTextView mtextView(const Record& record);
InsertView insertView(const Record& record);
SolidView solidView(const Record& record);
HatchView hatchView(const Record& record);

/// Corners of the rectangle that a text fills, in the coordinates of its insertion point: by its
/// height and an average width of characters. One that is fitted between two points ends there.
using TextFrame = std::array<Point, 4>;
TextFrame textFrame(const TextView& text);
TextFrame mtextFrame(const MTextView& text);

/// Base point of a block (group 10 of its BLOCK).
Point blockBase(const Drawing& drawing, Index blockRecord);

/// World box of an entity with everything in it; texts by their height and an average width.
/// Erased entities, endless lines and kinds without a known form give an empty box.
Box extents(const Drawing& drawing, Index entity);
/// World box of all entities of a block record.
Box blockExtents(const Drawing& drawing, Index blockRecord);

} // namespace orvald::drawing
