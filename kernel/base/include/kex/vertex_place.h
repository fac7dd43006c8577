// SPDX-License-Identifier: LicenseRef-ORVALD
// Places on segments and along lists of them: points, tangents, nearest points, lengths.
//
// A place on a segment is the share of its length that lies before it: 0 is its start, 1 its end;
// shares outside lie on the line or circle that carries it. Formulas work on the chord and on
// angles seen from its middle, so that flat arcs far from the origin lose nothing.
#pragma once

#include "kex/box.h"
#include "kex/matrix.h"
#include "kex/vertex.h"

#include <optional>

namespace KEX {

/// The point at a share.
KEX_BASE_API CKexPoint3d vx_point(const CKexVertex& vertex, double share);
/// Unit tangent at a share, in running direction; the null vector for a segment without length.
KEX_BASE_API CKexVector3d vx_tangent(const CKexVertex& vertex, double share);
/// The share of the point of the segment nearest to p, from 0 to 1; with `extended` of its line or
/// circle, there the place nearest to its middle. The middle for the centre of an arc.
KEX_BASE_API double vx_nearest(const CKexVertex& vertex, const CKexPoint3d& p,
                               bool extended = false);
/// World box of a segment under a map, arcs exactly.
KEX_BASE_API Box vx_box(const CKexVertex& vertex, const CKexMatrix3d& map = {});

/// A place along a list.
struct VertexPlace
{
    int vertex = 0;
    double share = 0.0;
};
/// The place nearest to p, the first of equals; nothing for an empty list. Of a joint that of the
/// segment that begins there.
KEX_BASE_API std::optional<VertexPlace> vl_nearest(const CKexVertexArray& list,
                                                   const CKexPoint3d& p, bool extended = false);
/// The place at a length along the list; nothing outside 0 to its length, within `tolLength`.
KEX_BASE_API std::optional<VertexPlace> vl_placeAt(const CKexVertexArray& list, double length,
                                                   double tolLength = CKexPoint3d::tol);
/// Length along the list up to a place.
KEX_BASE_API double vl_lengthTo(const CKexVertexArray& list, const VertexPlace& place);
KEX_BASE_API CKexPoint3d vl_point(const CKexVertexArray& list, const VertexPlace& place);

} // namespace KEX
