// SPDX-License-Identifier: LicenseRef-ORVALD
// Commands that look at a drawing file and need no session.
#include "command_support.h"
#include "session/inspect.h"

namespace orvald::cli {
namespace {

/// The one file of a command, or the status that says why there is none.
int onlyFile(const Options& options)
{
    if (options.words.size() != 1) {
        say("orvald " + options.command + " needs one drawing: orvald " + options.command +
            " FILE.dxf [--json]");
        return kUsage;
    }
    if (isFile(options.words.front())) return kWell;
    say(options.words.front() + ": no such file");
    return kFileMissing;
}

} // namespace

int info(const Options& options, Watchdog&)
{
    if (const int status = onlyFile(options); status != kWell) return status;
    std::string text, problem;
    if (!describeDrawing(options.words.front(), options.json, text, problem)) {
        say(problem);
        return kNoDrawing;
    }
    write(text);
    return kWell;
}

int check(const Options& options, Watchdog&)
{
    if (const int status = onlyFile(options); status != kWell) return status;
    std::string problem;
    const Verdict verdict = checkDrawing(options.words.front(), options.json, write, problem);
    if (verdict == Verdict::unreadable) say(problem);
    return verdict == Verdict::good ? kWell : kNoDrawing;
}

} // namespace orvald::cli
