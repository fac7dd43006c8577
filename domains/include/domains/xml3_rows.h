// SPDX-License-Identifier: LicenseRef-ORVALD
// XML output.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kXml3Rows[] = {
    {KT("kex_xml3_Create"), notBuilt, KT("string file, [string encoding], [integer indent]"),
     KT("integer or nil")},
    {KT("kex_xml3_OpenTag"), notBuilt, KT("integer xml, string name"), KT("T or nil")},
    {KT("kex_xml3_WriteAttribute"), notBuilt,
     KT("integer xml, string name, string, number or T/nil value"), KT("T or nil")},
    {KT("kex_xml3_WriteText"), notBuilt, KT("integer xml, string or number"), KT("T or nil")},
    {KT("kex_xml3_WriteCData"), notBuilt, KT("integer xml, string"), KT("T or nil")},
    {KT("kex_xml3_CloseTag"), notBuilt, KT("integer xml, [string name]"), KT("T or nil")},
    {KT("kex_xml3_Close"), notBuilt, KT("integer xml"), KT("T or nil")},
};

} // namespace KEX
