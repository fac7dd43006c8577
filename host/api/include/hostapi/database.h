// SPDX-License-Identifier: LicenseRef-ORVALD
// The drawing database as far as applications reach it through classes.
#pragma once

#include "hostapi/rx.h"

/// Names an object of an open drawing for as long as the drawing is open; 0 is null. Unique over
/// all open drawings.
class AcDbObjectId
{
public:
    AcDbObjectId() = default;
    explicit constexpr AcDbObjectId(std::uint64_t value) : value_(value) {}
    constexpr bool isNull() const { return value_ == 0; }
    constexpr std::uint64_t asOldId() const { return value_; }
    friend constexpr bool operator==(AcDbObjectId, AcDbObjectId) = default;

private:
    std::uint64_t value_ = 0;
};

namespace AcDb {
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
