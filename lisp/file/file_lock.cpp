// SPDX-License-Identifier: LicenseRef-ORVALD
// Lock files.
#include "file/file_rows.h"
#include "kex/lock_files.h"
#include "path_arg.h"

#include <algorithm>
#include <climits>

namespace KEX {

int kexFileLock(const resbuf* args)
{
    ArgReader in(args);
    const CKexString path = in.path(1);
    if (in.failed()) return in.fail();
    double wait = 0.0; // seconds, and retries; what is no number counts as none
    const resbuf* rest = in.peek();
    readNumber(rest, wait);
    const int retries = wait > 0.0 ? static_cast<int>(std::min(wait, double(INT_MAX))) : 0;
    return retAds(fileLock(path, retries));
}

int kexFileLocked(const resbuf* args) { return onPath<fileLocked>(args); }

int kexFileUnlock(const resbuf* args)
{
    ArgReader in(args);
    const CKexString path = in.path(0);
    if (in.failed()) return in.fail();
    fileUnlock(path);
    return retVoid();
}

} // namespace KEX
