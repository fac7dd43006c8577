// SPDX-License-Identifier: LicenseRef-ORVALD
// Three shapes in one form: along a line, along a line to the middle and back, around a point.
#include "gradients.h"

#include "drawing/text.h"

#include <algorithm>
#include <cmath>

namespace orvald::picture {

namespace {

Colour mixed(Colour a, Colour b, double share)
{
    const auto part = [&](std::uint8_t x, std::uint8_t y) {
        return static_cast<std::uint8_t>(std::lround(x + (y - x) * share));
    };
    return {part(a.red, b.red), part(a.green, b.green), part(a.blue, b.blue), a.opacity};
}

} // namespace

Gradient gradientOf(const drawing::HatchGradient& wanted, std::span<const Chords> boundary,
                    Colour own)
{
    const Vec along{std::cos(wanted.angle), std::sin(wanted.angle)}, up{-along.y, along.x};
    Bounds box; // along and across
    for (const Chords& run : boundary)
        for (const Vec p : run.points) box.add({dot(p, along), dot(p, up)});
    const auto at = [&](double x, double y) { return x * along + y * up; };
    const double middleX = (box.left + box.right) / 2.0, middleY = (box.bottom + box.top) / 2.0;

    const auto colour = [&](std::size_t i, Colour none) {
        Colour out = i < wanted.colours.size() ? trueColour(wanted.colours[i]) : none;
        out.opacity = own.opacity;
        return out;
    };
    Colour first = colour(0, own), second = colour(1, Colour{255, 255, 255});
    std::string_view shape = wanted.shape;
    if (shape.starts_with("INV")) {
        shape.remove_prefix(3);
        std::swap(first, second);
    }
    Gradient out;
    if (shape == "SPHERICAL" || shape == "HEMISPHERICAL" || shape == "CURVED") {
        // The second colour is where the light falls: in the middle or at the lower border.
        out.radial = true;
        const bool whole = shape == "SPHERICAL";
        out.from = at(middleX, whole ? middleY : box.bottom);
        const Vec corner = at(box.right, box.top);
        out.to = out.from + Vec{length(corner - out.from), 0.0};
        out.stops = {{0.0, second}, {1.0, first}};
    } else {
        out.from = at(box.left, middleY);
        out.to = at(box.right, middleY);
        if (shape == "CYLINDER") out.stops = {{0.0, first}, {0.5, second}, {1.0, first}};
        else out.stops = {{0.0, first}, {1.0, second}};
    }
    return out;
}

Colour colourAt(const Gradient& gradient, Vec at)
{
    const Vec axis = gradient.to - gradient.from, way = at - gradient.from;
    const double size = dot(axis, axis);
    double share = 0.0;
    if (size > 0.0)
        share = gradient.radial ? std::sqrt(dot(way, way) / size) : dot(way, axis) / size;
    share = std::clamp(share, 0.0, 1.0);
    const auto& stops = gradient.stops;
    for (std::size_t i = 1; i < stops.size(); ++i) {
        const auto& [begin, from] = stops[i - 1];
        const auto& [end, to] = stops[i];
        if (share <= end) return mixed(from, to, (share - begin) / (end - begin));
    }
    return stops.empty() ? Colour{} : stops.back().second;
}

} // namespace orvald::picture
