// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/date.h"

#include "kex/format.h"
#include "kexos/time.h"

#include <chrono>
#include <cmath>

namespace KEX {
namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr std::int64_t kDaySeconds = 86400;
/// Calendar date of 1970-01-01. The host counts its days from midnight, not from noon.
constexpr double kEpochDate = 2440588.0;

constexpr std::int64_t midnight(int year)
{
    const sys_days day = std::chrono::year(year) / 1 / 1;
    return std::int64_t(day.time_since_epoch().count()) * kDaySeconds;
}
constexpr std::int64_t kFirstSecond = midnight(1);
constexpr std::int64_t kEndSecond = midnight(10000);

bool isYear(int year) { return year >= 1 && year <= 9999; }

/// Clock and calendar `seconds` after 1970-01-01 00:00 of the same place; from kFirstSecond up to
/// kEndSecond.
SystemTime clockTime(std::int64_t seconds)
{
    const std::int64_t ofDay = ((seconds % kDaySeconds) + kDaySeconds) % kDaySeconds;
    const days day(static_cast<int>((seconds - ofDay) / kDaySeconds));
    const year_month_day date{sys_days(day)};
    const int rest = static_cast<int>(ofDay);
    return {int(date.year()),
            static_cast<int>(unsigned(date.month())),
            static_cast<int>(unsigned(date.day())),
            rest / 3600,
            rest / 60 % 60,
            rest % 60};
}

std::int64_t clockSeconds(const SystemTime& time)
{
    const sys_days day =
        std::chrono::year(time.year) / static_cast<int>(time.month) / static_cast<int>(time.day);
    return std::int64_t(day.time_since_epoch().count()) * kDaySeconds +
           (time.hour * 60 + time.minute) * 60 + time.second;
}

bool dateToClock(SystemTime& result, double date)
{
    const double seconds = std::round((date - kEpochDate) * double(kDaySeconds));
    const bool inside = seconds >= double(kFirstSecond) && seconds < double(kEndSecond);
    if (inside) result = clockTime(static_cast<std::int64_t>(seconds));
    return inside; // a NaN is not
}

} // namespace

std::int64_t ntpTime() { return kexos::currentTime(); }

bool timeToSystemTime(SystemTime& result, std::int64_t seconds, bool local)
{
    if (!local) {
        const bool inside = seconds >= kFirstSecond && seconds < kEndSecond;
        if (inside) result = clockTime(seconds);
        return inside;
    }
    kexos::ClockTime clock;
    if (!kexos::localTime(seconds, clock) || !isYear(clock.year)) return false;
    result = {clock.year, clock.month, clock.day, clock.hour, clock.minute, clock.second};
    return true;
}

bool acadCDateToTm(std::tm& result, double date)
{
    SystemTime time;
    if (!dateToClock(time, date)) return false;
    const sys_days day = std::chrono::year(time.year) / time.month / time.day;
    const sys_days first = std::chrono::year(time.year) / 1 / 1;
    result = {};
    result.tm_year = time.year - 1900;
    result.tm_mon = time.month - 1;
    result.tm_mday = time.day;
    result.tm_hour = time.hour;
    result.tm_min = time.minute;
    result.tm_sec = time.second;
    result.tm_wday = static_cast<int>(std::chrono::weekday(day).c_encoding());
    result.tm_yday = static_cast<int>((day - first).count());
    result.tm_isdst = -1; // the date does not say
    return true;
}

SystemTime tmToSystemTime(const std::tm& time)
{
    return {time.tm_year + 1900, time.tm_mon + 1, time.tm_mday,
            time.tm_hour,        time.tm_min,     time.tm_sec};
}

bool acadCDateToTime(std::int64_t& result, double date)
{
    SystemTime time;
    return dateToClock(time, date) &&
           kexos::momentOf({time.year, time.month, time.day, time.hour, time.minute, time.second},
                           result);
}

bool timeToAcadCDate(double& result, std::int64_t seconds)
{
    SystemTime time;
    if (!timeToSystemTime(time, seconds, true)) return false;
    result = kEpochDate + double(clockSeconds(time)) / double(kDaySeconds);
    return true;
}

CKexString str_date(const SystemTime& time)
{
    return format(KT("{:02}.{:02}.{:04}"), time.day, time.month, time.year);
}

CKexString str_time(const SystemTime& time)
{
    return format(KT("{:02}:{:02}"), time.hour, time.minute);
}

} // namespace KEX
