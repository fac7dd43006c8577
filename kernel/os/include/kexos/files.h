// SPDX-License-Identifier: LicenseRef-ORVALD
// Whole files. Paths are the system's own, in UTF-8.
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

/// `bytes` is replaced only when the file could be read to its end.
KEX_BASE_API ReadResult readFile(const std::string& path, std::string& bytes);
/// Replaces the file as a whole: written to a temporary file beside it, flushed, renamed, folder
/// flushed. At every moment, also after a crash, the old file or the new one is there and complete.
/// False: the old one is there still, or the new one is and could not be made durable. The mode of
/// an old file is kept. A temporary file that a crash left behind is removed by the next save.
KEX_BASE_API bool saveFile(const std::string& path, std::string_view bytes);

KEX_BASE_API bool fileExists(const std::string& path);
/// Lets the owner write; true also when the file does not exist.
KEX_BASE_API bool makeWritable(const std::string& path);
/// Makes a folder with all folders above it; true when it exists afterwards.
KEX_BASE_API bool makeFolders(const std::string& path);

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
