// SPDX-License-Identifier: LicenseRef-ORVALD
#include "interrupt.h"

#include "session/session.h"

#include <csignal>
#include <pthread.h>

namespace orvald::cli {
namespace {

pthread_t runner;

extern "C" void onInterrupt(int signal)
{
    // Any thread may get it, but the one that waits for input must leave its system call.
    if (pthread_equal(pthread_self(), runner) == 0) {
        pthread_kill(runner, signal);
        return;
    }
    Session::interrupt();
    std::signal(SIGINT, SIG_DFL);
}

} // namespace

void armInterrupt()
{
    runner = pthread_self();
    struct sigaction action = {};
    action.sa_handler = onInterrupt;
    sigaction(SIGINT, &action, nullptr); // no SA_RESTART: a prompt that waits comes back
}

} // namespace orvald::cli
