// SPDX-License-Identifier: LicenseRef-ORVALD
// KEX_ASSERT: a promise of our own code. It stays on in release builds; a broken one ends the
// running call as a thrown CKexString, which the dispatcher shows to the user.
#pragma once

#include "kex/export.h"

namespace KEX {
[[noreturn]] KEX_BASE_API void promiseBroken(const char* why, const char* file, int line);
}

/// `why` says why the condition must hold.
#define KEX_ASSERT(holds, why)                                                                     \
    ((holds) ? static_cast<void>(0) : ::KEX::promiseBroken(why, __FILE__, __LINE__))
