// SPDX-License-Identifier: LicenseRef-ORVALD
#include "geom/entity_place.h"

#include "entity_groups.h"
#include "hostapi/entity.h"
#include "kexobj/open_object.h"

namespace KEX {
namespace {

CKexPoint3d blockBase(TextView name)
{
    const CSmartResbuf block(acdbTblSearch(KT("BLOCK"), CKexString(name).c_str(), 0));
    for (const resbuf* node = block; node != nullptr; node = node->rbnext) {
        if (node->restype == 10) return CKexPoint3d(node->resval.rpoint);
    }
    return {};
}

CKexMatrix3d insertMatrix(const EntityGroups& insert)
{
    const resbuf* const name = insert.find(2);
    const CKexPoint3d base = blockBase(name == nullptr ? TextView() : name->resval.rstring);
    const CKexMatrix3d scale =
        CKexMatrix3d::coordSystem(CKexPoint3d(), {insert.real(41, 1.0), 0, 0},
                                  {0, insert.real(42, 1.0), 0}, {0, 0, insert.real(43, 1.0)});
    const CKexMatrix3d turn = CKexMatrix3d::rotation(insert.real(50), {0, 0, 1});
    const CKexMatrix3d world = EntityPlane(insert.normal(), 0.0).toWorld();
    return world * CKexMatrix3d::translation(insert.point(10).asVector()) * turn * scale *
           CKexMatrix3d::translation(-base.asVector());
}

} // namespace

std::optional<CKexMatrix3d> e_mtx(const CAdsName& entity)
{
    const EntityGroups groups(entity);
    if (groups.type() == KT("INSERT")) return insertMatrix(groups);
    const std::optional<EntityPlane> plane = entityPlane(groups);
    return plane ? std::optional(plane->toWorld()) : std::nullopt;
}

std::optional<Plane> e_plan(const CAdsName& entity)
{
    const std::optional<EntityPlane> plane = entityPlane(EntityGroups(entity));
    if (!plane) return std::nullopt;
    return Plane{CKexPoint3d() + plane->normal() * plane->elevation(), plane->normal()};
}

std::optional<Box> e_ext(const CAdsName& name)
{
    const OpenObject<AcDbEntity> entity(objectIdOf(name));
    AcDbExtents box;
    if (!entity || entity->getGeomExtents(box) != Acad::eOk) return std::nullopt;
    const auto inner = [](const AcGePoint3d& p) { return CKexPoint3d(p.x, p.y, p.z); };
    return Box{inner(box.minPoint()), inner(box.maxPoint())};
}

bool e_trans(const CAdsName& name, const CKexMatrix3d& map)
{
    const OpenObject<AcDbEntity> entity(objectIdOf(name), AcDb::kForWrite);
    if (!entity) return false;
    AcGeMatrix3d outer;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) outer.entry[row][column] = map(row, column);
    }
    return entity->transformBy(outer) == Acad::eOk;
}

} // namespace KEX
