// SPDX-License-Identifier: LicenseRef-ORVALD
// Conversion of the texts of a drawing.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kTextRows[] = {
    {KT("c:convtext"), notBuilt, KT("[enames or pickset]"), KT("integer")},
};

} // namespace KEX
