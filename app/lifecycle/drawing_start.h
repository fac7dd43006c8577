// SPDX-License-Identifier: LicenseRef-ORVALD
// What the module does when a drawing is loaded, after its functions have been defined.
#pragma once

namespace KEX {

/// View port, units and measurement, material and layer data, and the drawing's own records.
void startDrawing();

} // namespace KEX
