// SPDX-License-Identifier: LicenseRef-ORVALD
// "Select objects": what a user answers to it, one answer a line, up to Enter.
#pragma once

#include "drawing/object_id.h"
#include "lisp/world.h"

#include <functional>
#include <vector>

namespace orvald {

/// The objects that the user selects, in the order of their selection. Points, two corners of a
/// window, 'HANDLE, and the words Window, Crossing, WPolygon, CPolygon, Fence, Last, Previous, ALL,
/// Add, Remove, Undo. Only what `fits` is taken. `single`: the first answer that selects ends it.
std::vector<drawing::ObjectId>
askObjects(lisp::World& world, const std::function<bool(drawing::ObjectId)>& fits, bool single);

} // namespace orvald
