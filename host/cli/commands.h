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
int repl(const Options& options, Watchdog& watchdog);

} // namespace orvald::cli
