// SPDX-License-Identifier: LicenseRef-ORVALD
// How much of each pixel a polygon covers, exactly.
// Every edge adds, to the pixels that it crosses, the signed area to its right; a running sum along
// a row then gives the coverage. Only pixels that an edge touched are remembered one by one, the
// rest follows as spans, so that the cost is that of the edges, not of the area.
#pragma once

#include "canvas.h"
#include "plane.h"

#include <bit>
#include <cstdint>
#include <vector>

namespace orvald::picture {

class Coverage
{
public:
    Coverage(int width, int height);

    /// An edge of a polygon, in pixels. The edges of closed polygons are added in any order.
    void edge(Vec from, Vec to);

    /// Hands over all spans of equal coverage, `span(y, first, last, coverage)` with pixels first
    /// to last - 1 and coverage above 0 up to 1, and forgets the polygon. Polygons that lie on each
    /// other join with nonZero when they turn the same way.
    template <class Span>
    void sweep(FillRule rule, Span&& span);

private:
    void clippedEdge(Vec from, Vec to);
    void addRow(int y, double x0, double x1, double height);
    void add(int y, int x, double area)
    {
        areas_[std::size_t(y) * std::size_t(stride_) + std::size_t(x)] += area;
        marks_[std::size_t(y) * std::size_t(words_) + std::size_t(x >> 6)] |= std::uint64_t{1}
                                                                              << (x & 63);
    }
    void nothingTouched()
    {
        firstRow_ = height_;
        firstWord_ = words_;
        lastRow_ = lastWord_ = -1;
    }
    static double covered(FillRule rule, double winding);

    int width_, height_;
    int stride_; // one pixel more than the width: it takes what leaves on the right
    int words_;
    std::vector<double> areas_;
    std::vector<std::uint64_t> marks_; // bit x of a row: its area was touched
    // Rows and words of marks that were touched; first > last: none.
    int firstRow_ = 0, lastRow_ = 0, firstWord_ = 0, lastWord_ = 0;
};

inline double Coverage::covered(FillRule rule, double winding)
{
    const double w = winding < 0.0 ? -winding : winding;
    if (rule == FillRule::nonZero) return w < 1.0 ? w : 1.0;
    const double rest = w - 2.0 * double(std::int64_t(w / 2.0));
    return rest <= 1.0 ? rest : 2.0 - rest;
}

template <class Span>
void Coverage::sweep(FillRule rule, Span&& span)
{
    constexpr double kNothing = 1.0 / 1024; // below any step of a colour
    for (int y = firstRow_; y <= lastRow_; ++y) {
        double winding = 0.0;
        int first = 0;
        double* areas = &areas_[std::size_t(y) * std::size_t(stride_)];
        std::uint64_t* marks = &marks_[std::size_t(y) * std::size_t(words_)];
        for (int word = firstWord_; word <= lastWord_; ++word) {
            for (std::uint64_t bits = marks[word]; bits != 0; bits &= bits - 1) {
                const int x = word * 64 + std::countr_zero(bits);
                const double cover = covered(rule, winding);
                if (cover > kNothing && x > first) span(y, first, x < width_ ? x : width_, cover);
                winding += areas[x];
                areas[x] = 0.0;
                first = x;
            }
            marks[word] = 0;
        }
    }
    nothingTouched();
}

} // namespace orvald::picture
