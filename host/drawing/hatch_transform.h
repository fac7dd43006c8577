// SPDX-License-Identifier: LicenseRef-ORVALD
#pragma once

#include "drawing/tags.h"
#include "plane_map.h"

#include <optional>

namespace orvald::drawing {

/// The groups of a HATCH's image; nothing when the map does not keep its shape.
std::optional<TagList> hatchImage(const TagList& tags, const PlaneMap& map);

} // namespace orvald::drawing
