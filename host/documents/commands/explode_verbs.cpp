// SPDX-License-Identifier: LicenseRef-ORVALD
// EXPLODE: inserts and dimensions into the entities of their blocks, polylines into lines and arcs.
#include "commands/making.h"
#include "commands/selecting.h"
#include "commands/verbs.h"
#include "document.h"
#include "drawing/clone.h"
#include "drawing/text.h"
#include "drawing/transform.h"

#include <cmath>

namespace orvald {
namespace {

using drawing::Index;
using drawing::Kind;
using drawing::Point;

/// What stands in the block, as the map shows it; false, and nothing made, when part of it has no
/// such image.
bool explodeBlock(Command& command, Index block, const drawing::Transform& map)
{
    drawing::Drawing& drawing = command.drawing();
    std::vector<Index> entities;
    for (Index one = drawing.firstChild(block); one != drawing::kNone; one = drawing.next(one))
        if (!drawing.at(one).erased) entities.push_back(one);
    std::vector<Index> made;
    for (const drawing::Copied& copy : copyWithin(drawing, entities, drawing.currentSpace()))
        if (drawing.at(copy.made).isMainEntity()) made.push_back(copy.made);
    for (const Index copy : made) {
        if (transformEntity(drawing, copy, map) == drawing::Transformed::done) continue;
        for (const Index one : made) drawing.setErased(one, true);
        return false;
    }
    return true;
}

bool explodeInsert(Command& command, Index index)
{
    drawing::Drawing& drawing = command.drawing();
    const drawing::InsertView view = drawing::insertView(drawing.at(index));
    const Index block = drawing.findRecord(drawing::TableId::blockRecord, view.block);
    if (block == drawing::kNone || view.columns > 1 || view.rows > 1) return false;
    return explodeBlock(command, block, view.transform(drawing::blockBase(drawing, block)));
}

bool explodeDimension(Command& command, Index index)
{
    drawing::Drawing& drawing = command.drawing();
    const Index block =
        drawing.findRecord(drawing::TableId::blockRecord, drawing.at(index).tags.text(2));
    return block != drawing::kNone && explodeBlock(command, block, {});
}

/// One segment between two vertices in entity coordinates.
void makeSegment(Command& command, const drawing::Record& like, const drawing::PolylineView& view,
                 Point from, Point to, double bulge)
{
    const drawing::Transform toWorld =
        view.spatial ? drawing::Transform{} : drawing::entityToWorld(view.normal);
    const double thickness = like.tags.real(39);
    const Point across = to - from;
    if (bulge == 0.0 || length(across) == 0.0) {
        Groups line = newEntity(u"LINE", u"AcDbLine");
        line.like(like).point(10, toWorld(from)).point(11, toWorld(to));
        if (thickness != 0.0) line.real(39, thickness).point(210, view.normal);
        line.make(command);
        return;
    }
    // Centre left of the chord for bulges between 0 and 1.
    const double toCentre = (1.0 - bulge * bulge) / (4.0 * bulge);
    const Point centre{0.5 * (from.x + to.x) - across.y * toCentre,
                       0.5 * (from.y + to.y) + across.x * toCentre, from.z};
    const double start = std::atan2(from.y - centre.y, from.x - centre.x);
    const double end = std::atan2(to.y - centre.y, to.x - centre.x);
    Groups arc = newEntity(u"ARC", u"AcDbCircle");
    arc.like(like).point(10, centre).real(40, std::hypot(from.x - centre.x, from.y - centre.y));
    if (thickness != 0.0) arc.real(39, thickness);
    arc.point(210, view.normal).text(100, u"AcDbArc");
    arc.real(50, bulge > 0.0 ? start : end).real(51, bulge > 0.0 ? end : start).make(command);
}

bool explodePolyline(Command& command, Index index)
{
    const drawing::Record like = command.drawing().at(index);
    const drawing::PolylineView view = drawing::polylineView(command.drawing(), index);
    const std::size_t count = view.vertices.size();
    if (view.mesh || count < 2) return false;
    const auto at = [&](std::size_t i) {
        const Point p = view.vertices[i % count].at;
        return view.spatial ? p : Point{p.x, p.y, view.elevation};
    };
    for (std::size_t i = 0; i < (view.closed ? count : count - 1); ++i)
        makeSegment(command, like, view, at(i), at(i + 1), view.vertices[i].bulge);
    return true;
}

bool explodeOne(Command& command, Index index)
{
    switch (command.drawing().at(index).kind()) {
    case Kind::insert: return explodeInsert(command, index);
    case Kind::dimension: return explodeDimension(command, index);
    case Kind::lwpolyline:
    case Kind::polyline: return explodePolyline(command, index);
    default: return false;
    }
}

// EXPLODE object|set
Task<> explode(Command& command)
{
    const std::vector<Index> objects = co_await command.changeableOnce();
    std::size_t left = 0;
    for (const Index object : objects) {
        if (explodeOne(command, object)) command.drawing().setErased(object, true);
        else ++left;
    }
    if (left != 0) {
        command.print(u"EXPLODE: " + drawing::text16(std::to_string(left)) +
                      u" objects cannot be exploded.");
    }
}

constexpr Verb kTable[] = {{u"EXPLODE", explode}};

} // namespace

std::span<const Verb> explodeVerbs() { return kTable; }

} // namespace orvald
