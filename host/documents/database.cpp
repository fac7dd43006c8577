// SPDX-License-Identifier: LicenseRef-ORVALD
#include "database.h"

#include "document.h"
#include "drawing/text.h"
#include "host.h"
#include "object_access.h"

#include <algorithm>
#include <charconv>

namespace orvald {

using drawing::Index;
using drawing::ObjectId;

AcDb::UnitsValue Database::insunits() const
{
    return static_cast<AcDb::UnitsValue>(drawing_.header.integer("$INSUNITS"));
}

Acad::ErrorStatus Database::setInsunits(AcDb::UnitsValue units)
{
    constexpr int kLastUnit = 24;
    if (units < 0 || units > kLastUnit) return Acad::eInvalidInput;
    set("$INSUNITS", units);
    return Acad::eOk;
}

AcDb::MeasurementValue Database::measurement() const
{
    return static_cast<AcDb::MeasurementValue>(drawing_.header.integer("$MEASUREMENT"));
}

Acad::ErrorStatus Database::setMeasurement(AcDb::MeasurementValue value)
{
    set("$MEASUREMENT", value);
    return Acad::eOk;
}

void Database::set(std::string_view variable, int value)
{
    if (drawing_.header.integer(variable, -1) == value) return;
    drawing_.header.setInteger(variable, 70, value);
    drawing_.noteChange();
}

AcDbObjectId Database::namedObjectsDictionaryId() const
{
    return AcDbObjectId(drawing_.idOf(drawing_.rootDictionary()).value);
}

Acad::ErrorStatus Database::getNamedObjectsDictionary(AcDbDictionary*& dictionary,
                                                      AcDb::OpenMode mode)
{
    return acdbOpenObject(dictionary, namedObjectsDictionaryId(), mode);
}

AcDbObjectId Database::currentSpaceId() const
{
    return AcDbObjectId(drawing_.idOf(drawing_.currentSpace()).value);
}

Acad::ErrorStatus Database::getAcDbObjectId(AcDbObjectId& id, bool, const AcDbHandle& handle) const
{
    id = {};
    if (handle.isNull()) return Acad::eNullHandle;
    const Index index = drawing_.byHandle(handle);
    if (index == drawing::kNone) return Acad::eUnknownHandle;
    id = AcDbObjectId(drawing_.idOf(index).value);
    return Acad::eOk;
}

} // namespace orvald

using namespace orvald;

// -- handles and ids

AcDbHandle::AcDbHandle(const ACHAR* text)
{
    const std::string digits = text == nullptr ? std::string() : drawing::utf8(text);
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value_, 16);
    if (error != std::errc() || stop != end) value_ = 0;
}

bool AcDbHandle::getIntoAsciiBuffer(ACHAR* buffer, std::size_t room) const
{
    const std::string digits = drawing::handleText(value_);
    if (buffer == nullptr || digits.size() >= room) return false;
    std::ranges::copy(digits, buffer);
    buffer[digits.size()] = 0;
    return true;
}

namespace {

/// The drawing and place of an id; kNone when it names nothing.
struct Place
{
    drawing::Drawing* drawing;
    Index index;
    explicit Place(AcDbObjectId id)
        : drawing(drawing::Drawing::ofId({id.asOldId()})),
          index(drawing == nullptr ? drawing::kNone : drawing->indexOf({id.asOldId()}))
    {
    }
    bool isNone() const { return index == drawing::kNone; }
};

} // namespace

bool AcDbObjectId::isValid() const { return !Place(*this).isNone(); }

bool AcDbObjectId::isErased() const
{
    const Place place(*this);
    return place.isNone() || place.drawing->at(place.index).erased;
}

bool AcDbObjectId::isEffectivelyErased() const
{
    const Place place(*this);
    return place.isNone() || place.drawing->isGone(place.index);
}

AcDbHandle AcDbObjectId::handle() const
{
    const Place place(*this);
    return AcDbHandle(place.isNone() ? 0 : place.drawing->at(place.index).handle);
}

AcDbDatabase* AcDbObjectId::database() const
{
    const Place place(*this);
    Document* document = place.isNone() ? nullptr : Host::instance().documentOf(*place.drawing);
    return document == nullptr ? nullptr : document->database();
}

AcRxClass* AcDbObjectId::objectClass() const
{
    const Place place(*this);
    return place.isNone() ? nullptr : classOf(place.drawing->at(place.index));
}
