// SPDX-License-Identifier: LicenseRef-ORVALD
// Who has a file open. Programs of this system tell each other by flock: shared at every opening,
// exclusive while a file is held. Of a foreign program's opening the system tells by refusing a
// lease; only to the file's owner, and not on network file systems. Nothing here keeps a foreign
// program out.
#pragma once

#include <string>

namespace kexos::use {

/// Marks an open file as read until it is closed; false while another opening holds it exclusively.
bool share(int descriptor);
/// Holds an open file exclusively until it is closed; false while anybody else has it open.
bool hold(int descriptor);
/// Anybody has this file open. Paths are the system's; what is no file, or may not be opened, is
/// not known to be in use.
bool isInUse(const std::string& path);

} // namespace kexos::use
