// SPDX-License-Identifier: LicenseRef-ORVALD
// Application wrapper: one virtual handler per application message, in the host's slot order.
// Header only, so that each module has its own.
#pragma once

#include "hostapi/rx.h"

class AcRxDbxApp
{
public:
    AcRxDbxApp() = default;
    AcRxDbxApp(const AcRxDbxApp&) = delete;
    AcRxDbxApp& operator=(const AcRxDbxApp&) = delete;
    virtual ~AcRxDbxApp() = default;

    /// Unlocks the application and allows several drawings, as every wrapper does first.
    virtual AcRx::AppRetCode On_kInitAppMsg(void* packet)
    {
        acrxDynamicLinker->unlockApplication(packet);
        acrxRegisterAppMDIAware(packet);
        return AcRx::kRetOK;
    }
    virtual AcRx::AppRetCode On_kUnloadAppMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kLoadDwgMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kUnloadDwgMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kInvkSubrMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kCfgMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kEndMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kQuitMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kSaveMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kDependencyMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kNoDependencyMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kOleUnloadAppMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kPreQuitMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kInitDialogMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kEndDialogMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kNullMsg(void*) { return AcRx::kRetOK; }

    /// Codes 1 to 15 go to the first fifteen handlers in order, code 0 to the sixteenth; the host's
    /// newer messages are answered with kRetOK.
    AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet)
    {
        switch (message) {
        case AcRx::kInitAppMsg: return On_kInitAppMsg(packet);
        case AcRx::kUnloadAppMsg: return On_kUnloadAppMsg(packet);
        case AcRx::kLoadDwgMsg: return On_kLoadDwgMsg(packet);
        case AcRx::kUnloadDwgMsg: return On_kUnloadDwgMsg(packet);
        case AcRx::kInvkSubrMsg: return On_kInvkSubrMsg(packet);
        case AcRx::kCfgMsg: return On_kCfgMsg(packet);
        case AcRx::kEndMsg: return On_kEndMsg(packet);
        case AcRx::kQuitMsg: return On_kQuitMsg(packet);
        case AcRx::kSaveMsg: return On_kSaveMsg(packet);
        case AcRx::kDependencyMsg: return On_kDependencyMsg(packet);
        case AcRx::kNoDependencyMsg: return On_kNoDependencyMsg(packet);
        case AcRx::kOleUnloadAppMsg: return On_kOleUnloadAppMsg(packet);
        case AcRx::kPreQuitMsg: return On_kPreQuitMsg(packet);
        case AcRx::kInitDialogMsg: return On_kInitDialogMsg(packet);
        case AcRx::kEndDialogMsg: return On_kEndDialogMsg(packet);
        case AcRx::kNullMsg: return On_kNullMsg(packet);
        }
        return AcRx::kRetOK;
    }
};

/// A wrapper for modules with commands or LISP functions.
class AcRxArxApp : public AcRxDbxApp
{
};

/// Marks a function that the host or another module finds in this module.
#ifdef _WIN32
#define ACRX_EXPORT __declspec(dllexport)
#else
#define ACRX_EXPORT __attribute__((visibility("default")))
#endif
