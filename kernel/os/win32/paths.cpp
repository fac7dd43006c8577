// SPDX-License-Identifier: LicenseRef-ORVALD
// Paths, drives and shares are the system's own here.
#include "kexos/paths.h"

#include "native.h"

#include <algorithm>
#include <winnetwk.h>

namespace kexos {
namespace {

/// Number of the drive that a path begins with, 0 for A; -1 when it begins with none.
int driveOf(std::string_view path)
{
    if (path.size() < 2 || path[1] != ':') return -1;
    if (path[0] >= 'a' && path[0] <= 'z') return path[0] - 'a';
    return path[0] >= 'A' && path[0] <= 'Z' ? path[0] - 'A' : -1;
}

bool driveExists(int drive) { return (GetLogicalDrives() >> drive & 1) != 0; }

std::string backslashed(std::string_view path)
{
    std::string text(path);
    std::ranges::replace(text, '/', '\\');
    return text;
}

/// "\\server\share" that a drive ("Z:") stands for; "" when it stands for none.
std::wstring shareOf(const std::wstring& drive)
{
    std::wstring share(MAX_PATH, L'\0');
    auto size = static_cast<DWORD>(share.size());
    DWORD result = WNetGetConnectionW(drive.c_str(), share.data(), &size);
    if (result == ERROR_MORE_DATA) {
        share.resize(size);
        result = WNetGetConnectionW(drive.c_str(), share.data(), &size);
    }
    return result == NO_ERROR ? std::wstring(share.c_str()) : std::wstring();
}

} // namespace

std::string nativePath(std::string_view kernelPath)
{
    const int drive = driveOf(kernelPath);
    const bool possible = kernelPath.find('\0') == std::string_view::npos;
    if (!possible || (drive >= 0 && !driveExists(drive))) return std::string();
    return backslashed(kernelPath);
}

std::string kernelPath(std::string_view nativePath)
{
    constexpr std::string_view kLong = "\\\\?\\", kLongShare = "\\\\?\\UNC\\";
    if (nativePath.starts_with(kLongShare)) {
        return "\\\\" + backslashed(nativePath.substr(kLongShare.size()));
    }
    if (nativePath.starts_with(kLong)) nativePath.remove_prefix(kLong.size());
    return backslashed(nativePath);
}

std::string fullPath(std::string_view path)
{
    if (path.empty() || path.find('\0') != std::string_view::npos) return std::string();
    const std::wstring given = native::wide(backslashed(path));
    return native::utf8(native::textOf([&](wchar_t* buffer, DWORD size) {
        return GetFullPathNameW(given.c_str(), size, buffer, nullptr);
    }));
}

std::string networkPath(std::string_view path)
{
    if (driveOf(path) < 0) return std::string(path);
    const std::wstring share = shareOf(native::wide(path.substr(0, 2)));
    return share.empty() ? std::string(path) : native::utf8(share) + std::string(path.substr(2));
}

std::string drives()
{
    std::string letters;
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        if (driveExists(letter - 'A')) letters += letter;
    }
    return letters;
}

std::string currentFolder()
{
    return kernelPath(native::utf8(native::textOf(
        [](wchar_t* buffer, DWORD size) { return GetCurrentDirectoryW(size, buffer); })));
}

bool setCurrentFolder(std::string_view path)
{
    return SetCurrentDirectoryW(native::callPath(path).c_str()) != 0;
}

} // namespace kexos
