// SPDX-License-Identifier: LicenseRef-ORVALD
#include "coordinate_systems.h"

#include <cmath>

namespace orvald {

using drawing::Drawing;
using drawing::Index;
using drawing::Point;
using drawing::Transform;

drawing::Index activeViewport(const Drawing& drawing)
{
    return drawing.findRecord(drawing::TableId::vport, "*Active");
}

Transform userToWorld(const Drawing& drawing)
{
    const bool paper = drawing.header.integer("$TILEMODE", 1) == 0;
    const Point origin = drawing.header.point(paper ? "$PUCSORG" : "$UCSORG");
    const Point xAxis = drawing.header.point(paper ? "$PUCSXDIR" : "$UCSXDIR", {1.0, 0.0, 0.0});
    const Point yAxis = drawing.header.point(paper ? "$PUCSYDIR" : "$UCSYDIR", {0.0, 1.0, 0.0});
    // A file may hold anything: axes without a plane count as the world's.
    const Point normal = cross(xAxis, yAxis);
    const double xLength = length(xAxis), normalLength = length(normal);
    const bool plane = std::isnormal(xLength) && std::isnormal(normalLength);
    Transform map;
    map.origin = origin;
    if (plane) {
        map.x = 1.0 / xLength * xAxis;
        map.z = 1.0 / normalLength * normal;
        map.y = cross(map.z, map.x);
    }
    return map;
}

Transform displayToWorld(const Drawing& drawing)
{
    const Index viewport = activeViewport(drawing);
    if (viewport == drawing::kNone) return {};
    const drawing::TagList& tags = drawing.at(viewport).tags;
    const Transform untwisted = drawing::entityToWorld(tags.point(16, {0.0, 0.0, 1.0}));
    const double twist = tags.real(51) * std::acos(-1.0) / 180.0;
    Transform map = untwisted;
    // A positive twist turns the picture to the left, so the display's axes turn to the right.
    map.x = std::cos(twist) * untwisted.x - std::sin(twist) * untwisted.y;
    map.y = std::sin(twist) * untwisted.x + std::cos(twist) * untwisted.y;
    map.origin = tags.point(17);
    return map;
}

Transform entityToWorld(const drawing::Record& entity)
{
    using drawing::Kind;
    switch (entity.kind()) {
    case Kind::arc:
    case Kind::attdef:
    case Kind::attrib:
    case Kind::circle:
    case Kind::hatch:
    case Kind::insert:
    case Kind::lwpolyline:
    case Kind::polyline:
    case Kind::solid:
    case Kind::text:
    case Kind::trace: return drawing::entityToWorld(entity.tags.point(210, {0.0, 0.0, 1.0}));
    default: return {};
    }
}

Transform inverseRigid(const Transform& map)
{
    Transform inverse;
    inverse.x = {map.x.x, map.y.x, map.z.x};
    inverse.y = {map.x.y, map.y.y, map.z.y};
    inverse.z = {map.x.z, map.y.z, map.z.z};
    inverse.origin = -1.0 * inverse.direction(map.origin);
    return inverse;
}

} // namespace orvald
