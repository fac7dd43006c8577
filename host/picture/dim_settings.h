// SPDX-License-Identifier: LicenseRef-ORVALD
// What a dimension or leader says about its looks: its dimension style, and what it overrides.
#pragma once

#include "drawing/drawing.h"

#include <optional>
#include <string_view>

namespace orvald::picture {

/// Values are named by their group in a DIMSTYLE (41: size of arrows). Valid while the drawing does
/// not change.
class DimSettings
{
public:
    DimSettings(const drawing::Drawing& drawing, const drawing::Record& entity);

    double real(int code, double none) const;
    std::int64_t integer(int code, std::int64_t none) const;
    std::string_view text(int code) const;
    drawing::Handle handle(int code) const;
    /// Name of the style of its letters.
    std::string_view textStyle() const;
    /// A length that grows with the style's overall scale.
    double size(int code, double none) const { return scale_ * real(code, none); }

private:
    std::optional<drawing::Tag> find(int code) const;

    const drawing::Drawing& drawing_;
    const drawing::Record* style_ = nullptr;
    const drawing::TagList* xdata_ = nullptr;
    double scale_ = 1.0;
};

} // namespace orvald::picture
