// SPDX-License-Identifier: LicenseRef-ORVALD
// An opening that shares the file with nobody: the system keeps all others out.
#include "kexos/exclusive_file.h"

#include "file_calls.h"
#include "native.h"

#include <fcntl.h>
#include <io.h>

namespace kexos {
namespace {

OpenResult resultOf(DWORD error)
{
    switch (error) {
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS: return OpenResult::exists;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION: return OpenResult::inUse;
    default: return OpenResult::failed;
    }
}

HANDLE openAs(const std::wstring& path, OpenMode mode)
{
    const auto open = [&](DWORD access, DWORD creation) {
        return CreateFileW(path.c_str(), access, 0, nullptr, creation, FILE_ATTRIBUTE_NORMAL,
                           nullptr);
    };
    switch (mode) {
    case OpenMode::read: return open(GENERIC_READ, OPEN_EXISTING);
    case OpenMode::change: return open(GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING);
    case OpenMode::create: return calls::create(path, FILE_ATTRIBUTE_NORMAL);
    // The right to write of this opening stays.
    case OpenMode::createBarred: return calls::create(path, FILE_ATTRIBUTE_READONLY);
    case OpenMode::replace: return open(GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS);
    }
    return INVALID_HANDLE_VALUE;
}

} // namespace

OpenResult ExclusiveFile::open(const std::string& path, OpenMode mode)
{
    close();
    native::Handle file(openAs(native::callPath(path), mode));
    if (!file.isOpen()) return resultOf(GetLastError());
    if (GetFileType(file.get()) != FILE_TYPE_DISK) return OpenResult::failed; // "NUL"
    // Emptied only now: an opening that empties would refuse a hidden file.
    if (mode == OpenMode::replace && !SetEndOfFile(file.get())) return OpenResult::failed;
    const int access = mode == OpenMode::read ? _O_RDONLY : _O_RDWR;
    descriptor_ =
        _open_osfhandle(reinterpret_cast<intptr_t>(file.get()), access | _O_BINARY | _O_NOINHERIT);
    if (descriptor_ < 0) return OpenResult::failed;
    file.release();
    return OpenResult::opened;
}

bool ExclusiveFile::write(std::string_view bytes)
{
    return calls::writeAll(reinterpret_cast<HANDLE>(_get_osfhandle(descriptor_)), bytes);
}

bool ExclusiveFile::close()
{
    return descriptor_ < 0 || calls::close(std::exchange(descriptor_, -1));
}

} // namespace kexos
