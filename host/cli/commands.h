// SPDX-License-Identifier: LicenseRef-ORVALD
// The commands of orvald. Each gives the exit status.
#pragma once

#include "options.h"

namespace orvald::cli {

int run(const Options& options);
int eval(const Options& options);
int draw(const Options& options);
int data(const Options& options);
int info(const Options& options);
int check(const Options& options);
int functions(const Options& options);

/// One line on stderr.
void say(const std::string& line);
/// Text on stdout.
void write(std::string_view text);
/// There is something at the path that is no folder.
bool isFile(const std::string& path);

} // namespace orvald::cli
