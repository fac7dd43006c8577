// SPDX-License-Identifier: LicenseRef-ORVALD
// Dates, times and identifiers. An integer is a time in seconds, a real the host's calendar date.
#include "kex/date.h"

#include "kex/uuid.h"
#include "marshal/arg_reader.h"
#include "marshal/ret_ads.h"
#include "str/str_rows.h"

namespace KEX {
namespace {

/// LISP has seconds in 32 bits, of which a later time fills only the lower ones.
int retSeconds(std::int64_t seconds)
{
    return retAds(static_cast<int>(static_cast<std::uint32_t>(seconds)));
}

bool readMoment(const resbuf* args, SystemTime& time)
{
    int seconds = 0;
    double date = 0.0;
    if (readInteger(args, seconds)) return timeToSystemTime(time, seconds, true);
    std::tm parts = {};
    if (!readNumber(args, date) || !acadCDateToTm(parts, date)) return false;
    time = tmToSystemTime(parts);
    return true;
}

int retTimeText(const resbuf* args, CKexString (*text)(const SystemTime&))
{
    SystemTime time;
    ArgReader in(args);
    in.require(readMoment(args, time), 0);
    if (in.failed()) return in.fail();
    return retAds(text(time));
}

} // namespace

int strDate(const resbuf* args) { return retTimeText(args, str_date); }
int strTime(const resbuf* args) { return retTimeText(args, str_time); }

int timeStamp(const resbuf* args)
{
    if (args == nullptr || args->restype == RTNIL) return retSeconds(ntpTime());
    ArgReader in(args);
    int seconds = 0;
    if (readInteger(args, seconds)) {
        double date = 0.0;
        in.require(timeToAcadCDate(date, seconds), 0);
        return in.failed() ? in.fail() : retAds(date);
    }
    std::int64_t moment = 0;
    in.require(acadCDateToTime(moment, in.number(0)), 0);
    return in.failed() ? in.fail() : retSeconds(moment);
}

int strUuidCreate(const resbuf*) { return retAds(kexStrUuidCreate()); }

} // namespace KEX
