// SPDX-License-Identifier: LicenseRef-ORVALD
// Areas inside outlines of straight and circular segments, in XY.
#pragma once

#include "kex/vertex.h"

namespace KEX {

/// Area between a segment and its chord, positive right of the chord, where an arc with a positive
/// bulge lies; 0 for a straight one. Method: r²·(θ - sin θ)/2.
KEX_BASE_API double vx_segmentArea(const CKexVertex& vertex);
/// Area enclosed by a list, positive counter-clockwise; gaps count as straight segments.
KEX_BASE_API double vl_area(const CKexVertexArray& list);

/// Area and its first moments about a point: area times the way from that point to the centroid.
struct AreaMoments
{
    double area = 0.0;
    CKexVector3d moment;
};
/// Of what a closed list encloses, arcs exactly. Method: triangles about `origin`, and the parts
/// between arcs and their chords, whose moment is chord³/12 along the way from the centre.
KEX_BASE_API AreaMoments vl_moments(const CKexVertexArray& list, const CKexPoint3d& origin);
/// The list run through from its end to its start.
KEX_BASE_API CKexVertexArray vl_reversed(const CKexVertexArray& list);

/// 1 inside a closed list (even-odd), 0 within `tolLength` of one of its segments, -1 outside.
/// Method: crossings of a ray with the chords, turned round within the part of the disc between arc
/// and chord. Time grows with the segments.
KEX_BASE_API int vl_inside(const CKexVertexArray& list, const CKexPoint3d& p,
                           double tolLength = CKexPoint3d::tol);

} // namespace KEX
