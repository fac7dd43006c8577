// SPDX-License-Identifier: LicenseRef-ORVALD
// Distances and angles as AutoLISP's rtos, angtos, distof and angtof write and read them; the
// prompts of the host use the same rules. Nothing here depends on a drawing: the settings are
// passed in.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvald::lisp {

/// The system variables that steer the text, with the values of a new drawing.
struct UnitSettings
{
    int linearUnits = 2;      // LUNITS: 1 scientific, 2 decimal, 3 engineering, 4 architectural,
                              // 5 fractional
    int linearPrecision = 4;  // LUPREC: places, 0 to 8; in modes 4 and 5 the power of two below
    int angularUnits = 0;     // AUNITS: 0 degrees, 1 d/m/s, 2 grads, 3 radians, 4 surveyor's
    int angularPrecision = 0; // AUPREC, 0 to 8
    int unitMode = 0;         // UNITMODE: 1 writes feet and fractions as they are typed in
    int zeroSuppression = 0;  // DIMZIN
};

/// `value` in drawing units (inches in modes 3 and 4). A mode outside 1 to 5 counts as 2; the
/// precision is brought into 0 to 8. Rounding is half away from zero.
std::u16string distanceText(double value, int mode, int precision, const UnitSettings& settings);

/// `radians` counter-clockwise from X, taken modulo a full turn. A mode outside 0 to 4 counts as 0.
std::u16string angleText(double radians, int mode, int precision, const UnitSettings& settings);

/// Reads what distanceText wrote, in any of its forms when the mode is 3 to 5; nothing when the
/// text as a whole is no distance.
std::optional<double> readDistance(std::u16string_view text, int mode);

/// Radians from 0 to below a full turn; nothing when the text as a whole is no angle.
std::optional<double> readAngle(std::u16string_view text, int mode);

} // namespace orvald::lisp
