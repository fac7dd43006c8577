// SPDX-License-Identifier: LicenseRef-ORVALD
// Copies of entities, and what is asked of several at once.
#pragma once

#include "geom/entity_place.h"
#include "kex/regions.h"
#include "kex/vertex.h"

namespace KEX {

/// A copy in the same owner with all that the entity owns, mapped when a map is given. Nothing, and
/// no copy, when the entity cannot be copied or mapped.
std::optional<CAdsName> e_copy(const CAdsName& entity, const std::optional<CKexMatrix3d>& map);

/// Joint world box; nothing when none has one.
std::optional<Box> el_ext(const CKexEnameArray& list);
/// Outlines of the members that have one, in order; curves within `dif`.
CKexArrayTempl<CKexVertexArray> el_vll(const CKexEnameArray& list, double dif);
/// A member and a point of it.
struct EntityPoint
{
    CAdsName entity;
    CKexPoint3d point;
};
/// The curve nearest to p, the first of equals, and its nearest point.
std::optional<EntityPoint> el_near(const CKexEnameArray& list, const CKexPoint3d& p);
/// Maps all members; gives how many succeeded.
int el_trans(const CKexEnameArray& list, const CKexMatrix3d& map);
/// Copies all members, each into its own owner, and maps the copies when a map is given. What one
/// member points to among the others, its copy points to among the copies. Empty, and no copies,
/// when one of them cannot be copied or mapped.
CKexEnameArray el_copy(const CKexEnameArray& list, const std::optional<CKexMatrix3d>& map);
/// Regions enclosed by the members' curves, joined end to end within `tolJoin` (vl_loops,
/// g_regions). Tilted members are not looked at.
CKexArrayTempl<Region> el_regl(const CKexEnameArray& list, double tolJoin);
/// The members by the smallest, with `last` the largest, coordinate of their boxes along direction
/// w (radians, in XY); ties in given order, members without a box at the end.
CKexEnameArray el_sort(const CKexEnameArray& list, double w, bool last);

} // namespace KEX
