// SPDX-License-Identifier: LicenseRef-ORVALD
// Dates and times. Two kinds of numbers name a moment: seconds since 1970-01-01 00:00 UTC, and the
// host's calendar date, days in local time with the time of day as fraction, counted so that
// 1970-01-01 00:00 is 2440588.0. Years run from 1 to 9999; a moment outside is refused.
#pragma once

#include "kex/string.h"

#include <cstdint>
#include <ctime>

namespace KEX {

/// A moment on clock and calendar: the month from 1 to 12, the day from 1.
struct SystemTime
{
    int year = 1970, month = 1, day = 1;
    int hour = 0, minute = 0, second = 0;

    friend bool operator==(const SystemTime&, const SystemTime&) = default;
};

/// The clock of this computer, in seconds; no server is asked.
KEX_BASE_API std::int64_t ntpTime();

/// Seconds as local time, or as UTC. False, and the result left alone, outside of the years.
KEX_BASE_API bool timeToSystemTime(SystemTime& result, std::int64_t seconds, bool local);
/// A calendar date, to the nearest second, as the broken-down time of C: the year from 1900, the
/// month from 0. False, and the result left alone, for what is no date.
KEX_BASE_API bool acadCDateToTm(std::tm& result, double date);
KEX_BASE_API SystemTime tmToSystemTime(const std::tm& time);
/// The seconds of a calendar date. False, and the result left alone, for what is no date.
KEX_BASE_API bool acadCDateToTime(std::int64_t& result, double date);
/// False, and the result left alone, outside of the years.
KEX_BASE_API bool timeToAcadCDate(double& result, std::int64_t seconds);

/// "31.12.2024": day, month, year.
KEX_BASE_API CKexString str_date(const SystemTime& time);
/// "23:59": hour and minute, the seconds cut off.
KEX_BASE_API CKexString str_time(const SystemTime& time);

} // namespace KEX
