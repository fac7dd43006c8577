// SPDX-License-Identifier: LicenseRef-ORVALD
// Overrides stand in the extended data as pairs of group code and value behind "DSTYLE".
#include "dim_settings.h"

namespace orvald::picture {

using drawing::Tag;

DimSettings::DimSettings(const drawing::Drawing& drawing, const drawing::Record& entity)
    : drawing_(drawing)
{
    const drawing::Index style =
        drawing.findRecord(drawing::TableId::dimstyle, entity.tags.text(3, "Standard"));
    if (style != drawing::kNone) style_ = &drawing.at(style);
    if (entity.extras() != nullptr) xdata_ = &entity.extras()->xdata;
    const double overall = real(40, 1.0);
    scale_ = overall > 0.0 ? overall : 1.0; // 0: by the scale of a view port, which no page has
}

std::optional<Tag> DimSettings::find(int code) const
{
    bool inStyle = false, isValue = false, wanted = false;
    static const drawing::TagList kNothing;
    for (const Tag tag : xdata_ != nullptr ? *xdata_ : kNothing) {
        if (!inStyle) {
            inStyle = tag.code() == 1000 && tag.text() == "DSTYLE";
        } else if (tag.code() == 1002) {
            if (tag.text() == "}") break;
        } else {
            if (isValue && wanted) return tag;
            wanted = !isValue && tag.integer() == code;
            isValue = !isValue;
        }
    }
    if (style_ == nullptr) return {};
    const auto found = style_->tags.find(code);
    if (found == style_->tags.end()) return {};
    return *found;
}

double DimSettings::real(int code, double none) const
{
    const auto tag = find(code);
    return tag ? tag->real() : none;
}

std::int64_t DimSettings::integer(int code, std::int64_t none) const
{
    const auto tag = find(code);
    return tag ? tag->integer() : none;
}

std::string_view DimSettings::text(int code) const
{
    const auto tag = find(code);
    return tag ? tag->text() : std::string_view{};
}

std::string_view DimSettings::textStyle() const
{
    const drawing::Index style = drawing_.byHandle(handle(340));
    return style != drawing::kNone && drawing_.at(style).kind() == drawing::Kind::style
               ? drawing_.at(style).name()
               : "Standard";
}

drawing::Handle DimSettings::handle(int code) const
{
    const auto tag = find(code);
    return tag ? tag->handle() : 0;
}

} // namespace orvald::picture
