// SPDX-License-Identifier: LicenseRef-ORVALD
// Bodies of prisms: regions with straight and circular edges, drawn out square to their plane.
// Lengths in drawing units; the prisms of a body do not overlap.
#pragma once

#include "kex/box.h"
#include "kex/line.h"
#include "kex/matrix.h"
#include "kex/vertex.h"

#include <optional>

namespace KEX {

/// Closed outlines: the outer one counter-clockwise, then the holes clockwise.
using Region = CKexArrayTempl<CKexVertexArray>;

struct Prism
{
    CKexMatrix3d system; // turns and moves only
    Region region;       // on the XY plane of the system, at Z 0
    double height = 0.0; // along its Z, negative downwards
};
using Body = CKexArrayTempl<Prism>;

/// A prism over outlines on the XY plane of a system, of any sense. Scales of the system that are
/// equal go into outlines and height, a mirroring one into the outlines. Nothing when an outline is
/// not closed, there is none, the height is 0 within the point tolerance, or the system's axes are
/// not square to each other and of one length.
KEX_BASE_API std::optional<Prism> g_prism(const Region& outlines, double height,
                                          const CKexMatrix3d& system);
/// The body under a map; nothing when the map has unequal scales or is singular.
KEX_BASE_API std::optional<Body> g_solid_mtx(const Body& body, const CKexMatrix3d& map);

struct Volume
{
    double volume = 0.0;
    CKexPoint3d centroid; // in the world
};
/// Sum over the prisms, arcs exactly.
KEX_BASE_API Volume g_solid_vol(const Body& body);
/// World box, arcs exactly; nothing for an empty body.
KEX_BASE_API std::optional<Box> g_solid_ext(const Body& body);
/// Edges in space: outlines at the bottom and at the top, arcs as chords of at most 15°, and the
/// upright edges at corners that turn by more than `tolAngle`.
KEX_BASE_API CKexArrayTempl<Line> g_solid_edges(const Body& body, double tolAngle);
/// 1 inside one of the prisms, 0 on a surface within `tolLength`, -1 outside.
KEX_BASE_API int g_solid_inside(const Body& body, const CKexPoint3d& p,
                                double tolLength = CKexPoint3d::tol);

} // namespace KEX
