// SPDX-License-Identifier: LicenseRef-ORVALD
// TOLERANCE: rows of framed cells with signs and values of form and position.
#include "dim_settings.h"
#include "drawing/text.h"
#include "painter.h"

#include <algorithm>
#include <cmath>

namespace orvald::picture {

using drawing::Point;
using drawing::Record;

namespace {

// Pieces between marks, one more than there are marks.
std::vector<std::string> split(const std::string& text, std::string_view mark)
{
    std::vector<std::string> pieces;
    for (std::size_t at = 0;;) {
        const std::size_t end = text.find(mark, at);
        pieces.push_back(text.substr(at, end == text.npos ? end : end - at));
        if (end == text.npos) return pieces;
        at = end + mark.size();
    }
}

} // namespace

void Painter::tolerance(const Record& record, const Look& look, const Place& place)
{
    const drawing::TagList& tags = record.tags;
    const DimSettings settings(drawing_, record);
    const double height = settings.size(140, 2.5), gap = settings.size(147, 0.625);
    if (!(height > 0.0)) return;
    const auto coloured = [&](int code) {
        Look own = look;
        const int number = int(std::clamp<std::int64_t>(settings.integer(code, 0), 0, 256));
        if (number != 0) own.colour = looks_.colour(number, look, place.block);
        return own;
    };
    const Look frame = coloured(176), letters = coloured(178);
    const Point direction = tags.point(11, {1.0, 0.0, 0.0});
    const double turn = std::atan2(direction.y, direction.x);
    const Point along{std::cos(turn), std::sin(turn), 0.0}, up{-along.y, along.x, 0.0};
    const double rowHeight = 2.0 * height;

    const std::string text = drawing::text8(tags.text(1));
    // The first row stands beside the insertion point, the others below it.
    Point left = tags.point(10);
    for (const std::string& row : split(text, "\n")) {
        Point corner = left;
        for (const std::string& cell : split(row, "%%v")) {
            if (cell.empty()) continue;
            if (!spend(1)) return;
            drawing::MTextView view;
            view.text = cell;
            view.height = height;
            view.style = settings.textStyle();
            view.rotation = turn;
            constexpr int kMiddleLeft = 4;
            view.attachment = kMiddleLeft;
            view.insert = corner + gap * along;
            LetterLook letterLook;
            letterLook.height = height;
            const Paragraphs laid = paragraphs(view, letterLook);
            const double width = std::max(laid.right - laid.left + 2.0 * gap, rowHeight);
            view.insert = corner + (width - laid.right + laid.left) / 2.0 * along;
            paragraph(view, letters, place);
            const Point half = rowHeight / 2.0 * up, end = corner + width * along;
            points({corner - half, end - half, end + half, corner + half}, true, frame, place);
            corner = end;
        }
        left = left - rowHeight * up;
    }
}

} // namespace orvald::picture
