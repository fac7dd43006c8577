// SPDX-License-Identifier: LicenseRef-ORVALD
// Identifiers that no other computer gives.
#pragma once

#include "kex/string.h"

/// A random identifier, version 4: small hexadecimal digits in groups of 8, 4, 4, 4 and 12, no
/// braces. Throws std::runtime_error when the system has no random bytes.
KEX_BASE_API CKexString kexStrUuidCreate();
