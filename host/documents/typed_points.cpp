// SPDX-License-Identifier: LicenseRef-ORVALD
#include "typed_points.h"

#include "coordinate_systems.h"
#include "document.h"

namespace orvald {

using drawing::Point;

TypedUnits typedUnits(const SystemVariables& variables)
{
    return {variables.integer(u"LUNITS"), variables.integer(u"AUNITS"), variables.real(u"ANGBASE"),
            variables.integer(u"ANGDIR") == 1};
}

std::optional<Point> pointFrom(Document& document, std::u16string_view text,
                               std::optional<Point> base)
{
    SystemVariables& variables = document.variables();
    const std::optional<TypedPoint> typed = readPoint(text, typedUnits(variables));
    if (!typed) return std::nullopt;
    Point point = typed->value;
    if (typed->world) {
        const drawing::Transform toUser = inverseRigid(userToWorld(document.drawing()));
        point = typed->relative ? toUser.direction(point) : toUser(point);
    }
    if (typed->relative) point = point + base.value_or(variables.point(u"LASTPOINT"));
    else if (!typed->hasZ && !typed->world) point.z = variables.real(u"ELEVATION");
    variables.setPoint(u"LASTPOINT", point);
    return point;
}

} // namespace orvald
