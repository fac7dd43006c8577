// SPDX-License-Identifier: LicenseRef-ORVALD
// Adding edges. What lies above or below the page does not count, what lies left of it counts as
// if it ran along the left border, what lies right of it is not seen.
#include "coverage.h"

#include <algorithm>
#include <cmath>

namespace orvald::picture {

Coverage::Coverage(int width, int height)
    : width_(width),
      height_(height),
      stride_(width + 1),
      words_((width + 64) / 64),
      areas_(std::size_t(stride_) * std::size_t(height)),
      marks_(std::size_t(words_) * std::size_t(height))
{
    nothingTouched();
}

void Coverage::edge(Vec from, Vec to)
{
    const double bottom = height_, right = width_;
    if (from.y == to.y || std::max(from.y, to.y) <= 0.0 || std::min(from.y, to.y) >= bottom) return;
    // Cut at the upper and lower border.
    const double dxdy = (to.x - from.x) / (to.y - from.y);
    const auto atY = [&](double y) { return Vec{from.x + (y - from.y) * dxdy, y}; };
    Vec a = from, b = to;
    if (a.y < 0.0) a = atY(0.0);
    else if (a.y > bottom) a = atY(bottom);
    if (b.y < 0.0) b = atY(0.0);
    else if (b.y > bottom) b = atY(bottom);
    // Split at the left and right border, and hold each part inside.
    const auto held = [&](Vec p) { return Vec{std::clamp(p.x, 0.0, right), p.y}; };
    Vec start = a;
    const auto cutAt = [&](double border) {
        if ((start.x < border) == (b.x < border)) return;
        Vec cut{border, start.y + (border - start.x) / (b.x - start.x) * (b.y - start.y)};
        cut.y = std::clamp(cut.y, std::min(start.y, b.y), std::max(start.y, b.y));
        clippedEdge(held(start), cut);
        start = cut;
    };
    const bool rightwards = a.x < b.x;
    cutAt(rightwards ? 0.0 : right);
    cutAt(rightwards ? right : 0.0);
    clippedEdge(held(start), held(b));
}

void Coverage::clippedEdge(Vec from, Vec to)
{
    if (from.y == to.y) return;
    const double turn = from.y < to.y ? 1.0 : -1.0;
    if (turn < 0.0) std::swap(from, to);
    const double dxdy = (to.x - from.x) / (to.y - from.y);
    const int first = std::clamp(static_cast<int>(from.y), 0, height_ - 1);
    const int last = std::clamp(static_cast<int>(std::ceil(to.y)) - 1, first, height_ - 1);
    firstRow_ = std::min(firstRow_, first);
    lastRow_ = std::max(lastRow_, last);
    const double left = std::min(from.x, to.x), right = std::max(from.x, to.x);
    firstWord_ = std::min(firstWord_, std::min(static_cast<int>(left), width_ - 1) >> 6);
    // A pixel hands what is left of its row to the next one.
    lastWord_ = std::max(lastWord_, std::min(static_cast<int>(right) + 1, width_) >> 6);
    double y = from.y, x = from.x;
    for (int row = first; row <= last; ++row) {
        const double nextY = row == last ? to.y : double(row + 1);
        const double nextX =
            row == last ? to.x : std::clamp(from.x + (nextY - from.y) * dxdy, 0.0, double(width_));
        addRow(row, x, nextX, turn * (nextY - y));
        y = nextY;
        x = nextX;
    }
}

// An edge within one row: from x0 to x1, `height` of it, signed.
void Coverage::addRow(int y, double x0, double x1, double height)
{
    const double left = std::min(x0, x1), right = std::max(x0, x1);
    int column = std::min(static_cast<int>(left), width_ - 1);
    const auto share = [&](double part, double middle) {
        const double area = part * (column + 1.0 - middle); // to the right within the pixel
        add(y, column, area);
        add(y, column + 1, part - area);
    };
    if (right <= column + 1.0) {
        share(height, (left + right) / 2.0);
        return;
    }
    const double slope = height / (right - left);
    double from = left;
    for (; column < width_ && from < right; ++column) {
        const double to = std::min(column + 1.0, right);
        share(slope * (to - from), (from + to) / 2.0);
        from = to;
    }
}

} // namespace orvald::picture
