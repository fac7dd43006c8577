// SPDX-License-Identifier: LicenseRef-ORVALD
// The commands of orvald. Each gives the exit status.
#pragma once

#include "options.h"

namespace orvald::cli {

int run(const Options& options, Watchdog& watchdog);
int eval(const Options& options, Watchdog& watchdog);
int draw(const Options& options, Watchdog& watchdog);
int data(const Options& options, Watchdog& watchdog);
int info(const Options& options, Watchdog& watchdog);
int check(const Options& options, Watchdog& watchdog);
int functions(const Options& options, Watchdog& watchdog);

/// One line on stderr.
void say(const std::string& line);
/// Text on stdout.
void write(std::string_view text);
/// There is something at the path that is no folder.
bool isFile(const std::string& path);

} // namespace orvald::cli
