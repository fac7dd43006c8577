// SPDX-License-Identifier: LicenseRef-ORVALD
// The last steps of loading: what other programs left out or broke is put right where that loses
// nothing, and the drawing is brought to the form of the version that is written.
#pragma once

#include "loader.h"

namespace orvald::dxf {

/// Owners, dictionaries, extension dictionaries, BLOCK and ENDBLK of every block record.
void mendStructure(drawing::Drawing& drawing, Warnings& warnings);
/// From the version of the file ("AC1015") to the one that is written.
void bringUp(drawing::Drawing& drawing, std::string_view version, Warnings& warnings);
/// Tables, records, dictionaries and classes that a file must have.
void completeDrawing(drawing::Drawing& drawing, Warnings& warnings);

} // namespace orvald::dxf
