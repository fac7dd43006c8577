// SPDX-License-Identifier: LicenseRef-ORVALD
// Reading and saving whole files. While a save writes its temporary file nobody else can open that,
// and it is renamed while it is open: a temporary file that can be opened was left by a process
// that ended, and may be removed.
#include "kexos/files.h"

#include "file_calls.h"
#include "native.h"
#include "status_of.h"

namespace kexos {
namespace {

constexpr std::size_t kReadBlock = 64 * 1024;
/// Saves of one file that may run at once.
constexpr int kTemporaries = 100;

/// Opens a file, or a link itself, that nobody else has open, to rename or remove it.
HANDLE openAlone(const std::wstring& path)
{
    return CreateFileW(path.c_str(), DELETE | SYNCHRONIZE, 0, nullptr, OPEN_EXISTING,
                       FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
}

/// Where the file really lies when the path ends in a link.
std::wstring resolved(const std::wstring& path, DWORD attributes)
{
    if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return path;
    const native::Handle file(CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr,
                                          OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!file.isOpen()) return path;
    const std::wstring real = native::textOf([&](wchar_t* buffer, DWORD size) {
        return GetFinalPathNameByHandleW(file.get(), buffer, size, FILE_NAME_NORMALIZED);
    });
    return real.empty() ? path : real;
}

/// Removes a temporary file that nobody is writing any more.
void removeLeftover(const std::wstring& path)
{
    const native::Handle file(openAlone(path));
    if (file.isOpen()) calls::remove(file.get());
}

/// Makes a temporary file beside `target`; INVALID_HANDLE_VALUE when that fails.
HANDLE makeTemporary(const std::wstring& target, DWORD attributes)
{
    for (int i = 1; i <= kTemporaries; ++i) {
        const std::wstring path = native::longPath(target + L".~" + std::to_wstring(i));
        removeLeftover(path);
        const HANDLE file = calls::create(path, attributes);
        const bool taken =
            file == INVALID_HANDLE_VALUE &&
            (GetLastError() == ERROR_FILE_EXISTS || GetLastError() == ERROR_SHARING_VIOLATION);
        if (!taken) return file;
    }
    return INVALID_HANDLE_VALUE;
}

} // namespace

ReadResult readFile(const std::string& path, std::string& bytes)
{
    const native::Handle file(CreateFileW(native::callPath(path).c_str(), GENERIC_READ, kShareAll,
                                          nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN,
                                          nullptr));
    if (!file.isOpen()) {
        const DWORD error = GetLastError();
        const bool missing = error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
        return missing ? ReadResult::missing : ReadResult::failed;
    }
    std::string content;
    for (DWORD count = 1; count != 0;) {
        const std::size_t before = content.size();
        content.resize(before + kReadBlock);
        if (!ReadFile(file.get(), content.data() + before, kReadBlock, &count, nullptr)) {
            return ReadResult::failed;
        }
        content.resize(before + count);
    }
    bytes = std::move(content);
    return ReadResult::read;
}

bool saveFile(const std::string& path, std::string_view bytes)
{
    const std::wstring named = native::callPath(path);
    if (named.empty()) return false;
    const DWORD old = GetFileAttributesW(named.c_str());
    const bool exists = old != INVALID_FILE_ATTRIBUTES;
    constexpr DWORD kKept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    const std::wstring target = exists ? resolved(named, old) : named;
    const native::Handle file(
        makeTemporary(target, FILE_ATTRIBUTE_ARCHIVE | (exists ? old & kKept : 0)));
    if (!file.isOpen()) return false;
    const bool good = calls::writeAll(file.get(), bytes) && calls::sync(file.get()) &&
                      calls::rename(file.get(), target, calls::Existing::replaced);
    if (!good) {
        calls::remove(file.get());
        return false;
    }
    return calls::sync(file.get()); // the new name
}

bool copyFile(const std::string& source, const std::string& target)
{
    return calls::copyNew(native::callPath(source), native::callPath(target));
}

bool moveFile(const std::string& source, const std::string& target)
{
    const std::wstring from = native::callPath(source), to = native::callPath(target);
    const DWORD attributes = GetFileAttributesW(from.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || to.empty()) return false;
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return calls::moveNew(from, to);
    {
        const native::Handle file(openAlone(from));
        if (!file.isOpen()) return false;
        if (calls::rename(file.get(), to, calls::Existing::kept)) return true;
        if (GetLastError() != ERROR_NOT_SAME_DEVICE) return false;
    }
    return calls::moveNew(from, to);
}

bool removeFile(const std::string& path)
{
    const native::Handle file(openAlone(native::callPath(path)));
    return file.isOpen() && calls::remove(file.get());
}

} // namespace kexos
