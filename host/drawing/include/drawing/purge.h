// SPDX-License-Identifier: LicenseRef-ORVALD
// Which records of a symbol table nothing uses.
#pragma once

#include "drawing/drawing.h"

#include <vector>

namespace orvald::drawing {

/// Records of a table that nothing in the drawing names or points to, and that a drawing can do
/// without. What is erased, or stands in an unused block only, is used by that block: erasing the
/// block may make more records unused.
std::vector<Index> unusedRecords(const Drawing& drawing, TableId table);

} // namespace orvald::drawing
