// SPDX-License-Identifier: LicenseRef-ORVALD
// A call from LISP into the kernel against what it cannot avoid: every call owes two clock reads
// for the function's totals, so the yardstick is a pair of steady_clock reads in the same run.
// The loop's own cost is taken off. Nanoseconds a call, median of many rounds that take turns.
#include "bench_session.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kRounds = 41;
constexpr int kCalls = 200000;

struct Case
{
    const char* name;
    const char* expression; // evaluated kCalls times
    const char* empty;      // the same loop's body without the call
};

double nanosecondsPer(Clock::time_point start, int count)
{
    const std::chrono::duration<double, std::nano> taken = Clock::now() - start;
    return taken.count() / count;
}

double pairOfReads()
{
    Clock::duration sum{};
    const Clock::time_point start = Clock::now();
    for (int i = 0; i < kCalls; ++i) {
        const Clock::time_point before = Clock::now();
        sum += Clock::now() - before;
    }
    const double result = nanosecondsPer(start, kCalls);
    if (sum.count() < 0) std::abort(); // keeps the reads
    return result;
}

double loopOf(orvald::Session& session, const char* function)
{
    const Clock::time_point start = Clock::now();
    const orvald::Evaluation result = session.eval(function);
    const double taken = nanosecondsPer(start, kCalls);
    if (!result.ok) {
        std::fprintf(stderr, "call_bench: %s: %s\n", function, result.error.c_str());
        std::exit(1);
    }
    return taken;
}

void define(orvald::Session& session, const std::string& name, const char* body)
{
    session.eval("(defun " + name + " ( / s) (setq s \"Abwicklung\") (repeat " +
                 std::to_string(kCalls) + " " + body + "))");
}

int measure()
{
    kexbench::Running running("call_bench");
    orvald::Session& session = running.session;
    std::array cases = {
        Case{"(kex_str_len s)", "(kex_str_len s)", "s"},
        Case{"(kex_g_bulg_ang 0.5)", "(kex_g_bulg_ang 0.5)", "0.5"},
        Case{"(strlen s), the evaluator's own", "(strlen s)", "s"},
    };
    for (std::size_t i = 0; i < cases.size(); ++i) {
        define(session, "call" + std::to_string(i), cases[i].expression);
        define(session, "bare" + std::to_string(i), cases[i].empty);
    }
    std::vector<double> pairs;
    std::array<std::vector<double>, cases.size()> calls;
    for (int round = 0; round < kRounds; ++round) {
        pairs.push_back(pairOfReads());
        for (std::size_t i = 0; i < cases.size(); ++i) {
            const std::string number = std::to_string(i);
            const double bare = loopOf(session, ("(bare" + number + ")").c_str());
            calls[i].push_back(loopOf(session, ("(call" + number + ")").c_str()) - bare);
        }
    }
    const double pair = kexbench::median(pairs);
    std::printf("%-34s %7.1f ns\n", "pair of clock reads", pair);
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const double call = kexbench::median(calls[i]);
        std::printf("%-34s %7.1f ns %6.2f x\n", cases[i].name, call, call / pair);
    }
    return 0;
}

} // namespace

int main() { return orvald::runOnLispThread(measure); }
