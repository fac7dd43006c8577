// SPDX-License-Identifier: LicenseRef-ORVALD
// Fitting what is drawn into a page.
#include "view.h"

#include <algorithm>

namespace orvald::picture {

namespace {

constexpr double kSheetWidth = 420.0; // millimetres: A3 across
// A side below this part of the coordinates themselves is noise of the coordinates; one below the
// least length is too small to be divided by.
constexpr double kNoise = 1e-12, kLeastLength = 1e-100;

// Gives a box an area: a side that has none gets a hundredth of the other, a point a square of one
// unit. A box of nothing, or of what are no coordinates, becomes a unit square.
Bounds withArea(Bounds box)
{
    const double far = std::max(
        {std::abs(box.left), std::abs(box.right), std::abs(box.bottom), std::abs(box.top)});
    if (box.empty || !(far < Path::kFar)) return {0.0, 0.0, 1.0, 1.0, false};
    const double width = box.right - box.left, height = box.top - box.bottom;
    const double larger = std::max(width, height);
    const double noise = std::max(far * kNoise, kLeastLength);
    const double least = larger > noise ? larger / 100.0 : std::max(1.0, noise);
    const double addX = std::max(least - width, 0.0) / 2.0;
    const double addY = std::max(least - height, 0.0) / 2.0;
    return {box.left - addX, box.bottom - addY, box.right + addX, box.top + addY, false};
}

} // namespace

View fitView(const Options& options, Bounds content)
{
    if (options.window) {
        const Window& window = *options.window;
        content = {};
        content.add({window.left, window.bottom});
        content.add({window.right, window.top});
    }
    content = withArea(content);
    const double contentWidth = content.right - content.left;
    const double contentHeight = content.top - content.bottom;

    View view;
    view.width = std::clamp(options.width, kLeastSize, kMostSize);
    const int mostMargin = view.width / 3;
    double margin = options.window ? 0 : std::clamp(options.margin, 0, mostMargin);
    if (options.height > 0) {
        view.height = std::clamp(options.height, kLeastSize, kMostSize);
        margin = std::min(margin, view.height / 3.0);
    } else {
        const double across = view.width - 2.0 * margin;
        const double wanted = std::ceil(across * (contentHeight / contentWidth) + 2.0 * margin);
        view.height =
            static_cast<int>(std::clamp(wanted, std::max(view.width / 4.0, double{kLeastSize}),
                                        std::min(view.width * 1.5, double{kMostSize})));
        margin = std::min(margin, view.height / 3.0);
    }
    view.scale = std::min((view.width - 2.0 * margin) / contentWidth,
                          (view.height - 2.0 * margin) / contentHeight);
    const Vec middle{(content.left + content.right) / 2.0, (content.bottom + content.top) / 2.0};
    const double s = view.scale;
    view.map = {{s, 0.0, 0.0},
                {0.0, -s, 0.0},
                {0.0, 0.0, s},
                {view.width / 2.0 - s * middle.x, view.height / 2.0 + s * middle.y, 0.0}};
    view.pixelsPerMillimetre = options.lineWeights ? view.width / kSheetWidth : 0.0;
    return view;
}

Window View::world() const
{
    const double left = -map.origin.x / scale, top = map.origin.y / scale;
    return {left, top - height / scale, left + width / scale, top};
}

} // namespace orvald::picture
