// SPDX-License-Identifier: LicenseRef-ORVALD
#include "file_use.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kexos::use {
namespace {

/// A file system without such locks refuses nobody.
bool lock(int descriptor, int kind)
{
    while (::flock(descriptor, kind | LOCK_NB) != 0) {
        if (errno != EINTR) return errno != EWOULDBLOCK;
    }
    return true;
}

/// The system grants a write lease only while nobody else, whatever his program knows of locks, has
/// the file open. It is given back at once: while it lasts, other openings wait.
bool leaseIsRefused(int descriptor)
{
    // Whoever opens the file in that moment makes the system send this signal, which by its nature
    // is ignored, in place of SIGIO, which would end the process.
    ::fcntl(descriptor, F_SETSIG, SIGURG);
    if (::fcntl(descriptor, F_SETLEASE, F_WRLCK) != 0) return errno == EAGAIN;
    ::fcntl(descriptor, F_SETLEASE, F_UNLCK);
    return false;
}

} // namespace

bool share(int descriptor) { return lock(descriptor, LOCK_SH); }

bool hold(int descriptor) { return lock(descriptor, LOCK_EX) && !leaseIsRefused(descriptor); }

bool isInUse(const std::string& path)
{
    // Without O_NONBLOCK a pipe would wait for its other end.
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) return errno == EWOULDBLOCK; // under somebody's lease
    struct stat status = {};
    const bool isFile = ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
    const bool inUse = isFile && !hold(descriptor);
    ::close(descriptor);
    return inUse;
}

} // namespace kexos::use
