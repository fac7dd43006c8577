// SPDX-License-Identifier: LicenseRef-ORVALD
// Paths. Everything here and in the other headers of this folder takes and gives paths of the
// kernel, in the Windows form ("C:\work\plan.dwg", "\\server\share\x"), as UTF-8 in which a lone
// surrogate has the three bytes of its own value. "/" separates like "\".
//
// Where the system has no drives, a table maps drives and shares to folders: the variable
// KEX_DRIVES, as in "C=/;D=/data;\\srv\share=/mnt/x", "C=/" when it is not set. A path that begins
// with "/" is the system's already, "\" begins at the root of the first drive. A component that the
// folder does not hold as it is written means the first entry, by bytes, that is equal without
// regard to case. A byte of a name that is no part of UTF-8, or is a "\", reads as the lone
// surrogate U+DC00 + byte and is written back from it: so every file can be listed and opened.
#pragma once

#include "kex/export.h"

#include <string>
#include <string_view>

namespace kexos {

/// The system's path, in the bytes of its own calls or, where those take UTF-16, the same text; ""
/// when the drive or share does not exist. Case is left alone, and a relative path stays one.
KEX_BASE_API std::string nativePath(std::string_view kernelPath);
/// The kernel's form of a path of the system; the longest folder of the table that holds it names
/// the drive.
KEX_BASE_API std::string kernelPath(std::string_view nativePath);

/// From the drive or share on, "\" as separator, without "." and ".."; a relative path is taken
/// from the current folder. The file need not exist. "" for the empty path.
KEX_BASE_API std::string fullPath(std::string_view path);
/// A full path on a drive that stands for a share, with "\\server\share" in place of the drive;
/// any other path as it is.
KEX_BASE_API std::string networkPath(std::string_view path);
/// Letters of the drives that exist, "ACD", in that order.
KEX_BASE_API std::string drives();

/// The current folder of the process as a full path, without a separator at the end unless it is a
/// root ("C:\"). "" when the system cannot say.
KEX_BASE_API std::string currentFolder();
KEX_BASE_API bool setCurrentFolder(std::string_view path);

} // namespace kexos
