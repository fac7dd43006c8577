// SPDX-License-Identifier: LicenseRef-ORVALD
#include "native.h"

#include "kex/string.h"
#include "kexos/paths.h"

namespace kexos::native {
namespace {

/// From this length on a call may refuse a path: a folder must leave room for a short name.
constexpr std::size_t kTooLong = MAX_PATH - 12;

} // namespace

std::wstring wide(std::string_view text)
{
    return std::wstring(KEX::TextView(CKexString::fromUtf8(text)));
}

std::string utf8(std::wstring_view text) { return KEX::toUtf8(text); }

std::wstring callPath(std::string_view kernelPath)
{
    return longPath(wide(nativePath(kernelPath)));
}

std::wstring longPath(const std::wstring& path)
{
    if (path.empty()) return path;
    const std::wstring full = textOf([&](wchar_t* buffer, DWORD size) {
        return GetFullPathNameW(path.c_str(), size, buffer, nullptr);
    });
    if (full.size() < kTooLong) return path;
    if (full.starts_with(L"\\\\?\\") || full.starts_with(L"\\\\.\\")) return full;
    return full.starts_with(L"\\\\") ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
}

} // namespace kexos::native
