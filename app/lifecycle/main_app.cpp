// SPDX-License-Identifier: LicenseRef-ORVALD
#include "lifecycle/main_app.h"

#include "dispatch/dispatch.h"
#include "hostapi/lisp.h"
#include "kex/dialog.h"
#include "kex/fault.h"
#include "kex/file_list.h"
#include "kex/files.h"
#include "kex/format.h"
#include "kex/lock_files.h"
#include "kex/message.h"
#include "kex/perf.h"
#include "kex/system.h"
#include "kexdata/configuration.h"
#include "kexobj/data_cache.h"
#include "kexobj/dictionaries.h"
#include "lifecycle/commands.h"
#include "lifecycle/drawing_start.h"
#include "lifecycle/settings.h"
#include "prompt/status_bar.h"
#include "table/lisp_table.h"

namespace KEX {
namespace {

constexpr const ACHAR* kCatalog = KT("kex_run.rsx");
constexpr const ACHAR* kCatalogPrefix = KT("KEX_");

/// Runs a handler's work in the fault guard; a fault is told in a box that names the place.
template <class Work>
void guarded(const ACHAR* place, Work&& work)
{
    unsigned fault = 0;
    if (guardedCall(work, fault)) return;
    alert(format(KT("{}:\nAusnahme 0x{:x} in {}"), fileNameOnly(acedGetAppName()), fault, place));
}

} // namespace

CMainArxApp& mainApp()
{
    static CMainArxApp app;
    return app;
}

AcRx::AppRetCode CMainArxApp::On_kInitAppMsg(void* packet)
{
    const AcRx::AppRetCode result = AcRxArxApp::On_kInitAppMsg(packet);
    guarded(KT("InitApplication()"), [this] { initialise(); });
    return result;
}

void CMainArxApp::initialise()
{
    setLispTable(kexLispTable);
    loadConfiguration();
    if (!acrxServiceIsRegistered(kBaseApi)) {
        CKexDataDir::setRbValidate(chk_ent);
        acrxRegisterService(kBaseApi);
    }
    curVerSet(regCurVer());
    regMakeKey(regAppKey() + KT("\\Dialogs"));
    acrxBuildClassHierarchy();
    const CKexString catalog = dataFileName(kCatalog, false);
    if (fileExists(catalog)) msgLoad(catalog, kCatalogPrefix);
    envSet(KT("KEX_CURVER"), regCurVer());
    establishSettings();
    automation_ = std::make_unique<CKexApp15>();
    loadSiblings();
    DlgEnv_st::hWndApplic = adsw_acadMainWnd();
    registerCommands();
}

void CMainArxApp::loadSiblings()
{
    // The database extension first: the bar module builds on its classes.
    for (const CKexString& file : {kexAppFileName(KT("Kex"), KT("Dbx"), KT("Dbx")),
                                   kexAppFileName(KT("Kex"), KT("Bar"), KT("Arx"))}) {
        if (acrxDynamicLinker->loadModule(file.c_str(), false, false)) push(file);
    }
}

void CMainArxApp::push(TextView file) { siblings_.append(fileNameOnly(file)); }

AcRx::AppRetCode CMainArxApp::On_kLoadDwgMsg(void*)
{
    guarded(KT("LoadDwg()"), [] {
        kexLispDefineAll();
        startDrawing();
    });
    return AcRx::kRetOK;
}

AcRx::AppRetCode CMainArxApp::On_kUnloadDwgMsg(void*)
{
    guarded(KT("UnloadDwg()"), [] { xd_close(currentDatabase()); });
    guarded(KT("UnloadDwg()"), [] { kexLispUndefineAll(); });
    return AcRx::kRetOK;
}

AcRx::AppRetCode CMainArxApp::On_kSaveMsg(void*)
{
    guarded(KT("Save()"), [] { xd_close(currentDatabase()); }); // before the host writes the file
    guarded(KT("Save()"), [] { saveConfiguration(); });
    return AcRx::kRetOK;
}

AcRx::AppRetCode CMainArxApp::On_kUnloadAppMsg(void* packet)
{
    guarded(KT("UnloadApplication()"), [this] { takeDown(); });
    // Outside of every scope: the signals go back to whoever had them.
    CKexErrorHandler::uninstall();
    return AcRxArxApp::On_kUnloadAppMsg(packet);
}

void CMainArxApp::takeDown()
{
    // Each drawing has lost its functions with its own message; this is for a host that sent none.
    kexLispUndefineAll();
    xd_close(false); // likewise
    xd_close(true);
    automation_.reset();
    fileUnlockAll();
    dirModeSet(0, 0); // another module may keep the kernel's libraries loaded
    statusBarStop();  // its thread runs code of this module
    saveConfiguration();
    for (const CKexString& file : siblings_) acedArxUnload(file.c_str());
    siblings_.clear();
    delete acrxServiceDictionary->remove(kBaseApi);
    removeCommands();
    // The names in the totals belong to this module.
    perfReset();
}

} // namespace KEX

extern "C" {

AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet)
{
    return KEX::mainApp().acrxEntryPoint(message, packet);
}

void kexArxPush(const ACHAR* file) { KEX::mainApp().push(file); }
}
