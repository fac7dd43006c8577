// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kexos/folders.h"

#include "native.h"
#include "status_of.h"

namespace kexos {
namespace {

bool isFolder(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// With a separator, unless "C:" means the current folder of a drive.
std::wstring inside(std::wstring folder)
{
    if (!folder.ends_with(L'\\') && !folder.ends_with(L':')) folder += L'\\';
    return folder;
}

/// A search that is ended when its scope is.
class Search
{
public:
    explicit Search(const std::wstring& pattern)
        : search_(FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &found_, FindExSearchNameMatch,
                                   nullptr, FIND_FIRST_EX_LARGE_FETCH))
    {
    }
    Search(const Search&) = delete;
    Search& operator=(const Search&) = delete;
    ~Search()
    {
        if (isOpen()) FindClose(search_);
    }
    bool isOpen() const { return search_ != INVALID_HANDLE_VALUE; }
    const WIN32_FIND_DATAW& found() const { return found_; }
    bool next() { return FindNextFileW(search_, &found_) != 0; }

private:
    WIN32_FIND_DATAW found_;
    HANDLE search_;
};

/// The tag of a link tells it from other things that stand in a file's place.
std::optional<FileStatus> entryStatus(const std::wstring& folder, const WIN32_FIND_DATAW& found)
{
    const bool hasTag = (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
    if (hasTag && IsReparseTagNameSurrogate(found.dwReserved0)) {
        return statusOfLink(native::longPath(inside(folder) + found.cFileName));
    }
    return statusOf(found);
}

} // namespace

bool makeFolder(const std::string& path)
{
    return CreateDirectoryW(native::callPath(path).c_str(), nullptr) != 0;
}

bool makeFolders(const std::string& path)
{
    const std::wstring folder = native::callPath(path);
    // The roots that the first parts name exist or cannot be made.
    for (std::size_t slash = folder.find(L'\\', 1); slash != std::wstring::npos;
         slash = folder.find(L'\\', slash + 1)) {
        CreateDirectoryW(folder.substr(0, slash).c_str(), nullptr);
    }
    CreateDirectoryW(folder.c_str(), nullptr);
    return isFolder(folder);
}

bool listFolder(const std::string& path, FindDetail, std::vector<FoundFile>& entries)
{
    const std::wstring folder = native::callPath(path);
    if (folder.empty()) return false;
    Search search(inside(folder) + L'*');
    // The root of a disk has no "." entry, and so may have none at all.
    if (!search.isOpen()) return GetLastError() == ERROR_FILE_NOT_FOUND && isFolder(folder);
    do {
        const std::wstring_view name = search.found().cFileName;
        if (name == L"." || name == L"..") continue;
        const std::optional<FileStatus> status = entryStatus(folder, search.found());
        if (status.has_value()) entries.push_back({native::utf8(name), *status});
    } while (search.next());
    return true;
}

std::optional<DiskSpace> diskSpace(const std::string& path)
{
    const std::wstring folder = native::callPath(path);
    ULARGE_INTEGER free, total;
    if (!isFolder(folder)) return std::nullopt;
    if (!GetDiskFreeSpaceExW(inside(folder).c_str(), &free, &total, nullptr)) return std::nullopt;
    return DiskSpace{total.QuadPart, free.QuadPart};
}

} // namespace kexos
