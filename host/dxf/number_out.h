// SPDX-License-Identifier: LicenseRef-ORVALD
// Numbers as DXF text.
#pragma once

namespace orvald::dxf {

/// Longest text that writeReal makes.
inline constexpr int kRealRoom = 40;

/// Writes the shortest text that reads back to the same double, always with a point: "0.1", "-2.0",
/// "1.5E-07". Gives the end of the text. The value must be finite.
char* writeReal(char* out, double value);

} // namespace orvald::dxf
