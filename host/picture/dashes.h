// SPDX-License-Identifier: LicenseRef-ORVALD
// Line types on the page: fitting a pattern to a line and cutting a line by it. Lengths in pixels.
#pragma once

#include "canvas.h"
#include "plane.h"

#include <vector>

namespace orvald::picture {

/// Fits a line type, lengths drawn (positive, 0 for a dot) and left out (negative), all times
/// `scale`, to a line of `length`: the pattern is stretched so that whole ones fill the line, which
/// begins and ends in the middle of the first dash. So corners are drawn and closed lines have no
/// seam. False when the line is to be drawn unbroken: the pattern is empty, too fine to be seen, or
/// longer than the line by half. `dot` is the length that a dot gets.
bool fitDashes(const std::vector<double>& pattern, double scale, double length, double dot,
               Dashes& dashes);

/// The drawn parts of a run that touch `page`, appended to `out` from `count` on, whose runs are
/// used again; gives the new count.
std::size_t cutDashes(const Chords& run, const Dashes& dashes, const Bounds& page,
                      std::vector<Chords>& out, std::size_t count);

/// The part of a segment inside a box as parameters 0 to 1; false when there is none.
bool clipSegment(Vec from, Vec to, const Bounds& box, double& first, double& last);

} // namespace orvald::picture
