// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kexos/environment.h"

#include "kexos/paths.h"
#include "native.h"

#include <shlobj.h>

namespace kexos {
namespace {

std::string withoutSeparator(std::string folder)
{
    while (folder.ends_with('\\') && !folder.ends_with(":\\")) folder.pop_back();
    return folder;
}

/// Where the user's programs keep their settings, "" when the system does not say.
std::string settingsFolder()
{
    wchar_t folder[MAX_PATH];
    constexpr DWORD kCurrent = 0; // not where it would be by default
    const HRESULT result = SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, kCurrent, folder);
    return result == S_OK ? native::utf8(folder) : std::string();
}

} // namespace

std::optional<std::string> environment(const std::string& name)
{
    const std::wstring wanted = native::wide(name);
    SetLastError(ERROR_SUCCESS);
    const std::wstring value = native::textOf([&](wchar_t* buffer, DWORD size) {
        return GetEnvironmentVariableW(wanted.c_str(), buffer, size);
    });
    if (value.empty() && GetLastError() == ERROR_ENVVAR_NOT_FOUND) return std::nullopt;
    return native::utf8(value);
}

bool setEnvironment(const std::string& name, const std::string& value)
{
    // The system would take a "=" at the begin: so it keeps the current folder of each drive.
    if (name.empty() || name.find('=') != std::string::npos) return false;
    return SetEnvironmentVariableW(native::wide(name).c_str(), native::wide(value).c_str()) != 0;
}

std::string homeFolder()
{
    const std::string own = environment("KEX_HOME").value_or("");
    if (!own.empty()) return withoutSeparator(kernelPath(own));
    return kernelPath(settingsFolder()) + "\\orvald";
}

std::string tempFolder()
{
    // The call looks at TMP and TEMP first.
    return withoutSeparator(kernelPath(native::utf8(
        native::textOf([](wchar_t* buffer, DWORD size) { return GetTempPathW(size, buffer); }))));
}

int processId() { return static_cast<int>(GetCurrentProcessId()); }

} // namespace kexos
