// SPDX-License-Identifier: LicenseRef-ORVALD
// The table's texts for the headless host, which lists the functions.
#include "hostapi/arxapp.h"
#include "hostapi/headless.h"
#include "table/lisp_table.h"

extern "C" ACRX_EXPORT bool hostDescribeFunction(int code, HostFunctionText* text)
{
    const auto index = static_cast<std::size_t>(static_cast<unsigned>(code));
    if (index >= KEX::kLispCount) return false;
    const KEX::LispRow& row = KEX::kexLispTable[index];
    *text = {row.name, row.arguments, row.result, row.handler != KEX::notBuilt};
    return true;
}
