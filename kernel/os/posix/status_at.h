// SPDX-License-Identifier: LicenseRef-ORVALD
// The status of a file below an open folder.
#pragma once

#include "kexos/file_status.h"

#include <string_view>

namespace kexos {

/// `folder` may be AT_FDCWD. False when there is no such file, or a link leads nowhere.
bool statusAt(int folder, const char* name, FileStatus& result);
/// The attributes that follow from the name and the kind.
std::uint32_t kindAttributes(std::string_view name, bool isFolder, bool isLink);

} // namespace kexos
