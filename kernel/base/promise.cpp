// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/promise.h"

#include "kex/format.h"

void KEX::promiseBroken(const char* why, const char* file, int line)
{
    throw format(KT("{} ({}:{})"), CKexString::fromUtf8(why), CKexString::fromUtf8(file), line);
}
