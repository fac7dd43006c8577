// SPDX-License-Identifier: LicenseRef-ORVALD
// The system's clock, its local time, and pauses. Seconds count from 1970-01-01 00:00 UTC, without
// leap seconds.
#pragma once

#include "kex/export.h"

#include <cstdint>

namespace kexos {

/// A moment on the clock and the calendar of some place: the month from 1 to 12, the day from 1.
struct ClockTime
{
    int year = 1970, month = 1, day = 1;
    int hour = 0, minute = 0, second = 0;
};

KEX_BASE_API std::int64_t currentTime();
/// Local time of a moment, by the time zone that holds now (TZ, else the system's); false for a
/// moment whose year the system cannot tell.
KEX_BASE_API bool localTime(std::int64_t seconds, ClockTime& local);
/// The moment of a local time; false when the system cannot tell. Of a time that the change to
/// winter gives twice, either; a time that the change to summer leaves out is moved by the change.
KEX_BASE_API bool momentOf(const ClockTime& local, std::int64_t& seconds);

/// Does nothing when `milliseconds` is not positive.
KEX_BASE_API void sleepFor(int milliseconds);

} // namespace kexos
