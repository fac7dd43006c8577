// SPDX-License-Identifier: LicenseRef-ORVALD
#include "lifecycle/settings.h"

#include "kex/files.h"
#include "kex/format.h"
#include "kex/message.h"
#include "kex/point.h"
#include "kex/system.h"
#include "kexdata/configuration.h"

namespace KEX {
namespace {

constexpr int kProductYear = 2015;
constexpr double kRndl = 0.0001; // length within which two points are one, drawing units
constexpr double kRnda = 1e-06;  // angles, directions, bulges
constexpr double kRndf = 0.001;  // fabrication lengths, drawing units
constexpr int kLeaderType = 0;   // 0 straight with arrow, 1 straight with dot, 2 spline
constexpr const ACHAR* kCountry = KT("49");

/// The value of a setting; a missing one, or one of another kind, is set to the default.
template <class Value>
Value setting(const ACHAR* key, Value fallback)
{
    Value value = fallback;
    if (!cfg_get(key, value)) cfg_set(key, CKexDataItem(fallback));
    return value;
}

/// The country of the configuration; an empty one counts as missing.
CKexString countrySetting()
{
    CKexString country;
    cfg_get(KT("_COUNTRY"), country);
    if (!country.isNull()) return country;
    country = regGet(regAppKey(), KT("COUNTRY"));
    if (country.isNull()) country = kCountry;
    cfg_set(KT("_COUNTRY"), CKexDataItem(country));
    return country;
}

} // namespace

const ACHAR* regCurVer()
{
    static const CKexString version = [] {
        const int host = acadver();
        return format(KT("{}.{}.{}"), kProductYear, (host >> 8) & 0xFF, host & 0xFF);
    }();
    return version.c_str();
}

CKexString configurationFile() { return dataFileName(KT("Kex_Main.cfg"), true); }

void loadConfiguration() { cfg_load(configurationFile()); }

void saveConfiguration() { cfg_save(configurationFile()); }

void establishSettings()
{
    CKexPoint3d::tol = setting(KT("_RNDL"), kRndl);
    setting(KT("_RNDA"), kRnda);
    setting(KT("_RNDF"), kRndf);
    const CKexString country = countrySetting();
    const CKexString second = setting(KT("_COUNTRY1"), CKexString());
    const CKexString third = setting(KT("_COUNTRY2"), CKexString());
    msgLangSet(country, second, third);
    setting(KT("LEADERTYPE"), kLeaderType);
    cfg_set(KT("CURVER"), CKexDataItem(regCurVer()));
}

} // namespace KEX
