// SPDX-License-Identifier: LicenseRef-ORVALD
// The time of day, the user's time zone, and pauses. Seconds count from 1970-01-01 00:00 UTC.
#pragma once

#include "kex/export.h"

#include <cstdint>

namespace kexos {

/// A moment as a calendar and a clock on the wall show it.
struct WallTime
{
    int year = 1970;
    int month = 1; // 1 to 12
    int day = 1;   // 1 to 31
    int hour = 0;
    int minute = 0;
    int second = 0;
    int weekday = 4; // 0 is Sunday
};

KEX_BASE_API std::int64_t clockSeconds();
/// In the user's time zone, with the rules of that date. A moment beyond the calendar of the system
/// gives 1970-01-01 00:00.
KEX_BASE_API WallTime wallTime(std::int64_t seconds);
/// The moment of a wall time in the user's time zone; `weekday` counts for nothing, and a number
/// beyond its range runs over into the next one. Of an hour that the clocks show twice either.
KEX_BASE_API std::int64_t secondsOf(const WallTime& wall);
/// Does nothing when `milliseconds` is not positive.
KEX_BASE_API void sleepFor(int milliseconds);

} // namespace kexos
