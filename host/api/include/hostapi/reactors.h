// SPDX-License-Identifier: LicenseRef-ORVALD
// What an application is told without asking: changes of a drawing's objects, and of the current
// document. The host borrows a reactor until it is removed; a module takes its own back before it
// is unloaded.
//
// A reactor is called when a change is whole: after an object has been closed, after a function by
// entity lists, an UNDO or a command is done, and never while the object is open for write. The
// document of the drawing is then current and locked for write. A reactor may open what is not
// open for write by somebody else, and change it, but for the object that it is told of, which is
// open for notify. What it changes is told afterwards.
#pragma once

#include "hostapi/rx.h"

class AcApDocument;
class AcDbDatabase;
class AcDbObject;

class HOST_API AcDbDatabaseReactor : public AcRxObject
{
public:
    /// An undo has taken the making of the object back: it was never there.
    virtual void objectUnAppended(const AcDbDatabase* database, const AcDbObject* object);
    /// A redo has made it again.
    virtual void objectReAppended(const AcDbDatabase* database, const AcDbObject* object);
    /// Once for all that has changed since the last time. Not for what has only been made or
    /// erased. Undo and redo may tell of more than what looks otherwise then.
    virtual void objectModified(const AcDbDatabase* database, const AcDbObject* object);
    /// Erased, or restored when `erased` is false.
    virtual void objectErased(const AcDbDatabase* database, const AcDbObject* object,
                              bool erased = true);
    /// The drawing is being closed: nothing of it can be opened any more. The reactor is removed.
    virtual void goodbye(const AcDbDatabase* database);
    ~AcDbDatabaseReactor() override;
};

class HOST_API AcApDocManagerReactor : public AcRxObject
{
public:
    /// Another document becomes current, or the current one is closed, which it still is. It is not
    /// locked.
    virtual void documentToBeDeactivated(AcApDocument* document);
    ~AcApDocManagerReactor() override;
};
