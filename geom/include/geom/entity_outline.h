// SPDX-License-Identifier: LicenseRef-ORVALD
// Outlines of drawing entities as vertex lists.
#pragma once

#include "kex/ename.h"
#include "kex/vertex.h"

#include <optional>

namespace KEX {

/// The path of a line, arc, circle, polyline (any kind but a mesh), ellipse, spline, solid, trace
/// or 3-D face; nothing for any other entity, for an erased one and for one without length.
///
/// Exact, except that ellipses and splines become arcs within `dif` (drawing units, above 0).
/// Coordinates: the world for an entity whose normal is Z or -Z, bulges turned round for -Z; any
/// other plane entity stays in its own plane (arbitrary axes, origin at its elevation:
/// EntityPlane). A circle is two half circles from the X axis on. A spline that does not run
/// parallel to XY is given straight, its points within `dif`.
std::optional<CKexVertexArray> entityOutline(const CAdsName& entity, double dif);

} // namespace KEX
