// SPDX-License-Identifier: LicenseRef-ORVALD
// Regions enclosed by curves.
#pragma once

#include "kex/prism.h"

namespace KEX {

/// The curves joined end to end where the ends are within `tolJoin`, which are drawn together to
/// their middle; those that run the other way are turned. What does not come back to its start is
/// left out, as is a loop whose area is below the point tolerance squared.
KEX_BASE_API CKexArrayTempl<CKexVertexArray> vl_loops(const CKexArrayTempl<CKexVertexArray>& curves,
                                                      double tolJoin);

/// Closed loops that do not cross each other, nested: a loop within an even number of others is the
/// outline of a region, one within an odd number a hole of the region around it. Outlines
/// counter-clockwise, holes clockwise, each from its lowest, then leftmost corner; largest outline
/// first, holes in the order of the loops. Time grows with the square of their number at worst.
KEX_BASE_API CKexArrayTempl<Region> g_regions(const CKexArrayTempl<CKexVertexArray>& loops);

} // namespace KEX
