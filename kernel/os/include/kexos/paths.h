// SPDX-License-Identifier: LicenseRef-ORVALD
// Paths of the kernel and paths of the system. The kernel and its LISP programs write paths in the
// Windows form ("C:\work\plan.dwg", "\\server\share\x"). Here a table maps drives and shares to
// folders: the variable KEX_DRIVES, as in "C=/;D=/data;\\srv\share=/mnt/x", "C=/" when it is not
// set. Both "\" and "/" separate, so a file of this system whose name holds a "\" cannot be
// reached.
#pragma once

#include "kex/export.h"

#include <string>
#include <string_view>

namespace kexos {

/// The system's path; "" when the drive or share is not in the table. A path that begins with "/"
/// is the system's already, "\" begins at the root of the first drive, and a relative path stays
/// one.
KEX_BASE_API std::string nativePath(std::string_view kernelPath);
/// The kernel's form of a path of the system; the longest folder of the table that holds it names
/// the drive.
KEX_BASE_API std::string kernelPath(std::string_view nativePath);

} // namespace kexos
