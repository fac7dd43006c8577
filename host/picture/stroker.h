// SPDX-License-Identifier: LicenseRef-ORVALD
// Lines of some width as polygons for the coverage. All polygons of a stroke turn the same way, so
// that they join under the non-zero rule.
#pragma once

#include "coverage.h"
#include "plane.h"

namespace orvald::picture {

/// Adds a run of points, in pixels, as a line of that width. `capped` ends reach half a width
/// beyond the last points (round) or end there; a run without length gives a dot when capped.
void addStroke(Coverage& coverage, const Chords& run, double width, Ends ends, bool capped);

} // namespace orvald::picture
