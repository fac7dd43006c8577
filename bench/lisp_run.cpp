// SPDX-License-Identifier: LicenseRef-ORVALD
// Runs AutoLISP files in the host with a new drawing, without modules or user: lisp_run FILE ...
#include "document.h"
#include "host.h"

#include <chrono>
#include <cstdio>

namespace {

using namespace orvald::lisp;

// (seconds): a clock that only goes forward
Value seconds(World&, Args)
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return Value::real(std::chrono::duration<double>(now).count());
}

constexpr Builtin kTable[] = {{"seconds", seconds, 0, 0}};

int report(const LispError& error)
{
    std::fputs(("; error: " + toUtf8(error.message) + "\n").c_str(), stderr);
    for (const CallPlace& place : error.calls) {
        const std::string where = place.file + ":" + std::to_string(place.line) + ": ";
        std::fputs(("  " + where + toUtf8(place.call) + "\n").c_str(), stderr);
    }
    return 3;
}

} // namespace

int main(int count, char** arguments)
{
    orvald::Host host;
    World& world = host.newDocument().world();
    world.define(kTable);
    for (int i = 1; i < count; ++i) {
        const Outcome outcome = world.loadFile(arguments[i]);
        if (!outcome.ok()) return report(*outcome.error);
    }
    return 0;
}
