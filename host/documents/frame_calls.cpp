// SPDX-License-Identifier: LicenseRef-ORVALD
// The frame's part of the host's interface: text window, boxes, files, services, linker, documents.
#include "document.h"
#include "host.h"
#include "hostapi/headless.h"
#include "hostapi/lisp.h"
#include "text_format.h"

#include <algorithm>
#include <memory>

// Key functions of the interface's classes: their run-time type lives here.
AcRxObject::~AcRxObject() = default;
AcRxService::~AcRxService() = default;
AcRxDictionary::~AcRxDictionary() = default;
AcRxDynamicLinker::~AcRxDynamicLinker() = default;
AcEdCommandStack::~AcEdCommandStack() = default;
AcDbDatabase::~AcDbDatabase() = default;
AcDbHostApplicationServices::~AcDbHostApplicationServices() = default;
AcApDocument::~AcApDocument() = default;
AcApDocManager::~AcApDocManager() = default;
HostAutomationObject::~HostAutomationObject() = default;

using namespace orvald;

extern "C" {

int acdbFail(const ACHAR* text)
{
    const Application* application = Application::current();
    Host::instance().console().failure(application == nullptr ? "host" : application->fileName(),
                                       text == nullptr ? std::u16string_view() : text);
    return RTNORM;
}

int acutPrintf(const ACHAR* format, ...)
{
    if (format == nullptr) return RTERROR;
    va_list arguments;
    va_start(arguments, format);
    const std::u16string text = formatText(format, arguments);
    va_end(arguments);
    Host::instance().console().print(text);
    return RTNORM;
}

int acedAlert(const ACHAR* text)
{
    Host::instance().console().alert(text == nullptr ? std::u16string_view() : text);
    return RTNORM;
}

int acedFindFile(const ACHAR* name, ACHAR* path, int room)
{
    if (name == nullptr || path == nullptr) return RTERROR;
    const std::u16string found = lisp::toUtf16(Host::instance().findFile(lisp::toUtf8(name)));
    if (found.empty() || room <= 0 || found.size() >= static_cast<std::size_t>(room)) {
        return RTERROR;
    }
    std::ranges::copy(found, path);
    path[found.size()] = 0;
    return RTNORM;
}

const ACHAR* acedGetAppName()
{
    const Application* application = Application::current();
    return application == nullptr ? u"" : application->pathText().c_str();
}

void* adsw_acadMainWnd() { return nullptr; }

int acedArxLoad(const ACHAR* file)
{
    return Host::instance().linker().loadModule(file, true, true) ? RTNORM : RTERROR;
}

int acedArxUnload(const ACHAR* file)
{
    return Host::instance().linker().unloadModule(file, true) ? RTNORM : RTERROR;
}

unsigned hostRegisterActiveObject(const ACHAR* progId, HostAutomationObject* object)
{
    if (progId == nullptr || object == nullptr) return 0;
    return Host::instance().activeObjects().add(progId, object);
}

bool hostRevokeActiveObject(unsigned cookie)
{
    return Host::instance().activeObjects().remove(cookie);
}

HostAutomationObject* hostGetActiveObject(const ACHAR* progId)
{
    return progId == nullptr ? nullptr : Host::instance().activeObjects().find(progId);
}

bool hostAskOkCancel(const ACHAR* caption, const ACHAR* text)
{
    return Host::instance().console().askOkCancel(caption == nullptr ? u"" : caption,
                                                  text == nullptr ? u"" : text);
}
}

AcRxDynamicLinker* acrxDynamicLinkerInstance() { return &Host::instance().linker(); }

AcRxDictionary* acrxServiceDictionaryInstance() { return &Host::instance().services(); }

AcRxDictionary* acrxSysRegistry() { return &Host::instance().systemRegistry(); }

AcRxService* acrxRegisterService(const ACHAR* name)
{
    ObjectDictionary& services = Host::instance().services();
    if (name == nullptr || services.has(name)) return nullptr;
    auto service = std::make_unique<AcRxService>();
    services.atPut(name, service.get());
    return service.release(); // the application takes it out again and deletes it
}

bool acrxServiceIsRegistered(const ACHAR* name) { return Host::instance().services().has(name); }

bool acrxRegisterAppMDIAware(void* packet)
{
    if (packet == nullptr) return false;
    static_cast<Application*>(packet)->manyDocuments = true;
    return true;
}

void acrxBuildClassHierarchy() {}

AcApDocManager* acDocManagerInstance() { return &Host::instance().documentManager(); }

AcDbHostApplicationServices* acdbHostApplicationServices()
{
    class Services final : public AcDbHostApplicationServices
    {
    public:
        AcDbDatabase* workingDatabase() const override
        {
            const Document* document = Host::instance().current();
            return document == nullptr ? nullptr : document->database();
        }
    };
    static Services services;
    return &services;
}
