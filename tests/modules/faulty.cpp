// SPDX-License-Identifier: LicenseRef-ORVALD
// A module that reads through null as soon as it is loaded.
#include "hostapi/arxapp.h"

namespace {

int* volatile nowhere = nullptr;

} // namespace

extern "C" ACRX_EXPORT AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode, void*)
{
    return *nowhere == 0 ? AcRx::kRetOK : AcRx::kRetError;
}
