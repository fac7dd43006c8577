// SPDX-License-Identifier: LicenseRef-ORVALD
// The calls that change files, each of them a place where a test can let one fail.
#pragma once

#include <string>
#include <string_view>
#include <sys/types.h>

namespace kexos::calls {

/// A new file that only this process has open for its own; -1 with errno set when it exists or
/// cannot be made.
int create(const std::string& path, mode_t mode);
/// Bytes written, -1 with errno set.
ssize_t write(int descriptor, const char* bytes, std::size_t count);
/// All bytes; false with errno set.
bool writeAll(int descriptor, std::string_view bytes);
int sync(int descriptor);
int setMode(int descriptor, mode_t mode);
int close(int descriptor);
int rename(const std::string& from, const std::string& to);
/// Fails with EEXIST when something is named `to`.
int renameNew(const std::string& from, const std::string& to);
int remove(const std::string& path);

} // namespace kexos::calls
