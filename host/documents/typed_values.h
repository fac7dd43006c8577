// SPDX-License-Identifier: LicenseRef-ORVALD
// Numbers, angles and points as a user types them.
#pragma once

#include "drawing/point.h"

#include <optional>
#include <string_view>

namespace orvald {

/// How the drawing measures.
struct TypedUnits
{
    int linear = 2;         // LUNITS
    int angular = 0;        // AUNITS
    double angleBase = 0.0; // ANGBASE, radians counter-clockwise from X
    bool clockwise = false; // ANGDIR 1
};

/// A point as typed, in the user's coordinates.
struct TypedPoint
{
    drawing::Point value;
    bool hasZ = false;
    bool relative = false; // "@": from the last point
    bool world = false;    // "*": in world coordinates
};

/// The text without the blanks at its ends.
std::u16string_view trimmed(std::u16string_view text);
/// A whole number of the range -32768 to 32767.
std::optional<int> readInteger(std::u16string_view text);
/// A colour by number or name: 0 BYBLOCK, 1 red ... 255, 256 BYLAYER.
std::optional<int> readColour(std::u16string_view text);
/// An angle from ANGBASE, in the drawing's sense of turning, as radians counter-clockwise.
std::optional<double> readTurn(std::u16string_view text, const TypedUnits& units);
/// "x,y", "x,y,z", "distance<angle", "distance<angle,z", each with "@" or "*" before it; "@" alone
/// is the last point itself.
std::optional<TypedPoint> readPoint(std::u16string_view text, const TypedUnits& units);

} // namespace orvald
