// SPDX-License-Identifier: LicenseRef-ORVALD
// The command line of orvald, read into one value.
#pragma once

#include "session/session.h"
#include "watchdog.h"

#include <optional>
#include <string>
#include <vector>

namespace orvald::cli {

/// Exit status; scripts rely on these numbers.
enum Exit : int
{
    kWell = 0,
    kNoDrawing = 2,   // the drawing could not be loaded
    kLispError = 3,   // a LISP error reached the top
    kNoOutput = 4,    // output not written, or not readable again
    kNoInput = 5,     // a prompt found no input
    kModuleFault = 6, // a fault in a module
    kUsage = 64,
    kFileMissing = 66,
    kInternal = 70,
    kTimeLimit = 124, // as of timeout(1)
    kInterrupted = 130,
    kMemoryLimit = 137 // as of a program that the system ends for its memory
};

struct Options
{
    SessionOptions session;
    Limits limits{0.0, defaultMemoryLimit()};
    std::string command;              // "run"
    std::vector<std::string> words;   // what follows it and is no option
    std::vector<std::string> program; // run: words behind "--"
    std::string drawing, save, picture, answers, fromText;
    std::vector<std::string> expressions; // -e
    PictureOptions look;                  // of draw and --picture
    bool time = false, json = false, overlay = false;
    bool help = false, version = false;
};

/// The options; nothing, with one line in `problem`, when the command line makes no sense.
std::optional<Options> readOptions(const std::vector<std::string>& arguments, std::string& problem);

} // namespace orvald::cli
