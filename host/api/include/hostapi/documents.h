// SPDX-License-Identifier: LicenseRef-ORVALD
// Open documents and their locks.
#pragma once

#include "hostapi/database.h"

namespace AcAp {
enum DocLockMode : int
{
    kNone = 0x0,
    kAutoWrite = 0x1,
    kNotLocked = 0x2,
    kWrite = 0x4,
    kProtectedAutoWrite = 0x14,
    kRead = 0x20,
    kXWrite = 0x40
};
} // namespace AcAp

class HOST_API AcApDocument : public AcRxObject
{
public:
    /// Full path, or the name of a drawing that was never saved.
    virtual const ACHAR* fileName() const = 0;
    virtual AcDbDatabase* database() const = 0;
    /// The lock that this context holds.
    virtual AcAp::DocLockMode myLockMode() const = 0;
    ~AcApDocument() override;
};

class AcApDocManagerReactor;

class HOST_API AcApDocManager : public AcRxObject
{
public:
    /// The document that a database is open in; null when it is not.
    virtual AcApDocument* document(const AcDbDatabase* database) const = 0;
    /// See hostapi/reactors.h. Nothing happens to one that is there already, or that is not there.
    virtual void addReactor(AcApDocManagerReactor* reactor) = 0;
    virtual void removeReactor(AcApDocManagerReactor* reactor) = 0;
    /// The document that calls refer to; null when none is open.
    virtual AcApDocument* curDocument() const = 0;
    /// The document with the focus.
    virtual AcApDocument* mdiActiveDocument() const = 0;
    virtual Acad::ErrorStatus setCurDocument(AcApDocument* document,
                                             AcAp::DocLockMode mode = AcAp::kNone,
                                             bool activate = false) = 0;
    /// Locks nest. eLockViolation on a conflict, eNoDocument for null.
    virtual Acad::ErrorStatus lockDocument(AcApDocument* document,
                                           AcAp::DocLockMode mode = AcAp::kWrite,
                                           const ACHAR* globalName = nullptr,
                                           const ACHAR* localName = nullptr,
                                           bool prompt = true) = 0;
    /// eOk, also after a kAutoWrite lock that had no effect; eLockViolation for a surplus unlock.
    virtual Acad::ErrorStatus unlockDocument(AcApDocument* document) = 0;
    ~AcApDocManager() override;
};

HOST_API AcApDocManager* acDocManagerInstance();
#define acDocManager (acDocManagerInstance())
