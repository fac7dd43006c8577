// SPDX-License-Identifier: LicenseRef-ORVALD
// Pictures of a drawing, seen from above: SVG text and PNG bytes. Both come from one walk over the
// drawing, so they show the same. Equal drawings and equal options give equal bytes.
#pragma once

#include "drawing/drawing.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvald::picture {

/// A vector on top of the drawing.
struct OverlaySegment
{
    double from[3] = {}, to[3] = {}; // world coordinates; z does not show
    int colour = 7;                  // 1 to 255; -1 the complement of the background
    bool dashed = false;
};

enum class Background
{
    light, // white paper
    dark   // the slate of a drawing screen
};

/// A part of the drawing in world coordinates, each side at least a hair wide.
struct Window
{
    double left = 0.0, bottom = 0.0, right = 0.0, top = 0.0;
};

inline constexpr int kLeastSize = 16, kMostSize = 16384; // pixels; other sizes are held to these

struct Options
{
    int width = 1600; // pixels
    /// Pixels; 0: from the shape of what is drawn, a quarter to one and a half of the width.
    int height = 0;
    int margin = 40; // pixels free on each side, at most a third of the page; 0 with a window
    Background background = Background::light;
    /// Line weights as on a sheet A3 that is as wide as the picture; false: all lines are thin.
    bool lineWeights = true;
    std::string layout;           // UTF-8 name of a layout, in any case; "" the model
    std::optional<Window> window; // shown whole, in the middle; none: all that is drawn
    std::vector<OverlaySegment> overlay;
    /// Parts (entities, letters, hatch lines, cells of arrays ...) after which drawing stops:
    /// blocks in blocks can unfold without end.
    std::size_t mostSteps = 20'000'000;
};

/// What became of a drawing's entities.
struct Summary
{
    std::size_t entities = 0; // in the space shown, those in blocks not counted
    /// Kinds that have no picture here ("3DSOLID") and how often they were met, blocks included.
    std::map<std::string, std::size_t> notDrawn;
    bool complete = true; // false: drawing stopped at Options::mostSteps
};

/// The block record of the layout of that name, "" the model; kNone when there is none.
drawing::Index spaceOf(const drawing::Drawing& drawing, std::string_view layout);

/// An SVG file, UTF-8. Circles and arcs are exact, texts are strokes: it looks the same everywhere.
/// Each group of shapes says its layer in data-layer. A layout that is not there gives an empty
/// page.
std::string svg(const drawing::Drawing& drawing, const Options& options = {},
                Summary* summary = nullptr);
/// A PNG file. Upright and level thin lines are moved to whole pixels, so that they are crisp.
std::string png(const drawing::Drawing& drawing, const Options& options = {},
                Summary* summary = nullptr);

/// Writes the picture that the ending of `path` (.svg or .png, in any case) asks for, whole: the
/// target is what it was or the new picture. False, and one line in `problem`, when the ending is
/// another one, the layout is not there, or the file cannot be written.
bool savePicture(const drawing::Drawing& drawing, const std::string& path, const Options& options,
                 std::string& problem, Summary* summary = nullptr);

} // namespace orvald::picture
