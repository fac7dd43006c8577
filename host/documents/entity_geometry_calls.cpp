// SPDX-License-Identifier: LicenseRef-ORVALD
// Geometry of entities through classes.
#include "drawing/transform.h"
#include "drawing/views.h"
#include "hostapi/objects.h"
#include "object_access.h"

using namespace orvald;

Acad::ErrorStatus AcDbEntity::getGeomExtents(AcDbExtents& extents) const
{
    if (state().fresh) return Acad::eNotInDatabase;
    const drawing::Box box = drawing::extents(*state().drawing, state().index);
    if (box.empty()) return Acad::eNullExtents;
    const auto outer = [](drawing::Point p) { return AcGePoint3d{p.x, p.y, p.z}; };
    extents = AcDbExtents(outer(box.min()), outer(box.max()));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::transformBy(const AcGeMatrix3d& map)
{
    if (state().fresh) return Acad::eNotInDatabase;
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    const auto column = [&](int i) {
        return drawing::Point{map.entry[0][i], map.entry[1][i], map.entry[2][i]};
    };
    const drawing::Transform transform{column(0), column(1), column(2), column(3)};
    switch (drawing::transformEntity(*state().drawing, state().index, transform)) {
    case drawing::Transformed::unsuitable: return Acad::eCannotScaleNonUniformly;
    case drawing::Transformed::unknown: return Acad::eNotApplicable;
    case drawing::Transformed::done: break;
    }
    state().modified = state().graphicsModified = true;
    return Acad::eOk;
}
