// SPDX-License-Identifier: LicenseRef-ORVALD
// Signal actions behind the fence. A fault outside of any fence gets the system's default end.
#include "fault_fence.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <pthread.h>

namespace orvald {
namespace {

constexpr std::array kSignals = {SIGSEGV, SIGBUS, SIGFPE, SIGILL};
// Enough for the handler and for a module's own handler that throws from it.
constexpr std::size_t kSignalStack = 128 * 1024;

struct Installed
{
    std::array<struct sigaction, kSignals.size()> previous;
    stack_t previousStack;
    pthread_t thread;
};
Installed installed;

} // namespace

FaultFence::Frame* volatile FaultFence::top_ = nullptr;

void FaultFence::onSignal(int signal, void*, void*)
{
    Frame* frame = top_;
    if (frame != nullptr && pthread_equal(pthread_self(), installed.thread) != 0) {
        siglongjmp(frame->buffer, signal);
    }
    struct sigaction byDefault = {};
    byDefault.sa_handler = SIG_DFL;
    sigaction(signal, &byDefault, nullptr);
    // Returning runs the faulting instruction again, now with the system's own end.
}

FaultFence::FaultFence()
{
    installed.thread = pthread_self();
    stack_ = std::malloc(kSignalStack);
    stack_t stack = {};
    stack.ss_sp = stack_;
    stack.ss_size = kSignalStack;
    sigaltstack(&stack, &installed.previousStack);
    struct sigaction action = {};
    action.sa_sigaction = [](int signal, siginfo_t* info, void* context) {
        onSignal(signal, info, context);
    };
    // SA_NODEFER: the jump leaves the handler, so the signal must not stay blocked.
    action.sa_flags = SA_SIGINFO | SA_ONSTACK | SA_NODEFER;
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
        sigaction(kSignals[i], &action, &installed.previous[i]);
    }
}

FaultFence::~FaultFence()
{
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
        sigaction(kSignals[i], &installed.previous[i], nullptr);
    }
    sigaltstack(&installed.previousStack, nullptr);
    std::free(stack_);
}

std::string FaultFence::describe(int signal)
{
    switch (signal) {
    case SIGSEGV: return "invalid memory access";
    case SIGBUS: return "bus error";
    case SIGFPE: return "arithmetic fault";
    case SIGILL: return "illegal instruction";
    default: return "signal " + std::to_string(signal);
    }
}

} // namespace orvald
