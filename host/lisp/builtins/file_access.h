// SPDX-License-Identifier: LicenseRef-ORVALD
// File values as the printing and the file functions share them.
#pragma once

#include "objects.h"

#include <string_view>

namespace orvald::lisp {

/// The open file of an argument; "bad argument type: FILE ..." for anything else.
File& fileOf(World& world, Value value);

/// Writes UTF-8; raises when the system does not take it.
void writeText(World& world, File& file, std::u16string_view text);

/// To the file when one is given, else to the text window.
void writeTo(World& world, Value file, std::u16string_view text);

} // namespace orvald::lisp
