// SPDX-License-Identifier: LicenseRef-ORVALD
// The whole LISP surface: 996 rows, joined at compile time from the families' rows. A row's
// position is its function code.
#pragma once

#include "marshal/lisp_row.h"

#include <array>

namespace KEX {

inline constexpr std::size_t kLispCount = 996;
extern const std::array<LispRow, kLispCount> kexLispTable;

} // namespace KEX
