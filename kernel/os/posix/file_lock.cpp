// SPDX-License-Identifier: LicenseRef-ORVALD
// Locks by flock: held by an open file, refused to every other opening, freed by the system when
// the process ends. Record locks of the process are of no use, closing any descriptor drops them.
#include "kexos/file_lock.h"

#include "native.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace kexos {

LockResult FileLock::tryLock(const std::string& path)
{
    unlock();
    const int descriptor =
        ::open(native::existing(path).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (descriptor < 0) return LockResult::failed;
    if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0) {
        descriptor_ = descriptor;
        return LockResult::locked;
    }
    const bool inUse = errno == EWOULDBLOCK || errno == EINTR;
    ::close(descriptor);
    return inUse ? LockResult::inUse : LockResult::failed;
}

void FileLock::unlock()
{
    if (descriptor_ >= 0) ::close(std::exchange(descriptor_, -1));
}

} // namespace kexos
