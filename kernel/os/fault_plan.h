// SPDX-License-Identifier: LicenseRef-ORVALD
// The plan that a test makes with failFileCall, for the calls of either system.
#pragma once

#include "kexos/files.h"

#include <optional>

namespace kexos {

/// Counts a call that changes files; its fault when it is the one that shall fail.
std::optional<FileFault> countFileCall();

} // namespace kexos
