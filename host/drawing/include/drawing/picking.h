// SPDX-License-Identifier: LicenseRef-ORVALD
// Choosing entities by where they are drawn, as a user does on a screen. Places are in the plane of
// a view: `toView` brings world coordinates there, z does not count. What is erased, invisible or
// on a layer that is off or frozen cannot be chosen, nor what stands in another space.
#pragma once

#include "drawing/drawing.h"
#include "drawing/point.h"

#include <optional>
#include <span>
#include <vector>

namespace orvald::drawing {

enum class Border
{
    window,   // wholly inside a polygon
    crossing, // inside or touched by it
    fence     // crossed by a chain of lines
};
/// Main entities that a border chooses, newest first. Curves count by chords that deviate by less
/// than a thousandth of the border's size; texts by their rectangle; the like of images by their
/// box.
std::vector<Index> entitiesIn(const Drawing& drawing, Border border, std::span<const Point> corners,
                              const Transform& toView);

/// An entity under a place, down to its part.
struct Hit
{
    Index entity = kNone;       // the main entity
    Index part = kNone;         // what was hit in it: an attribute, something in a block; or itself
    std::vector<Index> inserts; // that the part stands in, innermost first
    Transform toWorld;          // from the block of the part
};
/// The newest entity of which something is drawn within `reach` of `place`.
std::optional<Hit> entityAt(const Drawing& drawing, Point place, double reach,
                            const Transform& toView);

} // namespace orvald::drawing
