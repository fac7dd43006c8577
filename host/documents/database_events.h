// SPDX-License-Identifier: LicenseRef-ORVALD
// Tells the reactors of a drawing what has changed, when the change is whole.
#pragma once

#include "drawing/drawing.h"
#include "hostapi/objects.h"
#include "hostapi/reactors.h"
#include "reactor_list.h"

namespace orvald {

class DatabaseEvents
{
public:
    DatabaseEvents(drawing::Drawing& drawing, const AcDbDatabase& database)
        : drawing_(drawing), database_(database)
    {
    }
    Acad::ErrorStatus add(AcDbDatabaseReactor* reactor);
    Acad::ErrorStatus remove(AcDbDatabaseReactor* reactor);
    /// Takes out the reactors of an application that is gone.
    void forget(const Application& application);

    /// Tells what has changed since the last time, but for objects that are open for write: their
    /// closing tells. Goes on until what the reactors themselves change is told. Nothing within
    /// itself.
    void tell()
    {
        if (drawing_.hasTouched() && !telling_) tellAll();
    }
    /// The drawing is being closed; all reactors are gone afterwards.
    void goodbye();

private:
    void tellAll();
    void tellOne(const drawing::Touched& place);

    drawing::Drawing& drawing_;
    const AcDbDatabase& database_;
    ReactorList<AcDbDatabaseReactor> reactors_;
    bool telling_ = false;
};

} // namespace orvald
