// SPDX-License-Identifier: LicenseRef-ORVALD
// Common points of entities, in space.
#pragma once

#include "kex/ename.h"
#include "kex/point.h"

namespace KEX {

/// Which of two entities go on beyond their ends; lines and single arcs can.
enum class Extend
{
    none = 0,
    first = 1,
    second = 2,
    both = 3
};
/// World points that two curves have in common, in order along the first; points nearer than the
/// point tolerance are one. Pieces that coincide give their ends. None for entities that are no
/// curves.
CKexPoint3dArray e_inters(const CAdsName& a, const CAdsName& b, Extend extend);

/// Common points of different members, with `self` also of a member with itself (but for the joints
/// of its segments), each once, by X then Y. Pairs whose boxes are apart cost nothing.
CKexPoint3dArray el_int(const CKexEnameArray& list, bool self);

/// The members whose boxes lie in the box of two points in XY; with `crossing` also those whose
/// curve is partly in it, and those that are no curves when their box is.
CKexEnameArray el_win(const CKexEnameArray& list, const CKexPoint3d& p1, const CKexPoint3d& p2,
                      bool crossing);

} // namespace KEX
