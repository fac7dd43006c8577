// SPDX-License-Identifier: LicenseRef-ORVALD
// Random bytes from the system.
#pragma once

#include "kex/export.h"

#include <cstddef>

namespace kexos {

/// Fills the buffer with bytes that nobody can foretell; false when the system has none to give.
KEX_BASE_API bool randomBytes(void* buffer, std::size_t size);

} // namespace kexos
