// SPDX-License-Identifier: LicenseRef-ORVALD
// Reading and saving whole files. While a save writes its temporary file it holds a lock on it: a
// temporary file without that lock was left by a process that ended, and may be removed.
#include "kexos/files.h"

#include "file_calls.h"
#include "kexos/file_status.h"
#include "kexos/folders.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace kexos {
namespace {

constexpr mode_t kNewFile = 0666; // less what the process masks out
constexpr mode_t kNewFolder = 0777;
constexpr mode_t kModeBits = 07777;
constexpr std::size_t kReadBlock = 64 * 1024;
/// Saves of one file that may run at once.
constexpr int kTemporaries = 100;

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

std::string folderOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

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
    return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0 && ::fstat(descriptor, &status) == 0 &&
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

/// Makes a temporary file beside `target`; -1 when that fails.
int makeTemporary(const std::string& target, std::string& path)
{
    for (int i = 1; i <= kTemporaries; ++i) {
        path = target + ".~" + std::to_string(i);
        removeLeftover(path);
        const int descriptor = calls::create(path, kNewFile);
        if (descriptor >= 0 && ownTemporary(descriptor)) return descriptor;
        const bool taken = descriptor >= 0 || errno == EEXIST;
        if (descriptor >= 0) ::close(descriptor);
        if (!taken) return -1;
    }
    return -1;
}

bool writeAll(int descriptor, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = calls::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool syncFolder(const std::string& folder)
{
    Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return opened.isOpen() && calls::sync(opened.number()) == 0;
}

bool isFolder(const std::string& path)
{
    struct stat status = {};
    return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

} // namespace

ReadResult readFile(const std::string& path, std::string& bytes)
{
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file.isOpen()) {
        return errno == ENOENT || errno == ENOTDIR ? ReadResult::missing : ReadResult::failed;
    }
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
    const std::string target = resolved(path);
    std::string temporary;
    Descriptor file(makeTemporary(target, temporary));
    if (!file.isOpen()) return false;
    struct stat old = {};
    const bool keepMode = ::stat(target.c_str(), &old) == 0;
    bool good = (!keepMode || calls::setMode(file.number(), old.st_mode & kModeBits) == 0) &&
                writeAll(file.number(), bytes) && calls::sync(file.number()) == 0;
    // Renamed before it is closed: the lock that marks the temporary file as ours must last till
    // then.
    good = good && calls::rename(temporary, target) == 0;
    if (!good) {
        calls::remove(temporary);
        return false;
    }
    return file.close() && syncFolder(folderOf(target));
}

bool fileExists(const std::string& path)
{
    struct stat status = {};
    return ::stat(path.c_str(), &status) == 0;
}

bool makeWritable(const std::string& path)
{
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0) return errno == ENOENT;
    if ((status.st_mode & S_IWUSR) != 0) return true;
    return ::chmod(path.c_str(), (status.st_mode & kModeBits) | S_IWUSR) == 0;
}

bool makeFolders(const std::string& path)
{
    for (std::size_t slash = path.find('/', 1); slash != std::string::npos;
         slash = path.find('/', slash + 1)) {
        ::mkdir(path.substr(0, slash).c_str(), kNewFolder);
    }
    ::mkdir(path.c_str(), kNewFolder);
    return isFolder(path);
}

} // namespace kexos
