// SPDX-License-Identifier: LicenseRef-ORVALD
// What is known of each system variable: type, range and where its value lives.
#pragma once

#include "drawing/drawing.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace orvald {

class Document;

enum class VariableType : std::uint8_t
{
    integer,
    real, // angles in radians
    text,
    point2,
    point3
};

enum class VariableHome : std::uint8_t
{
    header,   // a header variable of the drawing: "$" and the name
    viewport, // a group of the drawing's active view port
    session,  // kept by the document while it is open
    computed  // asked of the document
};

/// An integer, a real, a text or a point, as the row's type says.
using VariableValue = std::variant<std::int32_t, double, std::u16string, drawing::Point>;

struct VariableRow
{
    std::u16string_view name; // upper case
    VariableType type = VariableType::integer;
    VariableHome home = VariableHome::session;
    bool readOnly = false;
    std::int16_t group = 0;                       // header, viewport: group code
    double least = 0.0, most = 0.0;               // numbers: both allowed
    double number = 0.0;                          // numbers: value where none is stored
    std::u16string_view text = {};                // texts: the same
    drawing::Point point = {};                    // points: the same
    std::optional<drawing::TableId> namesIn = {}; // header texts: must name a record of this table
    VariableValue (*get)(Document&) = nullptr;    // computed
    bool (*set)(Document&, const VariableValue&) = nullptr; // computed; false: value refused
};

/// Null when there is no such variable; any case.
const VariableRow* findVariable(std::u16string_view name);
/// All rows in alphabetical order.
std::span<const VariableRow> variableRows();

/// Rows whose values are asked of the document.
std::span<const VariableRow> computedVariables();

} // namespace orvald
