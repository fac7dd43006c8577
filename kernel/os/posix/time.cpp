// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kexos/time.h"

#include <cerrno>
#include <ctime>

namespace kexos {

std::int64_t currentTime() { return std::time(nullptr); }

bool localTime(std::int64_t seconds, ClockTime& local)
{
    ::tzset(); // localtime_r alone need not notice that the zone has changed
    const std::time_t moment = seconds;
    std::tm parts = {};
    if (::localtime_r(&moment, &parts) == nullptr) return false;
    local = {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday,
             parts.tm_hour,        parts.tm_min,     parts.tm_sec};
    return true;
}

bool momentOf(const ClockTime& local, std::int64_t& seconds)
{
    std::tm parts = {};
    parts.tm_year = local.year - 1900;
    parts.tm_mon = local.month - 1;
    parts.tm_mday = local.day;
    parts.tm_hour = local.hour;
    parts.tm_min = local.minute;
    parts.tm_sec = local.second;
    parts.tm_isdst = -1; // the zone knows
    parts.tm_wday = -1;  // stays when mktime fails, whose -1 is a moment as well
    const std::time_t moment = std::mktime(&parts);
    if (parts.tm_wday < 0) return false;
    seconds = moment;
    return true;
}

void sleepFor(int milliseconds)
{
    if (milliseconds <= 0) return;
    timespec rest = {milliseconds / 1000, milliseconds % 1000 * 1'000'000L};
    while (::nanosleep(&rest, &rest) != 0 && errno == EINTR) {
    }
}

} // namespace kexos
