// SPDX-License-Identifier: LicenseRef-ORVALD
// What the user sees after a processor fault inside a LISP function.
#pragma once

#include "hostapi/types.h"

namespace KEX {

/// Writes the arguments of the running call to "<tmp_dir><name>.arg" (":" in the name becomes ";"),
/// then asks whether to go on. True for OK: the call then counts as successful.
bool reportFault(const ACHAR* name, unsigned fault);

} // namespace KEX
