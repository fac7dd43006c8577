// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kexos/file_status.h"

#include "file_time.h"
#include "native.h"
#include "status_of.h"

namespace kexos {
namespace {

/// Of what a link leads to.
std::optional<FileStatus> statusBehind(const std::wstring& path)
{
    BY_HANDLE_FILE_INFORMATION information;
    const native::Handle file(CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr,
                                          OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!file.isOpen() || !GetFileInformationByHandle(file.get(), &information)) {
        return std::nullopt;
    }
    return statusOf(information);
}

/// Tag of what stands in a file's place, 0 when the system does not say.
DWORD reparseTag(const std::wstring& path)
{
    const native::Handle file(
        CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr, OPEN_EXISTING,
                    FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    FILE_ATTRIBUTE_TAG_INFO information;
    const bool known =
        file.isOpen() && GetFileInformationByHandleEx(file.get(), FileAttributeTagInfo,
                                                      &information, sizeof information) != 0;
    return known ? information.ReparseTag : 0;
}

} // namespace

std::optional<FileStatus> statusOfLink(const std::wstring& path)
{
    std::optional<FileStatus> status = statusBehind(path);
    if (status.has_value()) status->attributes |= kLink;
    return status;
}

std::optional<FileStatus> fileStatus(const std::string& path)
{
    const std::wstring file = native::callPath(path);
    WIN32_FILE_ATTRIBUTE_DATA found;
    if (!GetFileAttributesExW(file.c_str(), GetFileExInfoStandard, &found)) return std::nullopt;
    const bool hasTag = (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
    if (hasTag && IsReparseTagNameSurrogate(reparseTag(file))) return statusOfLink(file);
    return statusOf(found);
}

bool fileExists(const std::string& path) { return fileStatus(path).has_value(); }

bool makeWritable(const std::string& path)
{
    const std::wstring file = native::callPath(path);
    const DWORD attributes = GetFileAttributesW(file.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        const DWORD error = GetLastError();
        return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
    }
    if ((attributes & FILE_ATTRIBUTE_READONLY) == 0) return true;
    const DWORD rest = attributes & ~DWORD(FILE_ATTRIBUTE_READONLY);
    return SetFileAttributesW(file.c_str(), rest == 0 ? FILE_ATTRIBUTE_NORMAL : rest) != 0;
}

} // namespace kexos
