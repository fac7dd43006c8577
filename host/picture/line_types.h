// SPDX-License-Identifier: LicenseRef-ORVALD
// Line types as the table of a drawing describes them: dashes, and the texts and signs between
// them.
#pragma once

#include "drawing/drawing.h"
#include "plane.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orvald::picture {

/// A text or a sign that stands in a line, where an element of the pattern ends. Lengths in units
/// of the pattern, angles in radians.
struct LineMark
{
    std::size_t element = 0;
    double x = 0.0, y = 0.0; // from there, along the line and to the left of it
    double turn = 0.0;
    bool upright = false; // turned from the X axis instead of from the line
    std::string text;     // UTF-8; "" for a sign
    double height = 0.0;  // of the text
    double widthFactor = 1.0, oblique = 0.0;
    const Path* sign = nullptr; // of units of the scale
    double scale = 1.0;
};

struct LineType
{
    std::vector<double> lengths; // drawn positive, left out negative, 0 a dot
    std::vector<LineMark> marks; // by the element, rising
};

/// Of a line type's record. Signs that nobody here can draw are left out.
LineType readLineType(const drawing::Drawing& drawing, drawing::Index record);

} // namespace orvald::picture
