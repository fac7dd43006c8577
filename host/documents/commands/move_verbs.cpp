// SPDX-License-Identifier: LicenseRef-ORVALD
// SELECT, ERASE, MOVE, COPY, ROTATE, SCALE, MIRROR: whole objects, mapped in the user's plane.
#include "commands/making.h"
#include "commands/selecting.h"
#include "commands/verbs.h"
#include "document.h"
#include "drawing/clone.h"
#include "drawing/text.h"
#include "drawing/transform.h"
#include "drawing/views.h"

#include <cmath>
#include <utility>

namespace orvald {
namespace {

using drawing::Index;
using drawing::Point;
using drawing::Transform;

std::u16string counted(std::size_t count, std::u16string_view what)
{
    return drawing::text16(std::to_string(count)) + u" " + std::u16string(what);
}

/// Maps the objects by `map(drawing, object, world)`, where `world` is the map of user coordinates
/// as one of world coordinates, and says which do not take it.
template <class Map>
void mapAll(Command& command, const std::vector<Index>& objects, const Transform& user, Map&& map)
{
    const Transform world = UserPlane(command.drawing()).worldMap(user);
    std::size_t left = 0;
    for (const Index object : objects) {
        if (map(command.drawing(), object, world) != drawing::Transformed::done) ++left;
    }
    if (left != 0) {
        command.print(std::u16string(command.name()) + u": " +
                      counted(left, u"objects do not take this change and stay as they are."));
    }
}

void mapAll(Command& command, const std::vector<Index>& objects, const Transform& user)
{
    mapAll(command, objects, user, drawing::transformEntity);
}

bool isLettering(drawing::Kind kind)
{
    return kind == drawing::Kind::text || kind == drawing::Kind::attrib ||
           kind == drawing::Kind::attdef || kind == drawing::Kind::mtext;
}

/// The reflection that makes the mirror image of a text readable in its place: about the middle of
/// the room that it fills, along its line or across, whichever turns it less.
Transform turnedBack(const drawing::Record& text, const Transform& mirror)
{
    drawing::TextFrame frame;
    if (text.kind() == drawing::Kind::mtext) {
        frame = mtextFrame(mtextView(text));
    } else {
        const drawing::TextView view = textView(text);
        frame = textFrame(view);
        for (Point& corner : frame) corner = drawing::entityToWorld(view.normal)(corner);
    }
    const Point along = frame[1] - frame[0], image = mirror.direction(along);
    constexpr double kSquare = 1e-9; // of a text's length; square to its line, it turns to the left
    Point across = dot(image, along) < -kSquare * dot(along, along)
                       ? image
                       : mirror.direction(frame[3] - frame[0]);
    if (!(length(across) > 0.0)) return {}; // fills no room
    across = 1.0 / length(across) * across;
    const Point middle = mirror(0.5 * (frame[0] + frame[2]));
    Transform back;
    back.x = back.x - 2.0 * across.x * across;
    back.y = back.y - 2.0 * across.y * across;
    back.z = back.z - 2.0 * across.z * across;
    back.origin = 2.0 * dot(middle, across) * across;
    return back;
}

/// Mirrors an object, but for its texts, which are moved to where their images stand (MIRRTEXT 0).
drawing::Transformed mirrorReadably(drawing::Drawing& drawing, Index object, const Transform& map)
{
    if (isLettering(drawing.at(object).kind()))
        return transformEntity(drawing, object, turnedBack(drawing.at(object), map).after(map));
    std::vector<std::pair<Index, Transform>> attributes;
    for (Index part = drawing.firstChild(object); part != drawing::kNone;
         part = drawing.next(part)) {
        if (isLettering(drawing.at(part).kind()))
            attributes.emplace_back(part, turnedBack(drawing.at(part), map));
    }
    const drawing::Transformed done = transformEntity(drawing, object, map);
    if (done == drawing::Transformed::done) {
        for (const auto& [part, back] : attributes) transformEntity(drawing, part, back);
    }
    return done;
}

/// Copies of the objects, in the same space and order.
std::vector<Index> copyAll(Command& command, const std::vector<Index>& objects)
{
    drawing::Drawing& drawing = command.drawing();
    std::unordered_map<Index, Index> copies;
    for (const drawing::Copied& pair : copyWithin(drawing, objects, drawing.currentSpace()))
        copies.emplace(pair.old, pair.made);
    std::vector<Index> made;
    for (const Index object : objects) {
        if (const auto copy = copies.find(object); copy != copies.end()) {
            made.push_back(copy->second);
        }
    }
    return made;
}

Transform shift(Point by)
{
    Transform map;
    map.origin = by;
    return map;
}

/// The map with `fixed` as its fixed point.
Transform about(Point fixed, Transform map)
{
    map.origin = fixed - map.direction(fixed);
    return map;
}

// SELECT objects
Task<> select(Command& command) { co_await command.selection(); }

// ERASE objects
Task<> erase(Command& command)
{
    for (const Index object : co_await command.changeable())
        command.drawing().setErased(object, true);
}

/// The displacement of MOVE and COPY: from a base point to a second one, or the first one itself.
/// Also gives the base point, for further copies.
struct Displacement
{
    Point by;
    std::optional<Point> base;
};
Task<std::optional<Displacement>> displacement(Command& command, Answer<Point> base)
{
    if (base.is(u"Displacement")) {
        const Answer<Point> by = co_await command.point(u"Specify displacement: ");
        if (!by) co_return std::nullopt;
        co_return Displacement{*by, {}};
    }
    if (!base) co_return std::nullopt;
    const Answer<Point> to =
        co_await command.point(u"Specify second point or <use first point as displacement>: ");
    if (!to) co_return Displacement{*base, {}};
    co_return Displacement{*to - *base, *base};
}

// MOVE objects base|Displacement [point|Enter]
Task<> move(Command& command)
{
    const std::vector<Index> objects = co_await command.changeable();
    if (objects.empty()) co_return;
    const Answer<Point> base =
        co_await command.point(u"Specify base point or [Displacement]: ", u"Displacement");
    const std::optional<Displacement> way = co_await displacement(command, base);
    if (way) mapAll(command, objects, shift(way->by));
}

// COPY objects [Multiple|mOde Single|Multiple] base|Displacement point [point ...]
Task<> copy(Command& command)
{
    const std::vector<Index> objects = co_await command.selection();
    if (objects.empty()) co_return;
    bool multiple = false;
    Answer<Point> base;
    for (;;) {
        base = co_await command.point(u"Specify base point or [Displacement/mOde/Multiple]: ",
                                      u"Displacement mOde Multiple");
        if (base.is(u"Multiple")) {
            multiple = true;
        } else if (base.is(u"mOde")) {
            const Answer<NoValue> mode =
                co_await command.option(u"Enter a copy mode option: ", u"Single Multiple");
            multiple = mode.is(u"Multiple");
        } else {
            break;
        }
    }
    const std::optional<Displacement> way = co_await displacement(command, base);
    if (!way) co_return;
    mapAll(command, copyAll(command, objects), shift(way->by));
    while (multiple && way->base) {
        const Answer<Point> next =
            co_await command.point(u"Specify second point or [Exit]: ", u"Exit");
        if (!next) break;
        mapAll(command, copyAll(command, objects), shift(*next - *way->base));
    }
}

// ROTATE objects base [Copy] angle|Reference angle angle
Task<> rotate(Command& command)
{
    std::vector<Index> objects = co_await command.changeable();
    if (objects.empty()) co_return;
    const Answer<Point> base = co_await command.point(u"Specify base point: ");
    if (!base) co_return;
    Answer<double> angle;
    bool copies = false;
    for (;;) {
        angle = co_await command.angle(u"Specify rotation angle or [Copy/Reference]: ",
                                       u"Copy Reference", *base);
        if (!angle.is(u"Copy")) break;
        copies = true;
    }
    double turn = angle.value.value_or(0.0);
    if (angle.is(u"Reference")) {
        const Answer<double> from = co_await command.direction(u"Specify the reference angle: ");
        const Answer<double> to = co_await command.direction(u"Specify the new angle: ", {}, *base);
        if (!to) co_return;
        turn = *to - from.value.value_or(0.0);
    }
    if (copies) objects = copyAll(command, objects);
    Transform map;
    map.x = {std::cos(turn), std::sin(turn), 0.0};
    map.y = {-map.x.y, map.x.x, 0.0};
    mapAll(command, objects, about(*base, map));
}

// SCALE objects base [Copy] factor|Reference length length
Task<> scale(Command& command)
{
    std::vector<Index> objects = co_await command.changeable();
    if (objects.empty()) co_return;
    const Answer<Point> base = co_await command.point(u"Specify base point: ");
    if (!base) co_return;
    Answer<double> factor;
    bool copies = false;
    for (;;) {
        factor = co_await command.distance(u"Specify scale factor or [Copy/Reference]: ",
                                           u"Copy Reference", *base);
        if (!factor.is(u"Copy")) break;
        copies = true;
    }
    double size = factor.value.value_or(0.0);
    if (factor.is(u"Reference")) {
        const Answer<double> from = co_await command.distance(u"Specify reference length: ");
        const Answer<double> to = co_await command.distance(u"Specify new length: ", {}, *base);
        if (!to) co_return;
        if (from.value.value_or(1.0) == 0.0) command.refuse(u"a reference length is not 0");
        size = *to / from.value.value_or(1.0);
    }
    if (!(size > 0.0) || !std::isfinite(size)) command.refuse(u"a factor is greater than 0");
    if (copies) objects = copyAll(command, objects);
    Transform map;
    map.x = {size, 0.0, 0.0};
    map.y = {0.0, size, 0.0};
    map.z = {0.0, 0.0, size};
    mapAll(command, objects, about(*base, map));
}

// MIRROR objects p1 p2 [Yes|No]
Task<> mirror(Command& command)
{
    std::vector<Index> objects = co_await command.selection();
    if (objects.empty()) co_return;
    const Answer<Point> a = co_await command.point(u"Specify first point of mirror line: ");
    const Answer<Point> b = co_await command.point(u"Specify second point of mirror line: ");
    if (!a || !b) co_return;
    const Answer<NoValue> erased =
        co_await command.option(u"Erase source objects? [Yes/No] <N>: ", u"Yes No");
    const double x = b->x - a->x, y = b->y - a->y, square = x * x + y * y;
    if (!(square > 0.0)) command.refuse(u"a line has two points");
    if (!erased.is(u"Yes")) objects = copyAll(command, objects);
    Transform map;
    map.x = {(x * x - y * y) / square, 2.0 * x * y / square, 0.0};
    map.y = {map.x.y, -map.x.x, 0.0};
    const bool mirrorsTexts = command.document().variables().integer(u"MIRRTEXT") != 0;
    mapAll(command, objects, about(*a, map),
           mirrorsTexts ? drawing::transformEntity : mirrorReadably);
}

constexpr Verb kTable[] = {
    {u"COPY", copy},     {u"ERASE", erase}, {u"MIRROR", mirror}, {u"MOVE", move},
    {u"ROTATE", rotate}, {u"SCALE", scale}, {u"SELECT", select},
};

} // namespace

std::span<const Verb> moveVerbs() { return kTable; }

} // namespace orvald
