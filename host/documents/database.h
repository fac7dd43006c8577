// SPDX-License-Identifier: LicenseRef-ORVALD
// The database of a document as applications see it: values of the header, the roots, copies.
#pragma once

#include "annotation_scales.h"
#include "database_events.h"
#include "drawing/drawing.h"
#include "hostapi/objects.h"

namespace orvald {

class Database final : public AcDbDatabase
{
public:
    explicit Database(drawing::Drawing& drawing)
        : drawing_(drawing), events_(drawing, *this), contexts_(drawing)
    {
    }
    drawing::Drawing& drawing() const { return drawing_; }
    /// The drawing of a database of this host.
    static drawing::Drawing& drawingOf(const AcDbDatabase& database)
    {
        return static_cast<const Database&>(database).drawing_;
    }

    AcDb::UnitsValue insunits() const override;
    Acad::ErrorStatus setInsunits(AcDb::UnitsValue units) override;
    AcDb::MeasurementValue measurement() const override;
    Acad::ErrorStatus setMeasurement(AcDb::MeasurementValue value) override;
    bool isPartiallyOpened() const override { return false; }
    Acad::ErrorStatus addReactor(AcDbDatabaseReactor* reactor) const override
    {
        return events_.add(reactor);
    }
    Acad::ErrorStatus removeReactor(AcDbDatabaseReactor* reactor) const override
    {
        return events_.remove(reactor);
    }
    DatabaseEvents& events() { return events_; }

    AcDbObjectId namedObjectsDictionaryId() const override;
    Acad::ErrorStatus getNamedObjectsDictionary(AcDbDictionary*& dictionary,
                                                AcDb::OpenMode mode) override;
    AcDbObjectId currentSpaceId() const override;
    Acad::ErrorStatus getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound,
                                      const AcDbHandle& handle) const override;
    Acad::ErrorStatus deepCloneObjects(const AcDbObjectIdArray& objects, AcDbObjectId owner,
                                       AcDbIdMapping& map) override;
    Acad::ErrorStatus wblockCloneObjects(const AcDbObjectIdArray& objects, AcDbObjectId owner,
                                         AcDbIdMapping& map,
                                         AcDb::DuplicateRecordCloning cloning) override;
    AcDbObjectContextManager* objectContextManager() const override { return &contexts_; }

private:
    void set(std::string_view variable, int value);

    drawing::Drawing& drawing_;
    mutable DatabaseEvents events_; // reactors come to a database that is only read, too
    mutable ContextManager contexts_;
};

} // namespace orvald
