// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kexos/folders.h"

#include "native.h"
#include "status_at.h"

#include <dirent.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

namespace kexos {
namespace {

constexpr mode_t kNewFolder = 0777; // less what the process masks out

bool isFolder(const std::string& path)
{
    struct stat status = {};
    return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

/// The kind is known without a further call unless the entry is a link or the file system says
/// nothing.
bool entryStatus(int folder, const dirent& entry, FindDetail detail, FileStatus& status)
{
    const bool told = entry.d_type != DT_UNKNOWN && entry.d_type != DT_LNK;
    if (detail == FindDetail::full || !told) return statusAt(folder, entry.d_name, status);
    status.attributes = kindAttributes(entry.d_name, entry.d_type == DT_DIR, false);
    return true;
}

} // namespace

bool makeFolder(const std::string& path)
{
    return ::mkdir(native::existing(path).c_str(), kNewFolder) == 0;
}

bool makeFolders(const std::string& path)
{
    const std::string folder = native::existing(path);
    for (std::size_t slash = folder.find('/', 1); slash != std::string::npos;
         slash = folder.find('/', slash + 1)) {
        ::mkdir(folder.substr(0, slash).c_str(), kNewFolder);
    }
    ::mkdir(folder.c_str(), kNewFolder);
    return isFolder(folder);
}

bool listFolder(const std::string& path, FindDetail detail, std::vector<FoundFile>& entries)
{
    DIR* const folder = ::opendir(native::existing(path).c_str());
    if (folder == nullptr) return false;
    while (const dirent* entry = ::readdir(folder)) {
        const std::string_view name = entry->d_name;
        FileStatus status;
        if (name != "." && name != ".." && entryStatus(::dirfd(folder), *entry, detail, status)) {
            entries.push_back({native::textOf(name), status});
        }
    }
    ::closedir(folder);
    return true;
}

std::optional<DiskSpace> diskSpace(const std::string& path)
{
    struct statvfs disk = {};
    if (::statvfs(native::existing(path).c_str(), &disk) != 0) return std::nullopt;
    return DiskSpace{disk.f_blocks * disk.f_frsize, disk.f_bavail * disk.f_frsize};
}

} // namespace kexos
