// SPDX-License-Identifier: LicenseRef-ORVALD
// Choosing objects by places in the user's coordinates, as they are seen in the active view.
#pragma once

#include "drawing/object_id.h"
#include "drawing/picking.h"

#include <optional>
#include <span>
#include <vector>

namespace orvald {

class Document;

/// Size of a pixel of the screen in drawing units.
double pixelSize(Document& document);

/// Objects that a border chooses, newest first. Two corners of a window or a crossing mean the
/// rectangle between them that is upright in the view.
std::vector<drawing::ObjectId> objectsIn(Document& document, drawing::Border border,
                                         std::span<const drawing::Point> corners);
/// The newest object within the pick box about a place: PICKBOX pixels of the view to each side.
std::optional<drawing::Hit> objectAt(Document& document, drawing::Point place);

} // namespace orvald
