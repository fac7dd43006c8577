// SPDX-License-Identifier: LicenseRef-ORVALD
// The module's application object: the host's messages, in the order in which everything is set up
// and taken down.
#pragma once

#include "automation/reactors.h"
#include "hostapi/arxapp.h"
#include "kex/array.h"
#include "kex/string.h"

#include <memory>

namespace KEX {

class CMainArxApp final : public AcRxArxApp
{
public:
    AcRx::AppRetCode On_kInitAppMsg(void* packet) override;
    AcRx::AppRetCode On_kUnloadAppMsg(void* packet) override;
    AcRx::AppRetCode On_kLoadDwgMsg(void* packet) override;
    AcRx::AppRetCode On_kUnloadDwgMsg(void* packet) override;
    AcRx::AppRetCode On_kSaveMsg(void* packet) override;

    /// Records a sibling module for unloading at the end; its folder is left out.
    void push(TextView file);

private:
    void initialise();
    void loadSiblings();
    void takeDown();

    std::unique_ptr<CKexApp15> automation_; // while the module is loaded
    CKexArrayTempl<CKexString> siblings_;   // modules that this one loaded, in order
};

/// The one application object of the process.
CMainArxApp& mainApp();

} // namespace KEX

extern "C" {
ACRX_EXPORT AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet);
/// Records a module that this one shall unload when it is unloaded itself.
ACRX_EXPORT void kexArxPush(const ACHAR* file);
}
