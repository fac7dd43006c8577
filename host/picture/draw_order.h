// SPDX-License-Identifier: LicenseRef-ORVALD
// The order in which the entities of a block cover each other, where a user has changed it.
#pragma once

#include "drawing/drawing.h"

#include <vector>

namespace orvald::picture {

/// The entities of a block record from the lowest to the topmost. Empty when nobody has changed the
/// order in which they hang there.
std::vector<drawing::Index> drawOrder(const drawing::Drawing& drawing, drawing::Index blockRecord);

} // namespace orvald::picture
