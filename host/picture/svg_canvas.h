// SPDX-License-Identifier: LicenseRef-ORVALD
// A canvas that writes SVG. Coordinates are rounded to a thousandth of a pixel and written as steps
// from the rounded point before, so that rounding never adds up.
#pragma once

#include "canvas.h"
#include "view.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orvald::picture {

class SvgCanvas final : public Canvas
{
public:
    SvgCanvas(const View& view, Background background);

    void stroke(const Path& path, const Ink& ink, const Pen& pen) override;
    void fill(const Path& path, const Ink& ink, FillRule rule) override;
    void pushClip(const Path& path) override;
    void popClip() override;

    /// The whole file; the canvas is used up.
    std::string finish();

private:
    /// Writes a gradient; gives its name.
    std::string gradient(const Gradient& gradient);
    void openGroup(const std::string& attributes);
    void pathData(const Path& path);
    void seenChords(const Path& path, double width);
    void moveTo(Vec p);
    void lineTo(Vec p);
    void arcTo(const Arc& arc, Vec end);
    void command(char letter);
    void number(std::int64_t thousandths);

    std::string out_;
    std::string group_;         // attributes of the group that is open; empty when none is
    Bounds page_;               // what the clips leave of it
    std::vector<Bounds> outer_; // the page before each clip that is open
    int clipCount_ = 0, gradientCount_ = 0; // of the whole picture
    std::vector<Chords> runs_;              // reused
    std::int64_t x_ = 0, y_ = 0;            // current point in thousandths
    char lastCommand_ = '\0';               // within the path
    bool afterNumber_ = false;              // the next number needs a gap
};

} // namespace orvald::picture
