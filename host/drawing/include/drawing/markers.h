// SPDX-License-Identifier: LicenseRef-ORVALD
// Records of versions that had no subclass markers (before R13).
#pragma once

#include "drawing/record.h"

namespace orvald::drawing {

/// Gives a record that has no subclass markers those of today, with its groups sorted behind them;
/// within a subclass they keep their order. `polylineFlags`: group 70 of the polyline that a vertex
/// belongs to. Records of kinds that such versions did not have stay as they are.
void addMarkers(Record& record, std::int64_t polylineFlags = 0);

} // namespace orvald::drawing
