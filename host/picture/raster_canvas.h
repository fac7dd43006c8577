// SPDX-License-Identifier: LicenseRef-ORVALD
// A canvas of pixels: shapes are flattened to a tenth of a pixel and blended over what is there.
#pragma once

#include "canvas.h"
#include "coverage.h"
#include "view.h"

#include <cstdint>
#include <vector>

namespace orvald::picture {

class RasterCanvas final : public Canvas
{
public:
    RasterCanvas(const View& view, Background background);

    void stroke(const Path& path, const Ink& ink, const Pen& pen) override;
    void fill(const Path& path, const Ink& ink, FillRule rule) override;
    void pushClip(const Path& path) override;
    void popClip() override;

    int width() const { return width_; }
    int height() const { return height_; }
    /// Red, green, blue of each pixel, row by row from the top.
    const std::vector<std::uint8_t>& pixels() const { return pixels_; }

private:
    void blend(const Ink& ink, FillRule rule);

    struct Clip
    {
        Bounds outer;                   // the page before
        std::vector<std::uint8_t> mask; // of each pixel, how much of it is left, in 255ths
    };

    void addArea(const Path& path);

    int width_, height_;
    Bounds page_; // what the clips leave of it
    std::vector<Clip> clips_;
    std::vector<std::uint8_t> pixels_;
    Coverage coverage_;
    Path crisp_;                        // reused
    std::vector<Chords> runs_, dashed_; // reused
};

/// The same path with upright and level lines moved by at most half a pixel, so that a line of that
/// width begins at the border of a pixel. Arcs keep their place.
void makeCrisp(const Path& path, double width, Path& crisp);

} // namespace orvald::picture
