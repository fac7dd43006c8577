// SPDX-License-Identifier: LicenseRef-ORVALD
// Line types on the page: fitting a pattern to a line and cutting a line by it. Lengths in pixels.
#pragma once

#include "canvas.h"
#include "line_types.h"
#include "plane.h"

#include <vector>

namespace orvald::picture {

enum class Fit
{
    none,     // the line is drawn through, without marks
    unbroken, // drawn through; the pattern is fitted for its marks
    dashed
};

/// Fits a line type, lengths drawn (positive, 0 for a dot) and left out (negative), all times
/// `scale`, to a line of `length`. A line that has ends shows the pattern as it is: it begins and
/// ends with half a first dash or more, what is left over going to both ends in equal parts. A
/// closed one gets whole patterns, stretched a little, and begins in the middle of the first dash:
/// no seam shows; so do lines of very many patterns and those that begin with a dot. None for a
/// pattern that is empty, too fine to be seen, or longer than the line. `dot` is the length that a
/// dot gets.
Fit fitDashes(const std::vector<double>& pattern, double scale, double length, bool hasEnds,
              double dot, Dashes& dashes);

/// Where a text or sign of a line type stands.
struct MarkPlace
{
    const LineMark* mark = nullptr;
    Vec at, along; // along: of length 1
};
/// The places along a run that lie on the page or near it, appended to `out`; fewer than there are,
/// and false, when there are more than `most`.
bool markPlaces(const Chords& run, const Dashes& dashes, const LineType& type, const Bounds& page,
                std::size_t most, std::vector<MarkPlace>& out);

/// The drawn parts of a run that touch `page`, appended to `out` from `count` on, whose runs are
/// used again; gives the new count.
std::size_t cutDashes(const Chords& run, const Dashes& dashes, const Bounds& page,
                      std::vector<Chords>& out, std::size_t count);

/// The part of a segment inside a box as parameters 0 to 1; false when there is none.
bool clipSegment(Vec from, Vec to, const Bounds& box, double& first, double& last);

} // namespace orvald::picture
