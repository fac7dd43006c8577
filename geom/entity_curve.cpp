// SPDX-License-Identifier: LicenseRef-ORVALD
#include "geom/entity_curve.h"

#include "entity_groups.h"
#include "geom/entity_outline.h"
#include "hatch_loops.h"
#include "kex/vertex_area.h"

#include <algorithm>
#include <cmath>

namespace KEX {
namespace {

bool isCurve(TextView type)
{
    constexpr TextView kCurves[] = {KT("LINE"),    KT("ARC"),    KT("CIRCLE"),  KT("LWPOLYLINE"),
                                    KT("ELLIPSE"), KT("SPLINE"), KT("POLYLINE")};
    return std::ranges::find(kCurves, type) != std::end(kCurves);
}

bool isLevel(const CKexVertexArray& list)
{
    const double z = list.first().startPoint().z;
    return std::ranges::all_of(list, [z](const CKexVertex& vertex) {
        return vertex.startPoint().z == z && vertex.endPoint().z == z;
    });
}

/// Half the vector sum of the edges' cross products: its length is the area, whatever the plane.
double spatialArea(const CKexVertexArray& list)
{
    const CKexPoint3d origin = list.first().startPoint();
    CKexVector3d sum;
    for (const CKexVertex& vertex : list) {
        sum = sum + (vertex.startPoint() - origin).cross(vertex.endPoint() - origin);
    }
    return 0.5 * sum.length();
}

std::optional<double> ellipseArea(const EntityGroups& groups)
{
    const double sweep = groups.real(42, kTwoPi) - groups.real(41);
    if (std::abs(std::abs(sweep) - kTwoPi) > kAngleNoise) return std::nullopt;
    const double major = groups.point(11).asVector().length();
    return kPi * major * major * groups.real(40, 1.0);
}

} // namespace

std::optional<EntityCurve> EntityCurve::of(const CAdsName& entity, double dif)
{
    const EntityGroups groups(entity);
    if (!isCurve(groups.type())) return std::nullopt;
    std::optional<CKexVertexArray> list = entityOutline(entity, dif);
    if (!list) return std::nullopt;
    EntityCurve curve;
    curve.list_ = std::move(*list);
    const std::optional<EntityPlane> plane = entityPlane(groups);
    if (plane && plane->isTilted()) {
        const CKexMatrix3d toWorld = plane->toWorld();
        curve.plane_ = System{toWorld, toWorld.inverse().value_or(CKexMatrix3d())};
    }
    return curve;
}

bool EntityCurve::isClosed() const
{
    return list_.length() > 1 && list_.first().startPoint().isEqualTo(list_.last().endPoint());
}

double EntityCurve::area() const
{
    return isLevel(list_) ? std::abs(vl_area(list_)) : spatialArea(list_);
}

std::optional<double> e_len(const CAdsName& entity)
{
    const auto curve = EntityCurve::of(entity);
    return curve ? std::optional(curve->length()) : std::nullopt;
}

std::optional<double> e_area(const CAdsName& entity)
{
    const EntityGroups groups(entity);
    if (groups.type() == KT("ELLIPSE")) return ellipseArea(groups);
    if (groups.type() == KT("HATCH")) return hatchArea(groups);
    const auto curve = EntityCurve::of(entity);
    return curve && curve->isClosed() ? std::optional(curve->area()) : std::nullopt;
}

std::optional<CKexPoint3d> e_near(const CAdsName& entity, const CKexPoint3d& p, bool extend)
{
    const auto curve = EntityCurve::of(entity);
    return curve ? std::optional(curve->point(curve->nearest(p, extend))) : std::nullopt;
}

std::optional<CKexPoint3d> e_pt(const CAdsName& entity, double length)
{
    const auto curve = EntityCurve::of(entity);
    const auto place = curve ? vl_placeAt(curve->list(), length) : std::nullopt;
    return place ? std::optional(curve->point(*place)) : std::nullopt;
}

std::optional<double> e_dist(const CAdsName& entity, const CKexPoint3d& p)
{
    const auto curve = EntityCurve::of(entity);
    return curve ? std::optional(vl_lengthTo(curve->list(), curve->nearest(p))) : std::nullopt;
}

std::optional<CKexVector3d> e_tang(const CAdsName& entity, const CKexPoint3d& p)
{
    const auto curve = EntityCurve::of(entity);
    return curve ? std::optional(curve->tangent(curve->nearest(p))) : std::nullopt;
}

} // namespace KEX
