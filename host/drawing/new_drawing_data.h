// SPDX-License-Identifier: LicenseRef-ORVALD
// What a new drawing holds, as text that people can read and change.
#pragma once

#include <string_view>

namespace orvald::drawing {

/// One variable a line: name, group code, value; the coordinates of a point side by side.
extern const std::string_view kNewHeader;
/// Groups "code value" between bars; "0 TYPE" at the start of a line opens a record, a bar at its
/// end continues it. Coordinates of a point stand side by side.
extern const std::string_view kNewRecords;
/// One class a line: record name, class name, application, proxy flags.
extern const std::string_view kNewClasses;

} // namespace orvald::drawing
