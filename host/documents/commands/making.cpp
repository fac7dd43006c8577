// SPDX-License-Identifier: LicenseRef-ORVALD
#include "commands/making.h"

#include "coordinate_systems.h"
#include "document.h"
#include "drawing/text.h"
#include "resbuf/groups.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <numbers>

namespace orvald {

using drawing::Index;
using drawing::Point;
using drawing::Transform;

double withinTurn(double angle)
{
    constexpr double kTurn = 2.0 * std::numbers::pi;
    // A rest this small is a whole turn that rounding has missed.
    constexpr double kRounding = 1e-14;
    const double rest = std::fmod(angle, kTurn);
    const double positive = rest < -kRounding ? rest + kTurn : std::max(rest, 0.0);
    return positive < kTurn ? positive : 0.0;
}

UserPlane::UserPlane(const drawing::Drawing& drawing)
    : toWorld_(userToWorld(drawing)),
      fromWorld_(inverseRigid(toWorld_)),
      toEntity_(inverseRigid(drawing::entityToWorld(toWorld_.z)).after(toWorld_))
{
}

double UserPlane::entityAngle(double user) const
{
    const Point direction = toEntity_.direction({std::cos(user), std::sin(user), 0.0});
    return withinTurn(std::atan2(direction.y, direction.x));
}

resbuf& Groups::append(int code)
{
    resbuf* node = acutNewRb(code);
    if (node == nullptr) throw std::bad_alloc();
    if (last_ == nullptr) chain_.reset(node);
    else last_->rbnext = node;
    last_ = node;
    return *node;
}

Groups& Groups::text(int code, std::u16string_view value)
{
    resbuf& node = append(code);
    node.resval.rstring = newString(value.data(), value.size());
    if (node.resval.rstring == nullptr) throw std::bad_alloc();
    return *this;
}
Groups& Groups::real(int code, double value)
{
    append(code).resval.rreal = value;
    return *this;
}
Groups& Groups::integer(int code, int value)
{
    if (groupKind(code) == GroupKind::int32) append(code).resval.rlong = value;
    else append(code).resval.rint = static_cast<short>(value);
    return *this;
}
Groups& Groups::point(int code, Point value)
{
    double* p = append(code).resval.rpoint;
    p[0] = value.x;
    p[1] = value.y;
    p[2] = value.z;
    return *this;
}

Groups newEntity(std::u16string_view type, std::u16string_view marker)
{
    Groups entity;
    entity.text(0, type).text(100, u"AcDbEntity").text(100, marker);
    return entity;
}

Groups newRecord(std::u16string_view type, std::u16string_view marker, std::u16string_view name)
{
    Groups record;
    record.text(0, type).text(100, u"AcDbSymbolTableRecord").text(100, marker);
    record.text(2, name).integer(70, 0);
    return record;
}

Groups changeOf(Command& command, Index object)
{
    constexpr int kName = -1;
    Groups change;
    nameFromEntity(command.drawing().idOf(object).value, change.append(kName).resval.rlname);
    return change;
}

bool Groups::apply(Command& command)
{
    return command.document().entities().entMod(chain_.get()) == drawing::ErrNo::none;
}

Groups& Groups::like(const drawing::Record& other)
{
    text(8, drawing::text16(other.layer()));
    text(6, drawing::text16(other.tags.text(6, "ByLayer")));
    integer(62, static_cast<int>(other.tags.integer(62, 256)));
    if (other.tags.has(420)) integer(420, static_cast<int>(other.tags.integer(420)));
    integer(370, static_cast<int>(other.tags.integer(370, -1)));
    return real(48, other.tags.real(48, 1.0));
}

Index Groups::make(Command& command)
{
    // Not the document's own functions: a program may be gathering a complex entity with those.
    drawing::EntityFunctions functions(command.drawing());
    return make(command, functions);
}

Index Groups::make(Command& command, drawing::EntityFunctions& functions)
{
    drawing::EntityFunctions::Made made;
    if (functions.entMake(chain_.get(), made) != drawing::ErrNo::none) {
        command.refuse(u"these values make nothing");
    }
    return command.drawing().indexOf(made.id);
}

namespace {

/// Height above the plane and direction, where they are not the usual ones.
void addPlane(Groups& entity, Command& command, const UserPlane& plane)
{
    const double thickness = command.document().variables().real(u"THICKNESS");
    if (thickness != 0.0) entity.real(39, thickness);
    if (plane.normal() != Point{0.0, 0.0, 1.0}) entity.point(210, plane.normal());
}

} // namespace

Index drawLine(Command& command, Point start, Point end)
{
    const UserPlane plane(command.drawing());
    Groups line = newEntity(u"LINE", u"AcDbLine");
    line.point(10, plane.world(start)).point(11, plane.world(end));
    addPlane(line, command, plane);
    return line.make(command);
}

Index drawCircle(Command& command, Point centre, double radius)
{
    const UserPlane plane(command.drawing());
    Groups circle = newEntity(u"CIRCLE", u"AcDbCircle");
    circle.point(10, plane.entity(centre)).real(40, radius);
    addPlane(circle, command, plane);
    return circle.make(command);
}

Index drawArc(Command& command, Point centre, double radius, double start, double end)
{
    const UserPlane plane(command.drawing());
    Groups arc = newEntity(u"ARC", u"AcDbCircle");
    arc.point(10, plane.entity(centre)).real(40, radius);
    addPlane(arc, command, plane);
    arc.text(100, u"AcDbArc");
    arc.real(50, plane.entityAngle(start)).real(51, plane.entityAngle(end));
    return arc.make(command);
}

Index drawPolyline(Command& command, std::span<const drawing::PolylineVertex> vertices, bool closed)
{
    if (vertices.size() < 2) return drawing::kNone;
    const UserPlane plane(command.drawing());
    const bool generated = command.document().variables().integer(u"PLINEGEN") != 0;
    Groups polyline = newEntity(u"LWPOLYLINE", u"AcDbPolyline");
    polyline.integer(90, static_cast<int>(vertices.size()));
    polyline.integer(70, (closed ? 1 : 0) | (generated ? 128 : 0));
    const double elevation = plane.entity(vertices.front().at).z;
    if (elevation != 0.0) polyline.real(38, elevation);
    const double thickness = command.document().variables().real(u"THICKNESS");
    if (thickness != 0.0) polyline.real(39, thickness);
    const double width = vertices.front().startWidth;
    const bool even = std::ranges::all_of(vertices, [&](const drawing::PolylineVertex& vertex) {
        return vertex.startWidth == width && vertex.endWidth == width;
    });
    if (even) polyline.real(43, width);
    for (const drawing::PolylineVertex& vertex : vertices) {
        polyline.point(10, plane.entity(vertex.at));
        if (!even) polyline.real(40, vertex.startWidth).real(41, vertex.endWidth);
        if (vertex.bulge != 0.0) polyline.real(42, vertex.bulge);
    }
    if (plane.normal() != Point{0.0, 0.0, 1.0}) polyline.point(210, plane.normal());
    return polyline.make(command);
}

} // namespace orvald
