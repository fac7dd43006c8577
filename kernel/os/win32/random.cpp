// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kexos/random.h"

#include "windows_api.h"

#include <bcrypt.h>

namespace kexos {

bool randomBytes(void* buffer, std::size_t size)
{
    return BCryptGenRandom(nullptr, static_cast<UCHAR*>(buffer), static_cast<ULONG>(size),
                           BCRYPT_USE_SYSTEM_PREFERRED_RNG) == 0;
}

} // namespace kexos
