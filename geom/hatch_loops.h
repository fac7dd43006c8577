// SPDX-License-Identifier: LicenseRef-ORVALD
// Boundaries of hatches.
#pragma once

#include "entity_groups.h"
#include "kex/vertex.h"

#include <vector>

namespace KEX {

/// The boundary paths of a hatch, each closed, in the plane of the hatch (EntityPlane::toWorld, Z
/// 0); elliptic and spline edges as arcs within `dif`.
std::vector<CKexVertexArray> hatchLoops(const EntityGroups& hatch, double dif);

/// Area within an odd number of loops, never negative; nothing without a loop.
std::optional<double> hatchArea(const EntityGroups& hatch);

} // namespace KEX
