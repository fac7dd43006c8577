// SPDX-License-Identifier: LicenseRef-ORVALD
// What a picture is drawn on. The painter hands shapes over one by one, in drawing order, in the
// coordinates of the view; a canvas keeps no reference to them.
#pragma once

#include "colour.h"
#include "plane.h"

#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

namespace orvald::picture {

/// Colours along a line, or around a point `from` up to a point `to` of the outer circle. Beyond
/// its ends the last colours go on.
struct Gradient
{
    bool radial = false;
    Vec from, to;
    std::vector<std::pair<double, Colour>> stops; // shares 0 to 1, rising
};

/// Colour and origin of a shape.
struct Ink
{
    Colour colour;
    std::string_view layer;             // file form; valid during the call
    const Gradient* gradient = nullptr; // of an area, instead of the colour
};

/// Lengths along a line, in turn drawn and left out, repeated; all lengths 0: no dashes.
struct Dashes
{
    std::vector<double> lengths; // an even number, or none
    double offset = 0.0;         // where in the lengths a run begins
    // The pattern itself, which the lengths may hold more than once: where along a run it begins,
    // how long it is, and where in it each of its elements ends.
    double origin = 0.0, period = 0.0;
    std::vector<double> ends;
};

enum class Ends
{
    round, // round ends and corners
    sharp  // ends cut off, corners mitred: wide polylines
};

struct Pen
{
    double width = 1.0;
    Ends ends = Ends::round;
    const Dashes* dashes = nullptr; // none: an unbroken line
};

enum class FillRule
{
    evenOdd,
    nonZero
};

inline constexpr std::size_t kMostClips = 8;

class Canvas
{
public:
    Canvas() = default;
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    virtual ~Canvas() = default;
    virtual void stroke(const Path& path, const Ink& ink, const Pen& pen) = 0;
    virtual void fill(const Path& path, const Ink& ink, FillRule rule) = 0;
    /// Until the matching popClip only what lies inside the path, by parity, and inside the clips
    /// around it is shown. At most kMostClips of them lie in each other.
    virtual void pushClip(const Path& path) = 0;
    virtual void popClip() = 0;
};

} // namespace orvald::picture
