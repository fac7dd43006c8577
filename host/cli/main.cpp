// SPDX-License-Identifier: LicenseRef-ORVALD
// orvald: the command line of the headless host.
#include "command_support.h"
#include "help.h"
#include "interrupt.h"

#include <csignal>
#include <cstdio>
#include <exception>

namespace {

using namespace orvald;
using namespace orvald::cli;

struct Command
{
    std::string_view name;
    int (*run)(const Options&, Watchdog&);
};
constexpr Command kCommands[] = {
    {"run", cli::run},   {"repl", cli::repl},   {"eval", cli::eval}, {"draw", cli::draw},
    {"info", cli::info}, {"check", cli::check}, {"data", cli::data}, {"functions", cli::functions}};

int start(const std::vector<std::string>& arguments)
{
    std::string problem;
    const std::optional<Options> options = readOptions(arguments, problem);
    if (!options) {
        say("orvald: " + problem + " (orvald --help tells what there is)");
        return kUsage;
    }
    if (options->version) {
        std::puts("orvald " ORVALD_VERSION);
        return kWell;
    }
    if (options->help || options->command.empty()) {
        std::string text = helpText(options->command);
        if (text.empty()) text = helpText();
        std::fwrite(text.data(), 1, text.size(), options->help ? stdout : stderr);
        return options->help ? kWell : kUsage;
    }
    armInterrupt();
    Watchdog watchdog(options->limits);
    for (const Command& command : kCommands) {
        if (command.name == options->command) return command.run(*options, watchdog);
    }
    say("orvald: no command " + options->command + " (orvald --help tells what there is)");
    return kUsage;
}

} // namespace

int main(int argc, char** argv)
{
    std::signal(SIGPIPE, SIG_IGN); // a closed reader shows as a failed write
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    int status = kInternal;
    try {
        status = orvald::runOnLispThread([&] { return start(arguments); });
    } catch (const std::exception& exception) {
        say(std::string("orvald: internal error: ") + exception.what());
    }
    if (std::fflush(stdout) != 0 && status == kWell) status = kNoOutput;
    return status;
}
