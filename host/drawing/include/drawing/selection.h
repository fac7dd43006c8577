// SPDX-License-Identifier: LicenseRef-ORVALD
// Selecting entities by a filter list, as ssget "X" does.
#pragma once

#include "drawing/drawing.h"
#include "hostapi/resbuf.h"

#include <vector>

namespace orvald::drawing {

/// All main entities of the model and the layouts that satisfy the filter, newest first. The filter
/// is a chain of groups that must all hold: texts match as patterns, -4 sets a comparison for the
/// next group or brackets tests ("<AND" ... "AND>", OR, XOR, NOT), -3 is followed by application
/// names (1001) that must have extended data. Null selects everything. False when the filter is
/// malformed (brackets that do not match, an unknown operator, one that does not fit its group).
bool selectAll(const Drawing& drawing, const resbuf* filter, std::vector<ObjectId>& found);
/// True when one entity satisfies the filter; false also for a malformed one.
bool satisfies(const Drawing& drawing, ObjectId entity, const resbuf* filter);

} // namespace orvald::drawing
