// SPDX-License-Identifier: LicenseRef-ORVALD
// Environment, well-known folders and the process. Texts are UTF-8, paths as in kexos/paths.h,
// folders without a separator at the end.
#pragma once

#include "kex/export.h"

#include <optional>
#include <string>

namespace kexos {

/// Nothing when the variable is not set.
KEX_BASE_API std::optional<std::string> environment(const std::string& name);
/// For this process and those that it starts. False for an impossible name.
KEX_BASE_API bool setEnvironment(const std::string& name, const std::string& value);
/// Folder of the user's settings: KEX_HOME, else XDG_CONFIG_HOME/orvald, else HOME/.config/orvald;
/// under Windows KEX_HOME, else the folder orvald in the user's application data. It need not exist.
KEX_BASE_API std::string homeFolder();
/// TMP, else TEMP, else the system's folder for temporary files.
KEX_BASE_API std::string tempFolder();
KEX_BASE_API int processId();

} // namespace kexos
