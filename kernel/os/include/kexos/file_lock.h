// SPDX-License-Identifier: LicenseRef-ORVALD
// An exclusive lock on a file, between processes and between openings in one process. It ends with
// its object, and with the process however that ends. Paths as in kexos/paths.h.
#pragma once

#include "kex/export.h"

#include <string>
#include <utility>

namespace kexos {

enum class LockResult
{
    locked,
    inUse,
    failed
};

class KEX_BASE_API FileLock
{
public:
    FileLock() = default;
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    ~FileLock() { unlock(); }

    /// Never waits. Makes the file when it does not exist; `failed` when that is not possible.
    LockResult tryLock(const std::string& path);
    void unlock();

private:
    int descriptor_ = -1; // open while the lock is held
};

} // namespace kexos
