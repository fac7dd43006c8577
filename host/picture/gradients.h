// SPDX-License-Identifier: LicenseRef-ORVALD
// Areas whose colour changes: what a hatch asks for, as canvases draw it.
#pragma once

#include "canvas.h"
#include "drawing/views.h"

#include <span>

namespace orvald::picture {

/// The gradient of a hatch over what its boundary covers, in the boundary's coordinates. `own` is
/// the colour for those that are missing.
Gradient gradientOf(const drawing::HatchGradient& wanted, std::span<const Chords> boundary,
                    Colour own);

/// The colour that a gradient has at a point, opacity included.
Colour colourAt(const Gradient& gradient, Vec at);

} // namespace orvald::picture
