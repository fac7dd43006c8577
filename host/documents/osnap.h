// SPDX-License-Identifier: LicenseRef-ORVALD
// Points of objects near a place: what a user snaps to.
#pragma once

#include "drawing/point.h"

#include <optional>
#include <string_view>

namespace orvald {

class Document;

/// A set of ways to snap; 0 is none of them.
using SnapModes = unsigned;

/// "_end,_mid": the ways named, "none" and "quick" among them; nothing when a word is none.
std::optional<SnapModes> readSnapModes(std::u16string_view text);

/// The point that a user would have snapped to at a place, both in his coordinates; nothing when no
/// object in reach has one.
std::optional<drawing::Point> snapped(Document& document, drawing::Point place, SnapModes modes);

} // namespace orvald
