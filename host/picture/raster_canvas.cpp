// SPDX-License-Identifier: LicenseRef-ORVALD
// Strokes and fills become polygons, polygons coverage, coverage colour.
#include "raster_canvas.h"

#include "dashes.h"
#include "gradients.h"
#include "stroker.h"

#include <algorithm>
#include <cmath>

namespace orvald::picture {

namespace {

constexpr double kTolerance = 0.1; // pixels between an arc and its chords
// Pixels: a line that deviates less from level or upright over its whole length is meant so. Chords
// of free curves hardly ever are.
constexpr double kLevel = 1e-3;

} // namespace

RasterCanvas::RasterCanvas(const View& view, Background background)
    : width_(view.width),
      height_(view.height),
      page_(view.page()),
      pixels_(std::size_t(view.width) * std::size_t(view.height) * 3),
      coverage_(view.width, view.height)
{
    const Colour colour = backgroundColour(background);
    for (std::size_t i = 0; i < pixels_.size(); i += 3) {
        pixels_[i] = colour.red;
        pixels_[i + 1] = colour.green;
        pixels_[i + 2] = colour.blue;
    }
}

void makeCrisp(const Path& path, double width, Path& crisp)
{
    using Step = Path::Step;
    crisp.clear();
    const std::vector<Path::Piece>& pieces = path.pieces();
    const auto onGrid = [&](double c) { return std::round(c - width / 2.0) + width / 2.0; };
    // Two lines that meet in a corner agree on it: each sets the coordinate of its own direction.
    const auto adjust = [&](Vec p, Vec other, Vec& moved) {
        const double dx = std::abs(p.x - other.x), dy = std::abs(p.y - other.y);
        if (dy <= kLevel && dx > 1.0) moved.y = onGrid((p.y + other.y) / 2.0);
        if (dx <= kLevel && dy > 1.0) moved.x = onGrid((p.x + other.x) / 2.0);
    };
    std::size_t start = 0; // of the current run
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const Path::Piece& piece = pieces[i];
        if (piece.step == Step::move) start = i;
        if (piece.step == Step::close) {
            crisp.close();
            continue;
        }
        Vec moved = piece.to;
        const bool lineAfter = i + 1 < pieces.size() && pieces[i + 1].step == Step::line;
        const bool closeAfter = i + 1 < pieces.size() && pieces[i + 1].step == Step::close;
        if (piece.step == Step::line) adjust(piece.to, pieces[i - 1].to, moved);
        if (lineAfter) adjust(piece.to, pieces[i + 1].to, moved);
        if (closeAfter) adjust(piece.to, pieces[start].to, moved);
        if (piece.step == Step::move) {
            // The line that closes the run ends here too.
            std::size_t last = i;
            while (last + 1 < pieces.size() && pieces[last + 1].step != Step::move &&
                   pieces[last + 1].step != Step::close)
                ++last;
            if (last + 1 < pieces.size() && pieces[last + 1].step == Step::close)
                adjust(piece.to, pieces[last].to, moved);
            crisp.moveTo(moved);
        } else if (piece.step == Step::line) {
            crisp.lineTo(moved);
        } else {
            crisp.arcTo(piece.arc, moved);
        }
    }
}

void RasterCanvas::stroke(const Path& path, const Ink& ink, const Pen& pen)
{
    const double width = std::max(pen.width, 0.0);
    Bounds bounds = path.bounds();
    bounds.grow(width * 2.0 + 1.0); // mitres reach two widths
    if (!meet(bounds, page_)) return;
    makeCrisp(path, width, crisp_);
    const std::size_t count = flatten(crisp_, kTolerance, runs_);
    if (pen.dashes != nullptr) {
        Bounds around = page_;
        around.grow(width + 1.0);
        std::size_t cut = 0;
        for (std::size_t i = 0; i < count; ++i)
            cut = cutDashes(runs_[i], *pen.dashes, around, dashed_, cut);
        for (std::size_t i = 0; i < cut; ++i)
            addStroke(coverage_, dashed_[i], width, pen.ends, false);
    } else {
        for (std::size_t i = 0; i < count; ++i)
            addStroke(coverage_, runs_[i], width, pen.ends, true);
    }
    blend({ink.colour, {}}, FillRule::nonZero);
}

void RasterCanvas::fill(const Path& path, const Ink& ink, FillRule rule)
{
    if (!meet(path.bounds(), page_)) return;
    addArea(path);
    blend(ink, rule);
}

void RasterCanvas::addArea(const Path& path)
{
    const std::size_t count = flatten(path, kTolerance, runs_);
    for (std::size_t i = 0; i < count; ++i) {
        const std::vector<Vec>& points = runs_[i].points;
        for (std::size_t k = 0; k < points.size(); ++k)
            coverage_.edge(points[k], points[(k + 1) % points.size()]);
    }
}

void RasterCanvas::pushClip(const Path& path)
{
    Clip clip{page_, std::vector<std::uint8_t>(std::size_t(width_) * std::size_t(height_))};
    addArea(path);
    coverage_.sweep(FillRule::evenOdd, [&](int y, int first, int last, double cover) {
        const std::size_t row = std::size_t(y) * std::size_t(width_);
        for (std::size_t at = row + std::size_t(first); at < row + std::size_t(last); ++at) {
            const int outer = clips_.empty() ? 255 : clips_.back().mask[at];
            clip.mask[at] = static_cast<std::uint8_t>(cover * outer + 0.5);
        }
    });
    clips_.push_back(std::move(clip));
    page_ = common(page_, path.bounds());
}

void RasterCanvas::popClip()
{
    page_ = clips_.back().outer;
    clips_.pop_back();
}

void RasterCanvas::blend(const Ink& ink, FillRule rule)
{
    const double opacity = ink.colour.opacity / 255.0;
    Colour colour = ink.colour;
    const std::uint8_t* mask = clips_.empty() ? nullptr : clips_.back().mask.data();
    coverage_.sweep(rule, [&](int y, int first, int last, double cover) {
        // In 256ths, so that a full cover replaces what was there.
        const int whole = static_cast<int>(cover * opacity * 256.0 + 0.5);
        const std::size_t row = std::size_t(y) * std::size_t(width_);
        std::uint8_t* pixel = &pixels_[(row + std::size_t(first)) * 3];
        for (int x = first; x < last; ++x, pixel += 3) {
            if (ink.gradient != nullptr) colour = colourAt(*ink.gradient, {x + 0.5, y + 0.5});
            const int share =
                mask == nullptr ? whole : (whole * mask[row + std::size_t(x)] + 127) / 255;
            const auto blended = [&](int below, int above) {
                return static_cast<std::uint8_t>((below * (256 - share) + above * share + 128) /
                                                 256);
            };
            pixel[0] = blended(pixel[0], colour.red);
            pixel[1] = blended(pixel[1], colour.green);
            pixel[2] = blended(pixel[2], colour.blue);
        }
    });
}

} // namespace orvald::picture
