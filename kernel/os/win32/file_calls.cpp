// SPDX-License-Identifier: LicenseRef-ORVALD
#include "file_calls.h"

#include "../fault_plan.h"
#include "native.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <io.h>
#include <vector>

namespace kexos {
namespace {

/// The fault that this call shall have; the system's error tells of a full disk then.
std::optional<FileFault> dueFault()
{
    const std::optional<FileFault> fault = countFileCall();
    if (fault == FileFault::kill) TerminateProcess(GetCurrentProcess(), 1);
    if (fault.has_value()) SetLastError(ERROR_DISK_FULL);
    return fault;
}

/// True when this call shall fail with an error; a short write is none.
bool failsNow() { return dueFault() == FileFault::error; }

/// Bytes written, 0 on failure.
DWORD write(HANDLE file, const char* bytes, DWORD count)
{
    const std::optional<FileFault> fault = dueFault();
    if (fault == FileFault::error) return 0;
    if (fault == FileFault::shortWrite) count = (count + 1) / 2;
    DWORD written = 0;
    return WriteFile(file, bytes, count, &written, nullptr) ? written : 0;
}

} // namespace

namespace calls {

HANDLE create(const std::wstring& path, DWORD attributes)
{
    if (failsNow()) return INVALID_HANDLE_VALUE;
    return CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW,
                       attributes, nullptr);
}

bool writeAll(HANDLE file, std::string_view bytes)
{
    // More at once is refused on some network drives.
    constexpr std::size_t kMost = 16 * 1024 * 1024;
    while (!bytes.empty()) {
        const auto count = static_cast<DWORD>(std::min(bytes.size(), kMost));
        const DWORD written = write(file, bytes.data(), count);
        if (written == 0) return false;
        bytes.remove_prefix(written);
    }
    return true;
}

bool sync(HANDLE file) { return !failsNow() && FlushFileBuffers(file) != 0; }

bool close(int descriptor)
{
    const bool fails = failsNow(); // a failed close gives the descriptor back all the same
    return _close(descriptor) == 0 && !fails;
}

bool rename(HANDLE file, const std::wstring& to, Existing existing)
{
    if (failsNow()) return false;
    const std::wstring full = native::textOf([&](wchar_t* buffer, DWORD size) {
        return GetFullPathNameW(to.c_str(), size, buffer, nullptr);
    });
    const std::size_t nameSize = full.size() * sizeof(wchar_t);
    // The name follows the record; its end mark is not counted.
    std::vector<std::byte> memory(sizeof(FILE_RENAME_INFO) + nameSize);
    auto* const information = reinterpret_cast<FILE_RENAME_INFO*>(memory.data());
    information->ReplaceIfExists = existing == Existing::replaced;
    information->FileNameLength = static_cast<DWORD>(nameSize);
    std::memcpy(information->FileName, full.data(), nameSize);
    return SetFileInformationByHandle(file, FileRenameInfo, information,
                                      static_cast<DWORD>(memory.size())) != 0;
}

bool remove(HANDLE file)
{
    if (failsNow()) return false;
    FILE_DISPOSITION_INFO information = {TRUE};
    return SetFileInformationByHandle(file, FileDispositionInfo, &information,
                                      sizeof information) != 0;
}

bool copyNew(const std::wstring& from, const std::wstring& to)
{
    constexpr BOOL kFailIfExists = TRUE;
    return !failsNow() && CopyFileW(from.c_str(), to.c_str(), kFailIfExists) != 0;
}

bool moveNew(const std::wstring& from, const std::wstring& to)
{
    return !failsNow() && MoveFileExW(from.c_str(), to.c_str(),
                                      MOVEFILE_COPY_ALLOWED | MOVEFILE_WRITE_THROUGH) != 0;
}

} // namespace calls
} // namespace kexos
