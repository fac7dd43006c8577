// SPDX-License-Identifier: LicenseRef-ORVALD
// Entities from vertex lists.
#pragma once

#include "kex/ename.h"
#include "kex/resbuf_chain.h"
#include "kex/vertex.h"

#include <optional>

namespace KEX {

/// Makes the simplest entity that holds a list, in the current space: a line, an arc, a circle
/// (closed, of one centre and radius, in one sense) or a light polyline. `properties`: further
/// groups, as (8 . "layer"); those that say what and where it is are not taken. Nothing for a list
/// that is empty, has gaps, or is a path of more than one segment that leaves its height.
std::optional<CAdsName> e_mk(const CKexVertexArray& list, const resbuf* properties);

/// Puts a list, in the coordinates of entityOutline, in place of the geometry of a line, arc,
/// circle or light polyline; everything else of the entity stays. Nothing when the list does not
/// fit the kind or the entity cannot be changed.
std::optional<CAdsName> e_vl_set(const CAdsName& entity, const CKexVertexArray& list);

} // namespace KEX
