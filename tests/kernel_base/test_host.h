// SPDX-License-Identifier: LicenseRef-ORVALD
// The host functions that the kernel's base and data libraries call, as the tests want them
// answered. They stand before the host's own.
#pragma once

#include "kex/ename.h"
#include "kex/point.h"
#include "kex/string.h"

#include <map>
#include <vector>

struct TestHost
{
    std::map<std::string, CKexString> textVariables;
    std::map<std::string, int> integerVariables;
    std::map<std::string, double> realVariables;
    std::map<std::string, CKexPoint3d> pointVariables;
    std::vector<std::string> alerts;
    bool answer = true; // to questions
    /// Living entities by their first word; the handle is its hexadecimal text.
    std::vector<std::int32_t> entities;
};
TestHost& testHost();
