// SPDX-License-Identifier: LicenseRef-ORVALD
// Locks on all bytes of a file: held by an open file, refused to every other opening, freed by the
// system when the process ends. Such a lock keeps others from reading the file as well, and the
// file from being replaced: it wants a file of its own.
#include "kexos/file_lock.h"

#include "native.h"
#include "status_of.h"

#include <fcntl.h>
#include <io.h>

namespace kexos {
namespace {

constexpr DWORD kAll = MAXDWORD;

HANDLE handleOf(int descriptor) { return reinterpret_cast<HANDLE>(_get_osfhandle(descriptor)); }

LockResult resultOf(DWORD error)
{
    const bool inUse = error == ERROR_LOCK_VIOLATION || error == ERROR_IO_PENDING ||
                       error == ERROR_SHARING_VIOLATION;
    return inUse ? LockResult::inUse : LockResult::failed;
}

} // namespace

LockResult FileLock::tryLock(const std::string& path)
{
    unlock();
    native::Handle file(CreateFileW(native::callPath(path).c_str(), GENERIC_READ | GENERIC_WRITE,
                                    kShareAll, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL,
                                    nullptr));
    OVERLAPPED start = {};
    if (!file.isOpen() ||
        !LockFileEx(file.get(), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, kAll, kAll,
                    &start)) {
        return resultOf(GetLastError());
    }
    descriptor_ = _open_osfhandle(reinterpret_cast<intptr_t>(file.get()), _O_RDWR | _O_NOINHERIT);
    if (descriptor_ < 0) return LockResult::failed;
    file.release();
    return LockResult::locked;
}

void FileLock::unlock()
{
    if (descriptor_ < 0) return;
    // Closing would free it as well, but not at once.
    OVERLAPPED start = {};
    UnlockFileEx(handleOf(descriptor_), 0, kAll, kAll, &start);
    _close(std::exchange(descriptor_, -1));
}

} // namespace kexos
