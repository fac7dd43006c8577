// SPDX-License-Identifier: LicenseRef-ORVALD
// The module's commands.
#pragma once

#include "kex/text.h"

namespace KEX {

/// Group of the commands, and name of the module's service.
inline constexpr const ACHAR* kBaseApi = KT("KEX_BASE_API");

/// Registers "kex_dump", "kex_defun" and "kex_norm_reset".
void registerCommands();
void removeCommands();

/// Prints calls, total time and time per call of every LISP function called so far, and resets
/// them.
void dumpTotals();

} // namespace KEX
