// SPDX-License-Identifier: LicenseRef-ORVALD
// Application object of a module beside the main one: while it is loaded, a service of its name
// tells so.
#pragma once

#include "hostapi/arxapp.h"

namespace KEX {

/// Base is AcRxDbxApp or AcRxArxApp.
template <class Base>
class ServiceApp : public Base
{
public:
    /// The name is borrowed.
    explicit ServiceApp(const ACHAR* service) : service_(service) {}

    AcRx::AppRetCode On_kInitAppMsg(void* packet) override
    {
        const AcRx::AppRetCode result = Base::On_kInitAppMsg(packet);
        acrxRegisterService(service_);
        acrxBuildClassHierarchy();
        return result;
    }
    AcRx::AppRetCode On_kUnloadAppMsg(void* packet) override
    {
        delete acrxServiceDictionary->remove(service_);
        return Base::On_kUnloadAppMsg(packet);
    }

private:
    const ACHAR* service_;
};

} // namespace KEX
