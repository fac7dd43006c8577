// SPDX-License-Identifier: LicenseRef-ORVALD
// The tables of builtin functions, one per file.
#pragma once

#include "lisp/world.h"

#include <span>

namespace orvald::lisp {

std::span<const Builtin> numberBuiltins();
std::span<const Builtin> comparisonBuiltins();
std::span<const Builtin> listBuiltins();
std::span<const Builtin> mappingBuiltins();
std::span<const Builtin> sortBuiltins();
std::span<const Builtin> stringBuiltins();
std::span<const Builtin> textSearchBuiltins();
std::span<const Builtin> conversionBuiltins();
std::span<const Builtin> unitBuiltins();
std::span<const Builtin> geometryBuiltins();
std::span<const Builtin> symbolBuiltins();
std::span<const Builtin> controlBuiltins();
std::span<const Builtin> printBuiltins();
std::span<const Builtin> fileBuiltins();
std::span<const Builtin> directoryBuiltins();
std::span<const Builtin> sessionBuiltins();

/// All of them.
std::span<const std::span<const Builtin>> builtinTables();

} // namespace orvald::lisp
