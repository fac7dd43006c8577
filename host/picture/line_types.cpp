// SPDX-License-Identifier: LicenseRef-ORVALD
// Signs come from fonts of shapes. Those of the line types that every host brings along (fences,
// tracks, insulation) are known here by their numbers.
#include "line_types.h"

#include "drawing/text.h"

#include <algorithm>
#include <numbers>

namespace orvald::picture {

using drawing::Tag;

namespace {

constexpr double kPi = std::numbers::pi, kDegree = kPi / 180.0;

Path polygon(std::initializer_list<Vec> points)
{
    Path path;
    for (const Vec p : points) path.empty() ? path.moveTo(p) : path.lineTo(p);
    return path;
}

const Path* standardSign(std::int64_t number)
{
    static const Path tie = polygon({{0.0, 1.0}, {0.0, -1.0}});
    static const Path tooth = polygon({{0.0, 0.0}, {1.0, 1.0}, {2.0, 0.0}});
    static const Path box =
        polygon({{0.0, 0.0}, {0.0, 1.0}, {2.0, 1.0}, {2.0, -1.0}, {0.0, -1.0}, {0.0, 0.0}});
    static const Path circle = [] {
        Path path;
        path.moveTo({0.0, 0.0});
        path.arcTo({{1.0, 0.0}, {-1.0, 0.0}, {0.0, 1.0}, 0.0, 2.0 * kPi}, {0.0, 0.0});
        return path;
    }();
    static const Path loop = [] {
        Path path;
        path.moveTo({0.0, 0.0});
        path.lineTo({-1.0, 2.0});
        path.arcTo({{1.0, 2.0}, {-2.0, 0.0}, {0.0, 2.0}, 0.0, kPi}, {3.0, 2.0});
        path.lineTo({2.0, 0.0});
        return path;
    }();
    switch (number) {
    case 130: return &tie;
    case 131: return &tooth;
    case 132: return &box;
    case 133: return &circle;
    case 134: return &loop;
    default: return nullptr;
    }
}

bool isStandardFont(std::string_view file)
{
    const std::string key = drawing::nameKey(file);
    return key.find("LTYPESHP") != key.npos;
}

} // namespace

LineType readLineType(const drawing::Drawing& drawing, drawing::Index record)
{
    enum Flags
    {
        absolute = 1,
        isText = 2,
        isSign = 4
    };
    LineType type;
    std::int64_t flags = 0, number = 0;
    bool standardFont = false;
    for (const Tag tag : drawing.at(record).tags) {
        LineMark* mark =
            type.marks.empty() || (flags & (isText | isSign)) == 0 ? nullptr : &type.marks.back();
        if (tag.code() == 49) {
            type.lengths.push_back(tag.real());
            flags = 0;
        } else if (tag.code() == 74 && !type.lengths.empty()) {
            flags = tag.integer();
            if ((flags & (isText | isSign)) == 0) continue;
            LineMark& fresh = type.marks.emplace_back();
            fresh.element = type.lengths.size() - 1;
            fresh.upright = (flags & absolute) != 0;
        } else if (mark == nullptr) {
            continue;
        } else if (tag.code() == 75) {
            number = tag.integer();
        } else if (tag.code() == 340) {
            const drawing::Index style = drawing.byHandle(tag.handle());
            if (style == drawing::kNone) continue;
            const drawing::TagList& tags = drawing.at(style).tags;
            mark->height = tags.real(40);
            mark->widthFactor = tags.real(41, 1.0);
            mark->oblique = tags.real(50) * kDegree;
            standardFont = isStandardFont(tags.text(3));
            if ((flags & isSign) != 0 && standardFont) mark->sign = standardSign(number);
        } else if (tag.code() == 46) {
            mark->scale = tag.real();
        } else if (tag.code() == 50) {
            mark->turn = tag.real() * kDegree;
        } else if (tag.code() == 44) {
            mark->x = tag.real();
        } else if (tag.code() == 45) {
            mark->y = tag.real();
        } else if (tag.code() == 9 && (flags & isText) != 0) {
            mark->text = drawing::text8(tag.text());
        }
    }
    std::erase_if(type.marks,
                  [](const LineMark& mark) { return mark.text.empty() && mark.sign == nullptr; });
    for (LineMark& mark : type.marks) {
        // A style of no height of its own leaves it to the scale.
        mark.height = mark.scale * (mark.height > 0.0 ? mark.height : 1.0);
        if (!(mark.widthFactor > 0.0)) mark.widthFactor = 1.0;
    }
    return type;
}

} // namespace orvald::picture
