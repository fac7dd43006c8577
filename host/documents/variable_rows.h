// SPDX-License-Identifier: LicenseRef-ORVALD
// How the tables of system variables write their rows.
#pragma once

#include "system_variable_table.h"

#include <limits>

namespace orvald {

inline constexpr double kAny = std::numeric_limits<double>::max();
inline constexpr double kAboveZero = std::numeric_limits<double>::min();
inline constexpr double kShort = 32767.0;

constexpr VariableRow place(std::u16string_view name, VariableType type, drawing::Point value = {},
                            VariableHome home = VariableHome::header, std::int16_t group = 10)
{
    return {.name = name, .type = type, .home = home, .group = group, .point = value};
}
constexpr VariableRow fixed(VariableRow row)
{
    row.readOnly = true;
    return row;
}

/// Rows of the session and computed ones; the table of the drawing's own joins them.
std::span<const VariableRow> sessionVariables();

} // namespace orvald
