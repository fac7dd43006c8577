// SPDX-License-Identifier: LicenseRef-ORVALD
#include "test_host.h"

#include "hostapi/entity.h"
#include "hostapi/headless.h"
#include "hostapi/lisp.h"
#include "kex/format.h"

#include <algorithm>

TestHost& testHost()
{
    static TestHost host;
    return host;
}

namespace {

CKexString handleOf(std::int32_t entity) { return KEX::format(KT("{:X}"), entity); }

} // namespace

extern "C" {

int acedGetVar(const ACHAR* name, resbuf* value)
{
    const std::string key = KEX::toUtf8(name);
    *value = resbuf{};
    if (const auto text = testHost().textVariables.find(key);
        text != testHost().textVariables.end()) {
        value->restype = RTSTR;
        return acutNewString(text->second.c_str(), value->resval.rstring);
    }
    if (const auto real = testHost().realVariables.find(key);
        real != testHost().realVariables.end()) {
        value->restype = RTREAL;
        value->resval.rreal = real->second;
        return RTNORM;
    }
    if (const auto point = testHost().pointVariables.find(key);
        point != testHost().pointVariables.end()) {
        value->restype = RT3DPOINT;
        std::copy_n(point->second.asArray(), 3, value->resval.rpoint);
        return RTNORM;
    }
    const auto number = testHost().integerVariables.find(key);
    if (number == testHost().integerVariables.end()) return RTERROR;
    value->restype = RTSHORT;
    value->resval.rint = static_cast<short>(number->second);
    return RTNORM;
}

int acedAlert(const ACHAR* text)
{
    testHost().alerts.push_back(KEX::toUtf8(text));
    return RTNORM;
}

bool hostAskOkCancel(const ACHAR*, const ACHAR*) { return testHost().answer; }

int acedFindFile(const ACHAR*, ACHAR*, int) { return RTERROR; }

resbuf* acdbEntGet(const ads_name name)
{
    const auto& entities = testHost().entities;
    if (std::find(entities.begin(), entities.end(), name[0]) == entities.end()) return nullptr;
    return acutBuildList(-1, name, 5, handleOf(name[0]).c_str(), RTNONE);
}

int acdbHandEnt(const ACHAR* handle, ads_name name)
{
    for (const std::int32_t entity : testHost().entities) {
        if (handleOf(entity) != handle) continue;
        name[0] = entity;
        name[1] = 0;
        return RTNORM;
    }
    return RTERROR;
}
}
