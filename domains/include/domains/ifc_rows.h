// SPDX-License-Identifier: LicenseRef-ORVALD
// IFC exchange.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kIfcRows[] = {
    {KT("kex_ifc_write"), notBuilt,
     KT("string file, enames, pickset or nil, [list of (string key . value)]"),
     KT("integer or nil")},
    {KT("kex_ifc_guid"), notBuilt, KT("ename"), KT("string")},
};

} // namespace KEX
