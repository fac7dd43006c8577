// SPDX-License-Identifier: LicenseRef-ORVALD
#include "entity_groups.h"

#include "hostapi/entity.h"
#include "kex/frame.h"

#include <algorithm>
#include <cmath>

namespace KEX {

EntityGroups::EntityGroups(const CAdsName& entity)
    : chain_(entity.isNull() ? nullptr : acdbEntGet(entity.asName()))
{
}

const resbuf* EntityGroups::find(int code) const
{
    for (const resbuf* node = first(); node != nullptr; node = node->rbnext) {
        if (node->restype == code) return node;
    }
    return nullptr;
}

TextView EntityGroups::type() const
{
    const resbuf* node = find(0);
    return node == nullptr ? TextView() : TextView(node->resval.rstring);
}

double EntityGroups::real(int code, double none) const
{
    const resbuf* node = find(code);
    return node == nullptr ? none : node->resval.rreal;
}

int EntityGroups::flags(int code) const
{
    const resbuf* node = find(code);
    return node == nullptr ? 0 : node->resval.rint;
}

CKexPoint3d EntityGroups::point(int code) const
{
    const resbuf* node = find(code);
    return node == nullptr ? CKexPoint3d() : CKexPoint3d(node->resval.rpoint);
}

CKexVector3d EntityGroups::normal() const
{
    const resbuf* node = find(210);
    const CKexVector3d given =
        node == nullptr ? CKexVector3d() : CKexPoint3d(node->resval.rpoint).asVector().normal();
    return given == CKexVector3d() ? CKexVector3d(0.0, 0.0, 1.0) : given;
}

EntityPlane::EntityPlane(const CKexVector3d& normal, double elevation)
    : normal_(normal), elevation_(elevation)
{
    // A normal that is not Z or -Z to the last bit but means it.
    constexpr double kUpright = 1e-9;
    tilted_ = std::hypot(normal.x, normal.y) >= kUpright;
    flipped_ = !tilted_ && normal.z < 0.0;
    if (!tilted_) normal_ = {0.0, 0.0, flipped_ ? -1.0 : 1.0};
}

CKexMatrix3d EntityPlane::toWorld() const
{
    return g_mtx_ocs(normal_, CKexPoint3d() + normal_ * elevation_).value_or(CKexMatrix3d());
}

CKexPoint3d EntityPlane::fromEntity(const CKexPoint3d& p) const
{
    if (tilted_) return {p.x, p.y, p.z - elevation_};
    // For -Z the rule makes X the world's -X. Taken from 0, so that a zero stays a positive one.
    return flipped_ ? CKexPoint3d(0.0 - p.x, p.y, 0.0 - p.z) : p;
}

CKexPoint3d EntityPlane::fromWorld(const CKexPoint3d& p) const
{
    if (!tilted_) return p;
    const CKexMatrix3d system = toWorld();
    const CKexVector3d v = p.asVector();
    return {g_mtx_column(system, 0).dot(v), g_mtx_column(system, 1).dot(v),
            normal_.dot(v) - elevation_};
}

std::optional<EntityPlane> entityPlane(const EntityGroups& groups)
{
    const TextView type = groups.type();
    const CKexVector3d normal = groups.normal();
    if (type == KT("LWPOLYLINE")) return EntityPlane(normal, groups.real(38));
    if (type == KT("ELLIPSE")) {
        return EntityPlane(normal, normal.dot(groups.point(10).asVector()));
    }
    constexpr int kSpatialOrMesh = 8 | 16 | 64;
    if (type == KT("POLYLINE") && (groups.flags(70) & kSpatialOrMesh) != 0) return std::nullopt;
    constexpr TextView kPlaneKinds[] = {KT("CIRCLE"), KT("ARC"),    KT("POLYLINE"), KT("SOLID"),
                                        KT("TRACE"),  KT("TEXT"),   KT("ATTRIB"),   KT("ATTDEF"),
                                        KT("HATCH"),  KT("INSERT"), KT("SHAPE")};
    const bool plane = std::ranges::find(kPlaneKinds, type) != std::end(kPlaneKinds);
    return plane ? std::optional(EntityPlane(normal, groups.point(10).z)) : std::nullopt;
}

} // namespace KEX
