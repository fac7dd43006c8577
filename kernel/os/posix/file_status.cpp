// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kexos/file_status.h"

#include "native.h"
#include "status_at.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace kexos {
namespace {

constexpr mode_t kModeBits = 07777;

std::int64_t ticksOf(const struct statx_timestamp& time)
{
    constexpr std::int64_t kNanosecondsPerTick = 100;
    return time.tv_sec * kTicksPerSecond + time.tv_nsec / kNanosecondsPerTick;
}

bool readStatus(int folder, const char* name, int flags, struct statx& status)
{
    return ::statx(folder, name, flags | AT_STATX_DONT_SYNC, STATX_BASIC_STATS | STATX_BTIME,
                   &status) == 0;
}

} // namespace

bool statusAt(int folder, const char* name, FileStatus& result)
{
    struct statx status = {};
    if (!readStatus(folder, name, AT_SYMLINK_NOFOLLOW, status)) return false;
    const bool isLink = S_ISLNK(status.stx_mode);
    if (isLink && !readStatus(folder, name, 0, status)) return false;
    const bool isFolder = S_ISDIR(status.stx_mode);
    result = {};
    result.attributes = kindAttributes(native::nameOf(name), isFolder, isLink);
    if ((status.stx_mode & S_IWUSR) == 0) result.attributes |= kReadOnly;
    result.size = isFolder ? 0 : status.stx_size;
    result.written = ticksOf(status.stx_mtime);
    result.accessed = ticksOf(status.stx_atime);
    const bool birthKnown = (status.stx_mask & STATX_BTIME) != 0;
    result.created = birthKnown ? ticksOf(status.stx_btime) : result.written;
    return true;
}

std::uint32_t kindAttributes(std::string_view name, bool isFolder, bool isLink)
{
    const bool isHidden = name.starts_with('.') && name != "." && name != "..";
    return (isFolder ? kFolder : kArchive) | (isLink ? kLink : 0u) | (isHidden ? kHidden : 0u);
}

std::optional<FileStatus> fileStatus(const std::string& path)
{
    FileStatus status;
    if (!statusAt(AT_FDCWD, native::existing(path).c_str(), status)) return std::nullopt;
    return status;
}

bool fileExists(const std::string& path)
{
    struct stat status = {};
    return ::stat(native::existing(path).c_str(), &status) == 0;
}

bool makeWritable(const std::string& path)
{
    const std::string file = native::existing(path);
    struct stat status = {};
    if (::stat(file.c_str(), &status) != 0) return errno == ENOENT;
    if ((status.st_mode & S_IWUSR) != 0) return true;
    return ::chmod(file.c_str(), (status.st_mode & kModeBits) | S_IWUSR) == 0;
}

} // namespace kexos
