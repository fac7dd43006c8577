// SPDX-License-Identifier: LicenseRef-ORVALD
// Application frame: messages, run-time classes, services, the dynamic linker and the system
// registry.
#pragma once

#include "hostapi/types.h"

namespace AcRx {
enum AppMsgCode : int
{
    kNullMsg = 0,
    kInitAppMsg = 1,
    kUnloadAppMsg = 2,
    kLoadDwgMsg = 3,
    kUnloadDwgMsg = 4,
    kInvkSubrMsg = 5,
    kCfgMsg = 6,
    kEndMsg = 7,
    kQuitMsg = 8,
    kSaveMsg = 9,
    kDependencyMsg = 10,
    kNoDependencyMsg = 11,
    kOleUnloadAppMsg = 12,
    kPreQuitMsg = 13,
    kInitDialogMsg = 14,
    kEndDialogMsg = 15
};
/// kRetError makes the host unload the application, or refuse to unload it in answer to
/// kUnloadAppMsg and kOleUnloadAppMsg.
enum AppRetCode : int
{
    kRetOK = 0,
    kRetError = 3
};
} // namespace AcRx

class AcRxClass;

/// The run-time class of an object of class `Class`, and the way down to it.
#define ACRX_DECLARE_MEMBERS(Class)                                                                \
    AcRxClass* isA() const override;                                                               \
    static AcRxClass* desc();                                                                      \
    static Class* cast(const AcRxObject* object)                                                   \
    {                                                                                              \
        return object == nullptr || !object->isKindOf(desc())                                      \
                   ? nullptr                                                                       \
                   : const_cast<Class*>(static_cast<const Class*>(object));                        \
    }

/// The extension of class `Class` for an object, null when there is none.
#define ACRX_PE_PTR(object, Class) Class::cast((object)->x(Class::desc()))

class HOST_API AcRxObject
{
public:
    virtual ~AcRxObject();

    virtual AcRxClass* isA() const;
    static AcRxClass* desc();
    /// True for the object's own class and those above it.
    bool isKindOf(const AcRxClass* ofClass) const;
    /// The extension of that class that the host has for objects of this kind, null when there is
    /// none. It belongs to the host.
    AcRxObject* x(const AcRxClass* protocol) const;

protected:
    AcRxObject() = default;
    AcRxObject(const AcRxObject&) = default;
    AcRxObject& operator=(const AcRxObject&) = default;
};

/// A run-time class; there is one object of this type for each class.
class HOST_API AcRxClass : public AcRxObject
{
public:
    AcRxClass(const ACHAR* name, const ACHAR* dxfName, AcRxClass* parent)
        : name_(name), dxfName_(dxfName), parent_(parent)
    {
    }
    AcRxClass(const AcRxClass&) = delete;
    AcRxClass& operator=(const AcRxClass&) = delete;
    ~AcRxClass() override;

    ACRX_DECLARE_MEMBERS(AcRxClass)
    const ACHAR* name() const { return name_; } // "AcDbXrecord"
    /// Name of its records in files, null when it has none.
    const ACHAR* dxfName() const { return dxfName_; }
    /// Null for AcRxObject.
    AcRxClass* myParent() const { return parent_; }
    /// True for itself and the classes above it.
    bool isDerivedFrom(const AcRxClass* other) const;

private:
    const ACHAR* name_;
    const ACHAR* dxfName_;
    AcRxClass* parent_;
};

/// A service that an application offers under a name.
class HOST_API AcRxService : public AcRxObject
{
public:
    ~AcRxService() override;
};

/// Objects by name, names compared without regard to case. Does not own its objects.
class HOST_API AcRxDictionary : public AcRxObject
{
public:
    /// Null when absent.
    virtual AcRxObject* at(const ACHAR* key) const = 0;
    /// Enters or replaces; gives what stood there before, else null.
    virtual AcRxObject* atPut(const ACHAR* key, AcRxObject* object) = 0;
    /// Takes the entry out and hands its object to the caller; null when absent.
    virtual AcRxObject* remove(const ACHAR* key) = 0;
    ~AcRxDictionary() override;
};

class HOST_API AcRxDynamicLinker : public AcRxObject
{
public:
    /// True when the module is loaded afterwards. Loading it again raises its reference count, with
    /// `asCommand` it is refused.
    virtual bool loadModule(const ACHAR* file, bool print, bool asCommand = false) = 0;
    /// Lowers the count; at 0 the module is unloaded. False when it is unknown, locked or running.
    virtual bool unloadModule(const ACHAR* file, bool asCommand = false) = 0;
    /// Applications are locked when they load; this lets them be unloaded. `packet` is the pointer
    /// that came with kInitAppMsg.
    virtual bool unlockApplication(void* packet) = 0;
    ~AcRxDynamicLinker() override;
};

HOST_API AcRxDynamicLinker* acrxDynamicLinkerInstance();
#define acrxDynamicLinker (acrxDynamicLinkerInstance())
HOST_API AcRxDictionary* acrxServiceDictionaryInstance();
#define acrxServiceDictionary (acrxServiceDictionaryInstance())
/// System registry; "ACAD_REGISTERED_COMMANDS" gives the command stack.
HOST_API AcRxDictionary* acrxSysRegistry();
/// Makes a service and enters it; null when the name is taken.
HOST_API AcRxService* acrxRegisterService(const ACHAR* name);
HOST_API bool acrxServiceIsRegistered(const ACHAR* name);
/// Allows several open drawings with this application.
HOST_API bool acrxRegisterAppMDIAware(void* packet);
/// Brings the run-time class tree up to date after new classes; harmless at any time.
HOST_API void acrxBuildClassHierarchy();

extern "C" {
/// RTNORM or RTERROR; loading what is loaded already is an error, as unloading what is not.
HOST_API int acedArxLoad(const ACHAR* file);
HOST_API int acedArxUnload(const ACHAR* file);
}
