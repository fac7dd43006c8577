// SPDX-License-Identifier: LicenseRef-ORVALD
// Whole files. What saves or copies writes a temporary file beside the target and holds a shared
// lock on it: a temporary file that can be locked exclusively was left by a process that ended, and
// may be removed. Shared, so that whoever opens the file as soon as it has its name can read it.
#include "kexos/files.h"

#include "file_calls.h"
#include "file_use.h"
#include "kexos/paths.h"
#include "native.h"
#include "status_at.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace kexos {
namespace {

constexpr mode_t kNewFile = 0666; // less what the process masks out
constexpr mode_t kModeBits = 07777;
constexpr std::size_t kReadBlock = 64 * 1024;
constexpr std::size_t kCopyBlock = 256 * 1024;
/// Saves of one file that may run at once.
constexpr int kTemporaries = 100;
constexpr std::size_t kTemporaryTail = 5; // ".~100"

/// A descriptor that is closed, without a look at the result, when its scope ends.
class Descriptor
{
public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor()
    {
        if (isOpen()) ::close(number_);
    }
    bool isOpen() const { return number_ >= 0; }
    int number() const { return number_; }
    /// True when nothing that was written got lost.
    bool close() { return calls::close(std::exchange(number_, -1)) == 0; }

private:
    int number_;
};

/// Where the file really lies when the path ends in a link.
std::string resolved(const std::string& path)
{
    char* real = ::realpath(path.c_str(), nullptr);
    if (real == nullptr) return path;
    std::string result(real);
    std::free(real);
    return result;
}

/// Locks a temporary file that this process has just made; false when another one took it for a
/// leftover in between.
bool ownTemporary(int descriptor)
{
    struct stat status = {};
    return ::flock(descriptor, LOCK_SH | LOCK_NB) == 0 && ::fstat(descriptor, &status) == 0 &&
           status.st_nlink == 1;
}

bool isSameFile(int descriptor, const std::string& path)
{
    struct stat opened = {}, named = {};
    return ::fstat(descriptor, &opened) == 0 && ::lstat(path.c_str(), &named) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

/// Removes a temporary file that nobody is writing any more.
void removeLeftover(const std::string& path)
{
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    const bool ownerless = file.isOpen() && ::flock(file.number(), LOCK_EX | LOCK_NB) == 0;
    // Its owner may have renamed it before we had the lock; then the name is free or another
    // file's.
    if (ownerless && isSameFile(file.number(), path)) calls::remove(path);
}

/// Makes a temporary file beside `target`, its name with a tail, cut where it would be too long; -1
/// when that fails.
int makeTemporary(const std::string& target, std::string& path)
{
    std::string stem = target;
    const std::size_t room = NAME_MAX - kTemporaryTail;
    const std::size_t length = native::nameOf(target).size();
    if (length > room) stem.resize(target.size() - (length - room));
    for (int i = 1; i <= kTemporaries; ++i) {
        path = stem + ".~" + std::to_string(i);
        removeLeftover(path);
        const int descriptor = calls::create(path, kNewFile);
        if (descriptor >= 0 && ownTemporary(descriptor)) return descriptor;
        const bool taken = descriptor >= 0 || errno == EEXIST;
        if (descriptor >= 0) ::close(descriptor);
        if (!taken) return -1;
    }
    return -1;
}

bool syncFolder(const std::string& folder)
{
    Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return opened.isOpen() && calls::sync(opened.number()) == 0;
}

/// All that is left to read goes from one file to the other.
bool copyBytes(int from, int to)
{
    std::string block(kCopyBlock, '\0');
    for (;;) {
        const ssize_t count = ::read(from, block.data(), block.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return count == 0;
        if (!calls::writeAll(to, {block.data(), static_cast<std::size_t>(count)})) return false;
    }
}

/// A file opened to be read as a whole, which nobody holds exclusively.
bool isReadable(const Descriptor& file, struct stat& status)
{
    return file.isOpen() && ::fstat(file.number(), &status) == 0 && S_ISREG(status.st_mode) &&
           use::share(file.number());
}

bool isLink(const std::string& path)
{
    struct stat status = {};
    return ::lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

/// What copyFile does, on paths of the system.
bool copyNative(const std::string& source, const std::string& target)
{
    const Descriptor from(::open(source.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat status = {}, old = {};
    if (!isReadable(from, status) || ::lstat(target.c_str(), &old) == 0) return false;
    std::string temporary;
    Descriptor to(makeTemporary(target, temporary));
    if (!to.isOpen()) return false;
    const timespec times[] = {status.st_atim, status.st_mtim};
    const bool good = copyBytes(from.number(), to.number()) &&
                      calls::setMode(to.number(), status.st_mode & kModeBits) == 0 &&
                      ::futimens(to.number(), times) == 0 &&
                      calls::renameNew(temporary, target) == 0;
    if (!good) calls::remove(temporary);
    // A write error may first show here.
    const bool closed = to.close();
    if (good && !closed) calls::remove(target);
    return good && closed;
}

} // namespace

ReadResult readFile(const std::string& path, std::string& bytes)
{
    const Descriptor file(::open(native::existing(path).c_str(), O_RDONLY | O_CLOEXEC));
    if (!file.isOpen()) {
        return errno == ENOENT || errno == ENOTDIR ? ReadResult::missing : ReadResult::failed;
    }
    if (!use::share(file.number())) return ReadResult::failed;
    std::string content;
    for (;;) {
        const std::size_t before = content.size();
        content.resize(before + kReadBlock);
        const ssize_t count = ::read(file.number(), content.data() + before, kReadBlock);
        content.resize(before + static_cast<std::size_t>(count > 0 ? count : 0));
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return ReadResult::failed;
        if (count == 0) break;
    }
    bytes = std::move(content);
    return ReadResult::read;
}

bool saveFile(const std::string& path, std::string_view bytes)
{
    const std::string target = resolved(native::existing(path));
    std::string temporary;
    Descriptor file(makeTemporary(target, temporary));
    if (!file.isOpen()) return false;
    struct stat old = {};
    const bool keepMode = ::stat(target.c_str(), &old) == 0;
    bool good = (!keepMode || calls::setMode(file.number(), old.st_mode & kModeBits) == 0) &&
                calls::writeAll(file.number(), bytes) && calls::sync(file.number()) == 0;
    // Renamed before it is closed: the lock that marks the temporary file as ours must last till
    // then.
    good = good && calls::rename(temporary, target) == 0;
    if (!good) {
        calls::remove(temporary);
        return false;
    }
    return file.close() && syncFolder(native::folderOf(target));
}

bool copyFile(const std::string& source, const std::string& target)
{
    return copyNative(native::existing(source), native::existing(target));
}

bool moveFile(const std::string& source, const std::string& target)
{
    const std::string from = native::existing(source);
    std::string to = native::existing(target);
    if (from.empty() || to.empty() || use::isInUse(from)) return false;
    if (from == to) {
        // The same name in other letters.
        const std::string given = nativePath(target);
        to.replace(to.size() - native::nameOf(to).size(), std::string::npos, native::nameOf(given));
        return from == to ? fileExists(source) : calls::renameNew(from, to) == 0;
    }
    if (calls::renameNew(from, to) == 0) return true;
    if (errno != EXDEV || !copyNative(from, to)) return false;
    if (calls::remove(from) == 0) return true;
    calls::remove(to);
    return false;
}

bool removeFile(const std::string& path)
{
    const std::string file = native::existing(path);
    FileStatus status;
    // A link goes as such, whatever it leads to.
    if (!isLink(file)) {
        if (!statusAt(AT_FDCWD, file.c_str(), status) || status.isFolder()) return false;
        if (status.isReadOnly() || use::isInUse(file)) return false;
    }
    return calls::remove(file) == 0;
}

} // namespace kexos
