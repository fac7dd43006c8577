// SPDX-License-Identifier: LicenseRef-ORVALD
// Whole files: read, saved, copied, moved, removed. Paths as in kexos/paths.h.
#pragma once

#include "kex/export.h"

#include <string>
#include <string_view>

namespace kexos {

enum class ReadResult
{
    read,
    missing,
    failed
};

/// `bytes` is replaced only when the file could be read to its end. Fails while the file is held
/// exclusively.
KEX_BASE_API ReadResult readFile(const std::string& path, std::string& bytes);
/// Replaces the file as a whole: written to a temporary file beside it, flushed, renamed, folder
/// flushed. At every moment, also after a crash, the old file or the new one is there and complete.
/// False: the old one is there still, or the new one is and could not be made durable. The mode of
/// an old file is kept. A temporary file that a crash left behind is removed by the next save.
KEX_BASE_API bool saveFile(const std::string& path, std::string_view bytes);

/// Copies a file with its attributes and the time of its last change. False, and no target of ours
/// is left, when the target exists, the source is no file or in exclusive use, or the disk is full.
KEX_BASE_API bool copyFile(const std::string& source, const std::string& target);
/// Renames a file or folder, or moves it; a file also to another disk. False when the target
/// exists, unless it is the source in other spelling, and when the file is in use.
KEX_BASE_API bool moveFile(const std::string& source, const std::string& target);
/// False, and no change, for a folder, a read-only file and a file in use.
KEX_BASE_API bool removeFile(const std::string& path);

/// What happens to a file call that a test lets fail.
enum class FileFault
{
    error,
    shortWrite,
    kill
};
/// Of the calls that change files, the n-th from now on (1 is the next) fails once; 0: none.
/// `shortWrite` writes half and reports no error, `kill` ends the process. For tests.
KEX_BASE_API void failFileCall(int n, FileFault fault);
/// Calls that change files since failFileCall.
KEX_BASE_API int fileCalls();

} // namespace kexos
