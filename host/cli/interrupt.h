// SPDX-License-Identifier: LicenseRef-ORVALD
// Ctrl-C: the first one asks the running program to stop, the second one ends the process.
#pragma once

namespace orvald::cli {

/// For the program that the calling thread runs next.
void armInterrupt();

} // namespace orvald::cli
