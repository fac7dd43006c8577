// SPDX-License-Identifier: LicenseRef-ORVALD
// The bar module: home of profile bars and norm profiles.
#include "kexmodule/service_app.h"

extern "C" ACRX_EXPORT AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet)
{
    static KEX::ServiceApp<AcRxArxApp> app(ACRX_T("KEX_BAR"));
    return app.acrxEntryPoint(message, packet);
}
