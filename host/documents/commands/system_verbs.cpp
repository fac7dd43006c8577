// SPDX-License-Identifier: LicenseRef-ORVALD
// UCS: the coordinate system of the user. A system is a rigid map to world coordinates.
#include "commands/making.h"
#include "commands/selecting.h"
#include "commands/verbs.h"
#include "coordinate_systems.h"
#include "document.h"
#include "drawing/curve.h"
#include "drawing/text.h"

#include <cmath>

namespace orvald {
namespace {

using drawing::Index;
using drawing::Point;
using drawing::TableId;
using drawing::Transform;

constexpr std::size_t kMostBefore = 10; // systems that Previous goes back to

Point unit(Command& command, Point v)
{
    const double size = length(v);
    if (!(size > 0.0)) command.refuse(u"an axis has a direction");
    return 1.0 / size * v;
}

void store(Command& command, const Transform& system)
{
    drawing::Drawing& drawing = command.drawing();
    const bool paper = drawing.header.integer("$TILEMODE", 1) == 0;
    drawing.header.setPoint(paper ? "$PUCSORG" : "$UCSORG", 10, system.origin);
    drawing.header.setPoint(paper ? "$PUCSXDIR" : "$UCSXDIR", 10, system.x);
    drawing.header.setPoint(paper ? "$PUCSYDIR" : "$UCSYDIR", 10, system.y);
    drawing.header.setText(paper ? "$PUCSNAME" : "$UCSNAME", 2, "");
    drawing.noteChange();
}

void set(Command& command, const Transform& system)
{
    std::vector<Transform>& before = command.document().user().systems;
    if (before.size() == kMostBefore) before.erase(before.begin());
    before.push_back(userToWorld(command.drawing()));
    store(command, system);
}

/// A system of present user coordinates; `x` and `inPlane` need not stand at right angles.
Transform systemOf(Command& command, Point origin, Point x, Point inPlane)
{
    Transform local;
    local.origin = origin;
    local.x = unit(command, x);
    local.z = unit(command, cross(x, inPlane));
    local.y = cross(local.z, local.x);
    return userToWorld(command.drawing()).after(local);
}

// ... origin [x axis [point of the plane]], each Enter keeps the present direction
Task<> byPoints(Command& command, Point origin)
{
    const Answer<Point> x = co_await command.point(u"Specify point on X-axis or <accept>: ");
    if (!x) {
        set(command, systemOf(command, origin, {1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}));
        co_return;
    }
    const Answer<Point> y = co_await command.point(u"Specify point on the XY plane or <accept>: ");
    const Point along = *x - origin;
    set(command, systemOf(command, origin, along, y ? *y - origin : Point{-along.y, along.x, 0.0}));
}

// ... ZAxis origin point
Task<> byZAxis(Command& command)
{
    const Answer<Point> origin = co_await command.point(u"Specify new origin point: ");
    const Point base = origin.value.value_or(Point{});
    const Answer<Point> z =
        co_await command.point(u"Specify point on positive portion of Z-axis: ");
    const Point normal = z ? *z - base : Point{0.0, 0.0, 1.0};
    Transform local = drawing::entityToWorld(unit(command, normal));
    local.origin = base;
    set(command, userToWorld(command.drawing()).after(local));
}

// ... X|Y|Z angle
Task<> turned(Command& command, char16_t axis)
{
    const Answer<double> angle = co_await command.angle(u"Specify rotation angle <90>: ");
    const double turn = angle ? *angle : std::acos(0.0);
    const double c = std::cos(turn), s = std::sin(turn);
    Transform local;
    Point& first = axis == u'X' ? local.y : axis == u'Y' ? local.z : local.x;
    Point& second = axis == u'X' ? local.z : axis == u'Y' ? local.x : local.y;
    const Point a = first, b = second;
    first = c * a + s * b;
    second = c * b - s * a;
    set(command, userToWorld(command.drawing()).after(local));
}

/// The system that an object lies in: x along its start.
Transform systemOfObject(Command& command, Index object)
{
    const drawing::Record& record = command.drawing().at(object);
    const Point normal = record.tags.point(210, {0.0, 0.0, 1.0});
    Transform system = drawing::entityToWorld(normal);
    const auto curve = drawing::Curve::of(command.drawing(), object);
    const auto start = curve ? curve->at(curve->start()) : std::nullopt;
    switch (record.kind()) {
    case drawing::Kind::line:
    case drawing::Kind::lwpolyline:
    case drawing::Kind::polyline:
        if (!start) break;
        system.origin = start->at;
        if (const Point along = start->first; length(along) > 0.0) {
            system.x = unit(command, along);
            system.z = unit(command, system.z - dot(system.z, system.x) * system.x);
            system.y = cross(system.z, system.x);
        }
        break;
    default:
        system.origin = entityToWorld(record)(record.tags.point(10));
        if (record.tags.has(50)) {
            const double turn = record.tags.real(50) * std::acos(-1.0) / 180.0;
            const Point x = system.x, y = system.y;
            system.x = std::cos(turn) * x + std::sin(turn) * y;
            system.y = std::cos(turn) * y - std::sin(turn) * x;
        }
        break;
    }
    return system;
}

// ... Save|Restore|Delete name
Task<> named(Command& command, std::u16string_view option)
{
    const std::u16string name = co_await command.text(u"Enter name of UCS: ");
    drawing::Drawing& drawing = command.drawing();
    Index record = drawing.findRecord(TableId::ucs, drawing::fileForm(name));
    if (option == u"Save") {
        const Transform system = userToWorld(drawing);
        if (record == drawing::kNone) {
            Groups made = newRecord(u"UCS", u"AcDbUCSTableRecord", name);
            made.point(10, system.origin).point(11, system.x).point(12, system.y);
            made.make(command);
        } else {
            changeOf(command, record)
                .point(10, system.origin)
                .point(11, system.x)
                .point(12, system.y)
                .apply(command);
        }
        co_return;
    }
    if (record == drawing::kNone) command.refuse(u"there is no coordinate system " + name);
    if (option == u"Delete") {
        drawing.setErased(record, true);
        co_return;
    }
    const drawing::TagList& tags = drawing.at(record).tags;
    Transform system;
    system.origin = tags.point(10);
    system.x = tags.point(11, {1.0, 0.0, 0.0});
    system.y = tags.point(12, {0.0, 1.0, 0.0});
    set(command, system);
}

void previous(Command& command)
{
    std::vector<Transform>& before = command.document().user().systems;
    if (before.empty()) command.refuse(u"there is no previous coordinate system");
    store(command, before.back());
    before.pop_back();
}

// UCS World|Origin p|point [point [point]]|3 p p p|ZAxis p p|OBject e|View|X|Y|Z angle|Previous|
// Save|Restore|Delete name; New and Move before them change nothing; Enter is World
Task<> ucs(Command& command)
{
    for (;;) {
        const Answer<Point> answer = co_await command.point(
            u"Specify origin of UCS or [3/ZAxis/OBject/View/X/Y/Z/World/Previous/Save/Restore/"
            u"Delete] <World>: ",
            u"World Origin 3 3point ZAxis Object OBject Entity View X Y Z Previous Save Restore "
            u"Delete "
            u"New Move NAmed");
        if (answer.is(u"New") || answer.is(u"Move") || answer.is(u"NAmed")) continue;
        if (answer) {
            co_await byPoints(command, *answer);
        } else if (answer.isEnter() || answer.is(u"World")) {
            set(command, {});
        } else if (answer.is(u"Origin")) {
            const Answer<Point> origin = co_await command.point(u"Specify new origin point: ");
            if (origin) {
                set(command, systemOf(command, *origin, {1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}));
            }
        } else if (answer.is(u"3") || answer.is(u"3point")) {
            const Answer<Point> origin = co_await command.point(u"Specify new origin point: ");
            co_await byPoints(command, origin.value.value_or(Point{}));
        } else if (answer.is(u"ZAxis")) {
            co_await byZAxis(command);
        } else if (answer.is(u"Object") || answer.is(u"OBject") || answer.is(u"Entity")) {
            const Answer<Picked> picked = co_await command.entity(u"Select object to align UCS: ");
            if (picked) set(command, systemOfObject(command, picked->entity));
        } else if (answer.is(u"View")) {
            Transform system = displayToWorld(command.drawing());
            system.origin = userToWorld(command.drawing()).origin;
            set(command, system);
        } else if (answer.is(u"Previous")) {
            previous(command);
        } else if (answer.keyword.size() == 1) {
            co_await turned(command, answer.keyword.front());
        } else {
            co_await named(command, answer.keyword);
        }
        co_return;
    }
}

constexpr Verb kTable[] = {{u"UCS", ucs}};

} // namespace

std::span<const Verb> systemVerbs() { return kTable; }

} // namespace orvald
