// SPDX-License-Identifier: LicenseRef-ORVALD
#include "screen_picking.h"

#include "coordinate_systems.h"
#include "document.h"

#include <algorithm>

namespace orvald {

using drawing::Point;
using drawing::Transform;

namespace {

Transform worldToView(Document& document)
{
    return inverseRigid(displayToWorld(document.drawing()));
}

Transform userToView(Document& document)
{
    return worldToView(document).after(userToWorld(document.drawing()));
}

} // namespace

double pixelSize(Document& document)
{
    const SystemVariables& variables = document.variables();
    return variables.real(u"VIEWSIZE") / variables.point(u"SCREENSIZE").y;
}

std::vector<drawing::ObjectId> objectsIn(Document& document, drawing::Border border,
                                         std::span<const Point> corners)
{
    const Transform map = userToView(document);
    std::vector<Point> seen;
    for (const Point corner : corners) seen.push_back(map(corner));
    if (seen.size() == 2 && border != drawing::Border::fence) {
        const Point a = seen[0], b = seen[1];
        seen = {a, {b.x, a.y, 0.0}, b, {a.x, b.y, 0.0}};
    }
    const drawing::Drawing& drawing = document.drawing();
    std::vector<drawing::ObjectId> found;
    for (const drawing::Index entity : entitiesIn(drawing, border, seen, worldToView(document)))
        found.push_back(drawing.idOf(entity));
    return found;
}

std::optional<drawing::Hit> objectAt(Document& document, Point place)
{
    const SystemVariables& variables = document.variables();
    const double reach = pixelSize(document) * std::max(1, variables.integer(u"PICKBOX"));
    return entityAt(document.drawing(), userToView(document)(place), reach, worldToView(document));
}

} // namespace orvald
