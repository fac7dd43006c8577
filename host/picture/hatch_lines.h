// SPDX-License-Identifier: LicenseRef-ORVALD
// The lines of a hatch pattern, cut to the inside of a boundary (even-odd).
#pragma once

#include "drawing/views.h"
#include "plane.h"

#include <span>
#include <vector>

namespace orvald::picture {

struct HatchSegment
{
    Vec from, to; // equal for a dot
};

/// One family of lines in the coordinates of the boundary. Dashes with a period below `finest` are
/// drawn through. Only what lies in `window` is looked at; at most `most` segments come out, fewer
/// than there are when the answer is false.
bool hatchLines(std::span<const Chords> boundary, const drawing::HatchLine& family, double finest,
                const Bounds& window, std::size_t most, std::vector<HatchSegment>& out);

/// Distance between neighbouring lines of a family; 0 when there is only one line.
double lineDistance(const drawing::HatchLine& family);

} // namespace orvald::picture
