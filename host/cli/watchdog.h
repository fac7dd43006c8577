// SPDX-License-Identifier: LicenseRef-ORVALD
// Ends a program that takes too long or too much memory: first the evaluator is asked to, which
// unwinds the program; where that does not come to pass, because a function does not come back, the
// process is ended with the LISP calls in progress on stderr.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <pthread.h>
#include <string>
#include <thread>

namespace orvald::cli {

struct Limits
{
    double seconds = 0.0;   // 0: none
    std::size_t memory = 0; // bytes of the whole process, those of the libraries included
};

/// Half of the memory of the machine, or of the control group that the process is in.
std::size_t defaultMemoryLimit();

class Watchdog
{
public:
    /// Watches the calling thread from now on. One at a time.
    explicit Watchdog(Limits limits);
    ~Watchdog();
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

    /// The time begins anew; a stop is taken back.
    void restart();
    /// Nothing runs until the next restart; a stop is taken back.
    void rest();

    /// The exit status for the limit that was passed since the last restart, 0 when none was.
    int status();
    /// "time limit of 5 s passed".
    std::string reason();

private:
    using Clock = std::chrono::steady_clock;
    void watch();
    void look(Clock::time_point now);
    [[noreturn]] void endProcess();
    std::string reasonFor(int status) const;

    const Limits limits_;
    const pthread_t watched_;
    std::mutex mutex_;
    std::condition_variable changed_;
    bool ended_ = false, resting_ = false;
    Clock::time_point start_;
    Clock::time_point stopped_; // when the limit was passed; means nothing while status_ is 0
    int status_ = 0;
    std::thread thread_; // last: uses all of the above
};

} // namespace orvald::cli
