// SPDX-License-Identifier: LicenseRef-ORVALD
#include "geom/entity_lists.h"

#include "geom/entity_curve.h"
#include "geom/entity_outline.h"
#include "hostapi/objects.h"
#include "kexobj/open_object.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace KEX {
namespace {

void erase(const CKexEnameArray& names)
{
    for (const CKexEname& name : names) {
        const OpenObject<AcDbEntity> entity(objectIdOf(name), AcDb::kForWrite);
        if (entity) entity->erase();
    }
}

/// Members of one owner are copied at once, so that they may point to each other.
struct OwnedMembers
{
    AcDbObjectId owner;
    AcDbObjectIdArray ids;
};

bool sortByOwner(const CKexEnameArray& list, std::vector<OwnedMembers>& owners)
{
    for (const CKexEname& name : list) {
        const AcDbObjectId id = objectIdOf(name);
        const OpenObject<AcDbEntity> entity(id);
        if (!entity) return false;
        const AcDbObjectId owner = entity->ownerId();
        auto found = std::ranges::find(owners, owner, &OwnedMembers::owner);
        if (found == owners.end()) found = owners.insert(owners.end(), {owner, {}});
        found->ids.append(id);
    }
    return true;
}

/// The way from the least to the farthest corner of a box along a direction.
double reach(const Box& box, double w, bool last)
{
    const double c = std::cos(w), s = std::sin(w);
    const auto along = [&](double x, double y) { return x * c + y * s; };
    const auto [least, most] =
        std::minmax({along(box.min.x, box.min.y), along(box.min.x, box.max.y),
                     along(box.max.x, box.min.y), along(box.max.x, box.max.y)});
    return last ? most : least;
}

} // namespace

std::optional<CAdsName> e_copy(const CAdsName& entity, const std::optional<CKexMatrix3d>& map)
{
    CKexEnameArray list;
    list.append(CKexEname(entity.asName()));
    const CKexEnameArray copies = el_copy(list, map);
    return copies.isEmpty() ? std::nullopt : std::optional<CAdsName>(copies.first());
}

CKexEnameArray el_copy(const CKexEnameArray& list, const std::optional<CKexMatrix3d>& map)
{
    std::vector<OwnedMembers> owners;
    if (!sortByOwner(list, owners)) return {};
    AcDbIdMapping copied;
    CKexEnameArray copies;
    bool good = true;
    for (const OwnedMembers& members : owners) {
        AcDbDatabase* const database = members.owner.database();
        good = good && database != nullptr &&
               database->deepCloneObjects(members.ids, members.owner, copied) == Acad::eOk;
    }
    for (const CKexEname& name : list) {
        AcDbIdPair pair(objectIdOf(name));
        ads_name copy;
        if (!copied.compute(pair) || acdbGetAdsName(copy, pair.value()) != Acad::eOk) {
            good = false;
            continue;
        }
        copies.append(CKexEname(copy));
        good = good && (!map || e_trans(copies.last(), *map));
    }
    if (good) return copies;
    erase(copies);
    return {};
}

std::optional<Box> el_ext(const CKexEnameArray& list)
{
    std::optional<Box> all;
    for (const CKexEname& name : list) {
        const std::optional<Box> box = e_ext(name);
        if (box && all) all->add(*box);
        else if (box) all = box;
    }
    return all;
}

CKexArrayTempl<CKexVertexArray> el_vll(const CKexEnameArray& list, double dif)
{
    CKexArrayTempl<CKexVertexArray> outlines;
    for (const CKexEname& name : list) {
        if (auto outline = entityOutline(name, dif)) outlines.append(std::move(*outline));
    }
    return outlines;
}

std::optional<EntityPoint> el_near(const CKexEnameArray& list, const CKexPoint3d& p)
{
    std::optional<EntityPoint> best;
    double least = std::numeric_limits<double>::infinity();
    for (const CKexEname& name : list) {
        const std::optional<CKexPoint3d> point = e_near(name, p, false);
        if (!point || point->distanceTo(p) >= least) continue;
        least = point->distanceTo(p);
        best = EntityPoint{name, *point};
    }
    return best;
}

int el_trans(const CKexEnameArray& list, const CKexMatrix3d& map)
{
    return static_cast<int>(
        std::ranges::count_if(list, [&](const CKexEname& name) { return e_trans(name, map); }));
}

CKexArrayTempl<Region> el_regl(const CKexEnameArray& list, double tolJoin)
{
    CKexArrayTempl<CKexVertexArray> curves;
    for (const CKexEname& name : list) {
        const auto curve = EntityCurve::of(name, tolJoin);
        if (curve && !curve->isTilted()) curves.append(curve->list());
    }
    return g_regions(vl_loops(curves, tolJoin));
}

CKexEnameArray el_sort(const CKexEnameArray& list, double w, bool last)
{
    struct Member
    {
        CKexEname name;
        double reach;
    };
    std::vector<Member> members;
    for (const CKexEname& name : list) {
        const std::optional<Box> box = e_ext(name);
        members.push_back(
            {name, box ? reach(*box, w, last) : std::numeric_limits<double>::infinity()});
    }
    std::ranges::stable_sort(members, {}, &Member::reach);
    CKexEnameArray sorted;
    for (const Member& member : members) sorted.append(member.name);
    return sorted;
}

} // namespace KEX
