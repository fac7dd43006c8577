// SPDX-License-Identifier: LicenseRef-ORVALD
// How much room a text takes, without the shapes of its letters.
#include "drawing/text.h"
#include "drawing/views.h"

#include <algorithm>
#include <cmath>

namespace orvald::drawing {
namespace {

// Average width of a character by its height, and distance of lines: enough to place a text.
constexpr double kCharWidth = 0.7, kLineStep = 5.0 / 3.0;

/// From (left, bottom) by `width` and `height`, turned about `origin`.
TextFrame frame(Point origin, double rotation, double left, double bottom, double width,
                double height)
{
    const double c = std::cos(rotation), s = std::sin(rotation);
    const auto corner = [&](double x, double y) {
        return origin + Point{x * c - y * s, x * s + y * c, 0.0};
    };
    return {corner(left, bottom), corner(left + width, bottom),
            corner(left + width, bottom + height), corner(left, bottom + height)};
}

} // namespace

TextFrame textFrame(const TextView& text)
{
    const bool between = text.horizontal == 3 || text.horizontal == 5; // fitted between two points
    if (between) {
        const Point along = text.align - text.insert;
        return frame(text.insert, std::atan2(along.y, along.x), 0.0, 0.0,
                     std::hypot(along.x, along.y), text.height);
    }
    const double width =
        kCharWidth * text.height * text.widthFactor * static_cast<double>(utf16(text.text).size());
    const bool aligned = text.horizontal != 0 || text.vertical != 0;
    const bool centred = text.horizontal == 1 || text.horizontal == 4;
    const double left = centred ? -width / 2 : text.horizontal == 2 ? -width : 0.0;
    const double bottom = text.vertical == 3                           ? -text.height
                          : text.vertical == 2 || text.horizontal == 4 ? -text.height / 2
                                                                       : 0.0;
    return frame(aligned ? text.align : text.insert, text.rotation, left, bottom, width,
                 text.height);
}

TextFrame mtextFrame(const MTextView& text)
{
    std::size_t lines = 1, longest = 0, present = 0;
    for (std::size_t i = 0; i < text.text.size(); ++i) {
        const bool breaks = text.text.compare(i, 2, "\\P") == 0 || text.text[i] == '\n';
        present = breaks ? 0 : present + 1;
        lines += breaks ? 1 : 0;
        longest = std::max(longest, present);
    }
    const double natural = kCharWidth * text.height * static_cast<double>(longest);
    const double width = text.width > 0.0 ? text.width : natural;
    if (width > 0.0 && natural > width)
        lines += static_cast<std::size_t>(std::min(natural / width, 1e6));
    const double height =
        text.height * (1.0 + kLineStep * text.lineSpacing * static_cast<double>(lines - 1));
    const int column = (text.attachment - 1) % 3, row = (text.attachment - 1) / 3;
    return frame(text.insert, text.rotation, -0.5 * column * width, -height + 0.5 * row * height,
                 width, height);
}

} // namespace orvald::drawing
