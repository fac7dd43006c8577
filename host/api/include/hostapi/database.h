// SPDX-License-Identifier: LicenseRef-ORVALD
// The drawing database as far as applications reach it through classes.
#pragma once

#include "hostapi/array.h"
#include "hostapi/rx.h"

class AcDbDatabase;
class AcDbDatabaseReactor;
class AcDbDictionary;
class AcDbIdMapping;
class AcDbObjectContextManager;

/// Persistent name of an object within its drawing; 0 is null.
class AcDbHandle
{
public:
    AcDbHandle() = default;
    explicit constexpr AcDbHandle(std::uint64_t value) : value_(value) {}
    /// From hexadecimal text; null when it is none.
    HOST_API explicit AcDbHandle(const ACHAR* text);
    constexpr bool isNull() const { return value_ == 0; }
    constexpr operator std::uint64_t() const { return value_; }
    /// Upper-case hexadecimal without leading zeros, and the end mark. False when it does not fit
    /// into `room` units; 17 are always enough.
    HOST_API bool getIntoAsciiBuffer(ACHAR* buffer, std::size_t room) const;

private:
    std::uint64_t value_ = 0;
};

/// Names an object of an open drawing for as long as the drawing is open; 0 is null. Unique over
/// all open drawings.
class AcDbObjectId
{
public:
    AcDbObjectId() = default;
    explicit constexpr AcDbObjectId(std::uint64_t value) : value_(value) {}
    constexpr bool isNull() const { return value_ == 0; }
    constexpr std::uint64_t asOldId() const { return value_; }
    /// True when an open drawing has an object of that name, erased or not.
    HOST_API bool isValid() const;
    /// True when it names no object, or an erased one.
    HOST_API bool isErased() const;
    /// True when the object or an owner above it is erased.
    HOST_API bool isEffectivelyErased() const;
    /// Null handle when it names no object.
    HOST_API AcDbHandle handle() const;
    /// Null when the drawing is not open in a document.
    HOST_API AcDbDatabase* database() const;
    /// The run-time class that opening it gives; null when it names no object.
    HOST_API AcRxClass* objectClass() const;
    friend constexpr bool operator==(AcDbObjectId, AcDbObjectId) = default;

private:
    std::uint64_t value_ = 0;
};

using AcDbObjectIdArray = AcArray<AcDbObjectId>;

namespace AcDb {
enum OpenMode : int
{
    kForRead = 0,
    kForWrite = 1,
    kForNotify = 2
};
/// What becomes of a record or dictionary entry whose name is taken where a copy goes. The numbers
/// are those of files.
enum DuplicateRecordCloning : int
{
    kDrcNotApplicable = 0,
    kDrcIgnore = 1,  // the one that is there stays and is used
    kDrcReplace = 2, // the copy takes its place
    kDrcXrefMangleName = 3,
    kDrcMangleName = 4, // the copy is called $0$name
    kDrcUnmangleName = 5
};
/// Numbers of the variable INSUNITS.
enum UnitsValue : int
{
    kUnitsUndefined = 0,
    kUnitsInches = 1,
    kUnitsMillimeters = 4
};
/// Numbers of the variable MEASUREMENT.
enum MeasurementValue : int
{
    kEnglish = 0,
    kMetric = 1
};
} // namespace AcDb

class HOST_API AcDbDatabase : public AcRxObject
{
public:
    /// The value of INSUNITS, 0 to 24.
    virtual AcDb::UnitsValue insunits() const = 0;
    virtual Acad::ErrorStatus setInsunits(AcDb::UnitsValue units) = 0;
    virtual AcDb::MeasurementValue measurement() const = 0;
    virtual Acad::ErrorStatus setMeasurement(AcDb::MeasurementValue value) = 0;
    virtual bool isPartiallyOpened() const = 0;

    /// From now on the reactor is told of changes; see hostapi/reactors.h. eDuplicateKey when it is
    /// there already, eNullObjectPointer.
    virtual Acad::ErrorStatus addReactor(AcDbDatabaseReactor* reactor) const = 0;
    /// eKeyNotFound when it is not there.
    virtual Acad::ErrorStatus removeReactor(AcDbDatabaseReactor* reactor) const = 0;

    /// Root of the named objects.
    virtual AcDbObjectId namedObjectsDictionaryId() const = 0;
    virtual Acad::ErrorStatus getNamedObjectsDictionary(AcDbDictionary*& dictionary,
                                                        AcDb::OpenMode mode = AcDb::kForRead) = 0;
    /// Block record of the space that is current (variable TILEMODE).
    virtual AcDbObjectId currentSpaceId() const = 0;
    /// The object with that handle, erased ones included. eNullHandle, eUnknownHandle. An id is
    /// never made for a handle that nobody has, whatever `createIfNotFound` says.
    virtual Acad::ErrorStatus getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound,
                                              const AcDbHandle& handle) const = 0;

    /// Copies objects of this drawing, with all that they own, below `owner`: entities into a block
    /// record, objects into a dictionary under their old keys, or an anonymous key where that is
    /// taken. References to what was copied name the copies, others stay. Nothing is copied after a
    /// failure: eNullObjectId, eWrongDatabase, eWasErased, eNotThatKindOfClass (an object that
    /// cannot stand below that owner, as a part of an entity or an insert of the block itself),
    /// eLockViolation. An object of the list that stands below another one is copied with that.
    /// `map` holds the pairs afterwards. All changes fall into the present step of undoing.
    virtual Acad::ErrorStatus deepCloneObjects(const AcDbObjectIdArray& objects, AcDbObjectId owner,
                                               AcDbIdMapping& map) = 0;
    /// Copies objects of another drawing below `owner`, which is of this one, with all that they
    /// own or point to hard; what they own softly only when it is in the list too. What they point
    /// to comes to its own place in this drawing, and the layers and the like that they use are
    /// made where they are missing. References to what was not copied become null. Table records
    /// are copied when `owner` is their table. `cloning` decides about names that are taken;
    /// kDrcNotApplicable leaves that to the merge styles of the xrecords and dictionaries, as it
    /// always is for what comes to its own place. A dictionary that is not replaced takes in the
    /// entries that it lacks. Failures as above; eWrongDatabase also for objects of this drawing or
    /// of several ones, eWasOpenForRead and the like for an entry that would be replaced.
    virtual Acad::ErrorStatus wblockCloneObjects(const AcDbObjectIdArray& objects,
                                                 AcDbObjectId owner, AcDbIdMapping& map,
                                                 AcDb::DuplicateRecordCloning cloning) = 0;
    /// The annotation scales; see hostapi/annotation.h. Belongs to the database.
    virtual AcDbObjectContextManager* objectContextManager() const = 0;
    ~AcDbDatabase() override;
};

class HOST_API AcDbHostApplicationServices : public AcRxObject
{
public:
    /// Database of the current document; null when none is open.
    virtual AcDbDatabase* workingDatabase() const = 0;
    ~AcDbHostApplicationServices() override;
};

HOST_API AcDbHostApplicationServices* acdbHostApplicationServices();

/// eInvalidAdsName for a selection set or a name that no open drawing has.
HOST_API Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name);
/// eNullObjectId for a null id.
HOST_API Acad::ErrorStatus acdbGetAdsName(ads_name& name, AcDbObjectId id);
