// SPDX-License-Identifier: LicenseRef-ORVALD
// Where entities are: systems, planes, boxes; and moving them.
#pragma once

#include "kex/box.h"
#include "kex/ename.h"
#include "kex/matrix.h"
#include "kex/plane.h"

#include <optional>

namespace KEX {

/// An insert: from the coordinates of its block to the world, scales, turn and base point in it. A
/// plane entity: its own system, whose XY plane is the entity's (arbitrary axes, origin at the
/// elevation), to the world. Nothing for other kinds.
std::optional<CKexMatrix3d> e_mtx(const CAdsName& entity);
/// Plane of a plane entity, through the origin of e_mtx or the insertion point.
std::optional<Plane> e_plan(const CAdsName& entity);

/// World box of what is drawn: curves exactly, texts by an average width, inserts by their content.
/// Nothing for an entity that cannot be opened or has no place.
std::optional<Box> e_ext(const CAdsName& entity);

/// Maps an entity in place. False when it cannot be opened for write (locked layer, erased) and
/// when the image would be no entity of its kind, as an arc under unequal scales; nothing has
/// changed then.
bool e_trans(const CAdsName& entity, const CKexMatrix3d& map);

} // namespace KEX
