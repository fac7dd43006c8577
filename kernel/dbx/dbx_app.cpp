// SPDX-License-Identifier: LicenseRef-ORVALD
// The database extension: home of the system's custom entities.
#include "kexmodule/service_app.h"

extern "C" ACRX_EXPORT AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet)
{
    static KEX::ServiceApp<AcRxDbxApp> app(ACRX_T("KEX_DBX"));
    return app.acrxEntryPoint(message, packet);
}
