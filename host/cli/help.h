// SPDX-License-Identifier: LicenseRef-ORVALD
// What --help prints.
#pragma once

#include <string>
#include <string_view>

namespace orvald::cli {

/// All commands, or the one of that name with what is common to all; empty for an unknown name.
std::string helpText(std::string_view command = {});

} // namespace orvald::cli
