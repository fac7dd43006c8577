// SPDX-License-Identifier: LicenseRef-ORVALD
// The calls that change files, each of them a place where a test can let one fail. A call that
// fails leaves the system's error.
#pragma once

#include "windows_api.h"

#include <string>
#include <string_view>

namespace kexos::calls {

/// A new file that nobody else can open while it is open; INVALID_HANDLE_VALUE when it exists or
/// cannot be made.
HANDLE create(const std::wstring& path, DWORD attributes);
/// Writes all bytes at the present position.
bool writeAll(HANDLE file, std::string_view bytes);
/// Back when what was written, and the file's name, are on the disk.
bool sync(HANDLE file);
/// A descriptor of the C run-time, with its handle.
bool close(int descriptor);
enum class Existing
{
    replaced,
    kept // then the call fails
};
/// Gives an open file another name on the same disk, in one step. The handle needs the right to
/// delete.
bool rename(HANDLE file, const std::wstring& to, Existing existing);
/// Removes an open file as soon as it is closed. The handle needs the right to delete.
bool remove(HANDLE file);
/// Fail when something is named `to`.
bool copyNew(const std::wstring& from, const std::wstring& to);
bool moveNew(const std::wstring& from, const std::wstring& to);

} // namespace kexos::calls
