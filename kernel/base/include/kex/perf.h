// SPDX-License-Identifier: LicenseRef-ORVALD
// Time of LISP calls: a timer, and totals by function code. LISP thread only.
#pragma once

#include "hostapi/types.h"
#include "kex/export.h"

#include <chrono>

namespace KEX {

/// Runs from its making to the first stop(), on a clock that never goes back.
class CTimer
{
public:
    using Clock = std::chrono::steady_clock;

    /// The label is borrowed.
    explicit CTimer(const ACHAR* label = nullptr) : label_(label), start_(Clock::now()) {}
    /// Seconds since the timer was made; later calls give the same figure.
    double stop()
    {
        if (seconds_ < 0.0) seconds_ = std::chrono::duration<double>(Clock::now() - start_).count();
        return seconds_;
    }
    const ACHAR* label() const { return label_; }

private:
    const ACHAR* label_;
    Clock::time_point start_;
    double seconds_ = -1.0; // below 0 while it runs
};

/// Totals of one function that has been called.
struct PerfEntry
{
    const ACHAR* name;
    long calls;
    double seconds;
};

/// Function codes go from 0 up to, not including, this; others are not counted.
inline constexpr int kPerfCodes = 4096;

/// Adds one call. The name is borrowed until perfReset. Constant time, no search.
KEX_BASE_API void addPerfTime(int code, const ACHAR* name, double seconds);
/// The index-th of the called functions in the order of their codes, from 0; null behind the last.
/// Walking through all of them by rising index costs one pass over the codes.
KEX_BASE_API const PerfEntry* perfEntryAtIndex(int index);
KEX_BASE_API void perfReset();

} // namespace KEX
