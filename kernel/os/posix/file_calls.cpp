// SPDX-License-Identifier: LicenseRef-ORVALD
#include "file_calls.h"

#include "../fault_plan.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kexos {
namespace {

/// The fault that this call shall have; the system's error tells of a full disk then.
std::optional<FileFault> dueFault()
{
    const std::optional<FileFault> fault = countFileCall();
    if (fault == FileFault::kill) ::_exit(1);
    if (fault.has_value()) errno = ENOSPC;
    return fault;
}

/// True when this call shall fail with an error; a short write is none.
bool failsNow() { return dueFault() == FileFault::error; }

} // namespace

namespace calls {

int create(const std::string& path, mode_t mode)
{
    if (failsNow()) return -1;
    return ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode);
}

ssize_t write(int descriptor, const char* bytes, std::size_t count)
{
    const std::optional<FileFault> fault = dueFault();
    if (fault == FileFault::error) return -1;
    if (fault == FileFault::shortWrite) count = (count + 1) / 2;
    return ::write(descriptor, bytes, count);
}

bool writeAll(int descriptor, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

int sync(int descriptor) { return failsNow() ? -1 : ::fsync(descriptor); }

int setMode(int descriptor, mode_t mode) { return failsNow() ? -1 : ::fchmod(descriptor, mode); }

int close(int descriptor)
{
    const bool fails = failsNow(); // a failed close gives the descriptor back all the same
    const int result = ::close(descriptor);
    return fails ? -1 : result;
}

int rename(const std::string& from, const std::string& to)
{
    return failsNow() ? -1 : std::rename(from.c_str(), to.c_str());
}

int renameNew(const std::string& from, const std::string& to)
{
    if (failsNow()) return -1;
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
    if (errno != EINVAL && errno != ENOSYS) return -1;
    // A file system that cannot do both at once.
    struct stat status = {};
    if (::lstat(to.c_str(), &status) == 0) {
        errno = EEXIST;
        return -1;
    }
    return std::rename(from.c_str(), to.c_str());
}

int remove(const std::string& path) { return failsNow() ? -1 : ::unlink(path.c_str()); }

} // namespace calls
} // namespace kexos
