// SPDX-License-Identifier: LicenseRef-ORVALD
// Moving, turning, scaling and mirroring entities.
#pragma once

#include "drawing/drawing.h"
#include "drawing/point.h"

namespace orvald::drawing {

enum class Transformed : std::uint8_t
{
    done,
    unsuitable, // the image is no entity of that kind
    unknown     // a kind whose geometry is not known here
};

/// Maps an entity with its parts in place. `map` may do all that leaves the entity what it is:
/// lines, points, 3-D faces, splines, ellipses and straight outlines take any map that keeps space;
/// circles, arcs, texts, hatches and outlines with arcs take equal scales along their plane; an
/// insert those under which its axes stay square to each other. Mirrored texts turn backward,
/// mirrored MTEXT stays readable. Nothing has changed unless the entity is done.
///
/// A dimension, and what is kept without being understood, is unknown.
Transformed transformEntity(Drawing& drawing, Index entity, const Transform& map);

} // namespace orvald::drawing
