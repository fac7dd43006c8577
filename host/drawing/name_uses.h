// SPDX-License-Identifier: LicenseRef-ORVALD
// Records name table records by text: an entity its layer, a text its style. Where, is told here
// alone; renaming and copying go by it.
#pragma once

#include "drawing/drawing.h"

#include <functional>

namespace orvald::drawing {

/// Hands on each name of a table record in a record and its extended data, in file form.
void forEachName(const Record& record, const std::function<void(TableId, std::string_view)>& visit);
/// Puts what `other` gives in the place of each such name; an empty text keeps it.
void replaceNames(Record& record,
                  const std::function<std::string(TableId, std::string_view)>& other);

/// Gives a table record another name, and nothing else.
void setName(Record& record, std::string_view name);

} // namespace orvald::drawing
