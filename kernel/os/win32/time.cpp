// SPDX-License-Identifier: LicenseRef-ORVALD
// The system's own calls for the time zone: the C library here ends at 1970.
#include "kexos/time.h"

#include "file_time.h"

#include <chrono>

namespace kexos {
namespace {

bool systemTimeOf(std::int64_t seconds, SYSTEMTIME& time)
{
    // Far outside: the product would not fit.
    constexpr std::int64_t kFarthest = 1'000'000'000'000;
    if (seconds < -kFarthest || seconds > kFarthest) return false;
    const FILETIME fileTime = fileTimeOf(seconds * kTicksPerSecond);
    return FileTimeToSystemTime(&fileTime, &time) != 0;
}

/// The seconds from 1970 to a moment in a place without time zone; a month beyond 1 to 12 counts in
/// other years, and so on.
std::int64_t secondsWithoutZone(const ClockTime& time)
{
    using namespace std::chrono;
    constexpr std::int64_t kMonths = 12;
    std::int64_t years = time.year, months = std::int64_t(time.month) - 1;
    years += months / kMonths - (months % kMonths < 0 ? 1 : 0);
    months = (months % kMonths + kMonths) % kMonths;
    // The calendar repeats itself after 400 years; std::chrono knows 32,767.
    constexpr std::int64_t kCycle = 400, kDaysPerCycle = 146'097;
    const std::int64_t cycles = years / kCycle - (years % kCycle < 0 ? 1 : 0);
    const year_month_day first{year(static_cast<int>(years - cycles * kCycle)),
                               month(static_cast<unsigned>(months + 1)), day(1)};
    const std::int64_t days = sys_days(first).time_since_epoch().count() + cycles * kDaysPerCycle +
                              std::int64_t(time.day) - 1;
    return ((days * 24 + time.hour) * 60 + time.minute) * 60 + time.second;
}

/// The rules of the user's time zone in the year of `time`.
bool rulesOf(const SYSTEMTIME& time, TIME_ZONE_INFORMATION& zone)
{
    DYNAMIC_TIME_ZONE_INFORMATION* const kOfThisUser = nullptr;
    return GetTimeZoneInformationForYear(time.wYear, kOfThisUser, &zone) != 0;
}

} // namespace

std::int64_t currentTime()
{
    FILETIME now;
    GetSystemTimeAsFileTime(&now);
    return ticksOf(now) / kTicksPerSecond;
}

bool localTime(std::int64_t seconds, ClockTime& local)
{
    SYSTEMTIME universal, place;
    TIME_ZONE_INFORMATION zone;
    if (!systemTimeOf(seconds, universal) || !rulesOf(universal, zone) ||
        !SystemTimeToTzSpecificLocalTime(&zone, &universal, &place)) {
        return false;
    }
    local = {place.wYear, place.wMonth, place.wDay, place.wHour, place.wMinute, place.wSecond};
    return true;
}

bool momentOf(const ClockTime& local, std::int64_t& seconds)
{
    SYSTEMTIME place, universal;
    TIME_ZONE_INFORMATION zone;
    FILETIME fileTime;
    if (!systemTimeOf(secondsWithoutZone(local), place) || !rulesOf(place, zone) ||
        !TzSpecificLocalTimeToSystemTime(&zone, &place, &universal) ||
        !SystemTimeToFileTime(&universal, &fileTime)) {
        return false;
    }
    seconds = ticksOf(fileTime) / kTicksPerSecond;
    return true;
}

void sleepFor(int milliseconds)
{
    if (milliseconds > 0) Sleep(static_cast<DWORD>(milliseconds));
}

} // namespace kexos
