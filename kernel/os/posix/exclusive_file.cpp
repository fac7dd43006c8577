// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kexos/exclusive_file.h"

#include "file_calls.h"
#include "file_use.h"
#include "native.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kexos {
namespace {

constexpr mode_t kNewFile = 0666; // less what the process masks out

OpenResult resultOf(int error)
{
    if (error == EEXIST) return OpenResult::exists;
    return error == EWOULDBLOCK ? OpenResult::inUse : OpenResult::failed;
}

int openAs(const std::string& path, OpenMode mode)
{
    // Without O_NONBLOCK a pipe would wait for its other end, and a file for the end of a lease.
    constexpr int kFlags = O_NONBLOCK | O_CLOEXEC;
    switch (mode) {
    case OpenMode::read: return ::open(path.c_str(), O_RDONLY | kFlags);
    case OpenMode::change: return ::open(path.c_str(), O_RDWR | kFlags);
    case OpenMode::create: return calls::create(path, kNewFile);
    case OpenMode::createBarred: return calls::create(path, 0);
    case OpenMode::replace: return ::open(path.c_str(), O_RDWR | O_CREAT | kFlags, kNewFile);
    }
    return -1;
}

OpenResult takeAs(int descriptor, OpenMode mode)
{
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) return OpenResult::failed;
    // The system lets its administrator write every file; the attribute counts all the same.
    const bool writes = mode == OpenMode::change || mode == OpenMode::replace;
    if (writes && (status.st_mode & S_IWUSR) == 0) return OpenResult::failed;
    if (!use::hold(descriptor)) return OpenResult::inUse;
    const bool empties = mode == OpenMode::replace;
    return empties && ::ftruncate(descriptor, 0) != 0 ? OpenResult::failed : OpenResult::opened;
}

} // namespace

OpenResult ExclusiveFile::open(const std::string& path, OpenMode mode)
{
    close();
    const int descriptor = openAs(native::existing(path), mode);
    if (descriptor < 0) return resultOf(errno);
    const OpenResult result = takeAs(descriptor, mode);
    if (result == OpenResult::opened) descriptor_ = descriptor;
    else ::close(descriptor);
    return result;
}

bool ExclusiveFile::write(std::string_view bytes) { return calls::writeAll(descriptor_, bytes); }

bool ExclusiveFile::close()
{
    return descriptor_ < 0 || calls::close(std::exchange(descriptor_, -1)) == 0;
}

} // namespace kexos
