// SPDX-License-Identifier: LicenseRef-ORVALD
// A character as argument: its code, of which the low 16 bits count, or a string, of which the
// first character does.
#pragma once

#include "hostapi/resbuf.h"

#include <optional>

namespace KEX {

/// Code 0 for the empty string; nothing for a node of another type.
std::optional<ACHAR> characterOf(const resbuf* node);

} // namespace KEX
