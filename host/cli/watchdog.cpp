// SPDX-License-Identifier: LicenseRef-ORVALD
#include "watchdog.h"

#include "options.h"

#include <algorithm>
#include <atomic>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <fstream>
#include <unistd.h>

namespace orvald::cli {
namespace {

using namespace std::chrono_literals;

constexpr auto kTick = 20ms;
// How long a stopped program may take to unwind.
constexpr auto kGrace = 2s;
constexpr auto kReportTime = 500ms;

// Wakes the watched thread out of a system call; with `reportWanted` it tells its LISP calls.
constexpr int kSignal = SIGUSR1;
std::atomic<bool> reportWanted = false, reported = false;
static_assert(std::atomic<bool>::is_always_lock_free);
std::atomic<int> statusOfEnd = 0;

void writeError(std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = ::write(STDERR_FILENO, bytes.data(), bytes.size());
        if (count <= 0) return;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

extern "C" void onSignal(int)
{
    if (!reportWanted || reported) return;
    static char text[16384];
    writeError({text, Session::describeCalls(text, sizeof text)});
    reported = true;
}

extern "C" void onFaultInReport(int) { _exit(statusOfEnd); }

void setAction(int signal, void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    sigaction(signal, &action, nullptr); // no SA_RESTART: it is to interrupt
}

/// Bytes of memory that the process has in use. Takes none itself: there may be none left.
std::size_t memoryInUse()
{
    const int file = ::open("/proc/self/statm", O_RDONLY | O_CLOEXEC);
    if (file < 0) return 0;
    char text[128];
    const ssize_t count = ::read(file, text, sizeof text);
    ::close(file);
    const char* const end = text + std::max<ssize_t>(count, 0);
    const char* resident = std::find<const char*>(text, end, ' '); // the second number, in pages
    std::size_t pages = 0;
    if (resident != end) std::from_chars(resident + 1, end, pages);
    return pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

} // namespace

std::size_t defaultMemoryLimit()
{
    std::size_t memory = static_cast<std::size_t>(sysconf(_SC_PHYS_PAGES)) *
                         static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    std::size_t group = 0;
    if (std::ifstream("/sys/fs/cgroup/memory.max") >> group) memory = std::min(memory, group);
    return memory / 2;
}

Watchdog::Watchdog(Limits limits) : limits_(limits), watched_(pthread_self()), start_(Clock::now())
{
    setAction(kSignal, onSignal);
    // Signals are for the other threads.
    sigset_t all, before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    thread_ = std::thread([this] { watch(); });
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

Watchdog::~Watchdog()
{
    {
        const std::lock_guard lock(mutex_);
        ended_ = true;
    }
    changed_.notify_all();
    thread_.join();
}

void Watchdog::restart()
{
    const std::lock_guard lock(mutex_);
    start_ = Clock::now();
    status_ = 0;
    resting_ = false;
    Session::setStop(false);
}

void Watchdog::rest()
{
    const std::lock_guard lock(mutex_);
    resting_ = true;
    Session::setStop(false);
}

int Watchdog::status()
{
    const std::lock_guard lock(mutex_);
    return status_;
}

std::string Watchdog::reason() { return reasonFor(status()); }

std::string Watchdog::reasonFor(int status) const
{
    if (status == kMemoryLimit) {
        return "memory limit of " + std::to_string(limits_.memory >> 20) + " MB passed";
    }
    char digits[32];
    const auto end = std::to_chars(digits, std::end(digits), limits_.seconds);
    return "time limit of " + std::string(digits, end.ptr) + " s passed";
}

void Watchdog::watch()
{
    std::unique_lock lock(mutex_);
    while (!ended_) {
        changed_.wait_for(lock, kTick);
        if (!ended_ && !resting_) look(Clock::now());
    }
}

void Watchdog::look(Clock::time_point now)
{
    if (status_ == 0) {
        const std::chrono::duration<double> taken = now - start_;
        if (limits_.seconds > 0.0 && taken.count() > limits_.seconds) status_ = kTimeLimit;
        else if (limits_.memory > 0 && memoryInUse() > limits_.memory) status_ = kMemoryLimit;
        else return;
        stopped_ = now;
        Session::setStop(true);
    }
    if (now - stopped_ > kGrace) endProcess();
    pthread_kill(watched_, kSignal); // again and again: it may just be about to wait for input
}

void Watchdog::endProcess()
{
    // The program may hold the lock of stdout for ever.
    if (ftrylockfile(stdout) == 0) std::fflush(stdout);
    writeError("stopped: " + reasonFor(status_) + ", and the program does not come back\n");
    statusOfEnd = status_;
    for (const int fault : {SIGSEGV, SIGBUS}) setAction(fault, onFaultInReport);
    reportWanted = true;
    pthread_kill(watched_, kSignal);
    const auto end = Clock::now() + kReportTime;
    while (!reported && Clock::now() < end) std::this_thread::sleep_for(1ms);
    _exit(status_);
}

} // namespace orvald::cli
