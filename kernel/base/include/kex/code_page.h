// SPDX-License-Identifier: LicenseRef-ORVALD
// Texts that hold the bytes of a code page, one byte a unit: OEM 850, in which DOS programs wrote,
// and ANSI 1252, in which Windows programs did.
#pragma once

#include "kex/text.h"

namespace KEX {

/// Bytes of code page 850 as the bytes that 1252 has for the same characters, in place. A character
/// that 1252 lacks becomes "?"; units above 255 and ASCII stay. A null pointer is harmless.
KEX_BASE_API void dosToWin(ACHAR* text);
/// The other way round: every byte that dosToWin gives comes back.
KEX_BASE_API void winToDos(ACHAR* text);

} // namespace KEX
