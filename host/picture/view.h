// SPDX-License-Identifier: LicenseRef-ORVALD
// From the drawing's world to the pixels of a page.
#pragma once

#include "picture/picture.h"
#include "plane.h"

namespace orvald::picture {

struct View
{
    int width = 0, height = 0;        // pixels
    double scale = 1.0;               // pixels a drawing unit
    drawing::Transform map;           // world to pixels, y downwards; z keeps the scale
    double pixelsPerMillimetre = 0.0; // of the sheet, for line weights; 0: all lines are thin

    Bounds page() const { return {0.0, 0.0, double(width), double(height), false}; }
    /// The world that the page shows.
    Window world() const;
};

/// The view that shows `content` (world, y upwards) as the options ask; a box without width,
/// height or anything at all gets some.
View fitView(const Options& options, Bounds content);

} // namespace orvald::picture
