// SPDX-License-Identifier: LicenseRef-ORVALD
// Points as a user of a document types them: in his coordinates, from the last point, at the
// current elevation.
#pragma once

#include "drawing/point.h"
#include "typed_values.h"

#include <optional>
#include <string_view>

namespace orvald {

class Document;
class SystemVariables;

/// How the drawing measures.
TypedUnits typedUnits(const SystemVariables& variables);

/// The point that a text means, which becomes the last point; nothing when it is none. `base`: what
/// "@" counts from, else the last point.
std::optional<drawing::Point> pointFrom(Document& document, std::u16string_view text,
                                        std::optional<drawing::Point> base);

} // namespace orvald
