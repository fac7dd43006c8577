// SPDX-License-Identifier: LicenseRef-ORVALD
// What commands with a session share: from their options to the session, from an evaluation to the
// exit status.
#pragma once

#include "commands.h"

#include <memory>

namespace orvald::cli {

/// One line on stderr.
void say(const std::string& line);
/// Text on stdout.
void write(std::string_view text);
/// There is something at the path that is no folder.
bool isFile(const std::string& path);
/// All are files; else the first that is none is told.
bool areFiles(const std::vector<std::string>& programs);

/// The programs among the words; what follows them is for (argv).
std::vector<std::string> takePrograms(const Options& options, std::vector<std::string>& arguments);
/// Reads --answers, where given; false, and told, when that fails.
bool takeAnswers(const Options& options, SessionOptions& with);

/// A session with its drawing; the status in `status` when it cannot start.
std::unique_ptr<Session> start(const Options& options, const SessionOptions& with, int& status);

/// The calls that led to an error, a line each, innermost first.
std::vector<std::string> callLines(const Evaluation& evaluation);
void sayCalls(const Evaluation& evaluation);
/// The exit status behind an error, and its message with the calls that led to it.
int report(const Session& session, const Evaluation& evaluation, Watchdog& watchdog);

/// Draws the current drawing; what the picture lacks is said, not an error.
int writePicture(const std::string& path, const Options& options, Session& session);
/// Writes what was asked for after a good run.
int writeResults(const Options& options, Session& session);

} // namespace orvald::cli
