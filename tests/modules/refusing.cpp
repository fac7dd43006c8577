// SPDX-License-Identifier: LicenseRef-ORVALD
// A module that answers its first message with an error.
#include "hostapi/arxapp.h"

extern "C" ACRX_EXPORT AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode, void*)
{
    return AcRx::kRetError;
}
