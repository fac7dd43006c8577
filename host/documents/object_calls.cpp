// SPDX-License-Identifier: LicenseRef-ORVALD
// Objects of a drawing through classes: opening, erasing, extended data, extension dictionaries,
// reactors, swapping ids.
#include "hostapi/objects.h"

#include "document.h"
#include "drawing/entity_functions.h"
#include "drawing/object_data.h"
#include "drawing/text.h"
#include "host.h"
#include "object_access.h"
#include "open_objects.h"

#include <algorithm>

namespace orvald {

using drawing::Index;
using drawing::kNone;
using drawing::Record;

AcRxClass* classOf(const Record& record)
{
    if (record.isEntity()) return AcDbEntity::desc();
    if (record.dictionary() != nullptr) return AcDbDictionary::desc();
    return record.kind() == drawing::Kind::xrecord ? AcDbXrecord::desc() : AcDbObject::desc();
}

} // namespace orvald

using namespace orvald;

std::unique_ptr<AcDbObject> AcDbObjectAccess::make(drawing::Drawing& drawing, Index index)
{
    auto state = std::make_unique<State>();
    state->drawing = &drawing;
    state->index = index;
    const AcRxClass* wanted = classOf(drawing.at(index));
    AcDbObject* made = nullptr;
    if (wanted == AcDbEntity::desc()) made = new AcDbEntity(std::move(state));
    else if (wanted == AcDbDictionary::desc()) made = new AcDbDictionary(std::move(state));
    else if (wanted == AcDbXrecord::desc()) made = new AcDbXrecord(std::move(state));
    else made = new AcDbObject(std::move(state));
    return std::unique_ptr<AcDbObject>(made);
}

std::unique_ptr<AcDbObjectAccess::State> AcDbObjectAccess::fresh(Record&& record)
{
    auto state = std::make_unique<State>();
    state->fresh = std::move(record);
    return state;
}

AcDbObject::AcDbObject(std::unique_ptr<State> state) : state_(std::move(state)) {}

AcDbObject::~AcDbObject()
{
    if (!state_->fresh) Host::instance().openObjects().forget(*this);
}

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased)
{
    return Host::instance().openObjects().open(object, id, mode, openErased);
}

Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased)
{
    return acdbOpenObject(entity, id, mode, openErased);
}

// -- what it is and how it is open

AcDbObjectId AcDbObject::objectId() const
{
    return state_->fresh ? AcDbObjectId() : outerId(state_->drawing->idOf(state_->index));
}

AcDbObjectId AcDbObject::ownerId() const
{
    if (state_->fresh) return {};
    const drawing::Drawing& drawing = *state_->drawing;
    return outerId(drawing.idOf(drawing.byHandle(state_->read().owner)));
}

void AcDbObject::getAcDbHandle(AcDbHandle& handle) const
{
    handle = AcDbHandle(state_->read().handle);
}

AcDbDatabase* AcDbObject::database() const { return objectId().database(); }
bool AcDbObject::isReadEnabled() const { return isWriteEnabled() || state_->readers > 0; }
bool AcDbObject::isWriteEnabled() const { return state_->mayWrite(); }
bool AcDbObject::isNotifyEnabled() const { return state_->notifying; }
bool AcDbObject::isNewObject() const { return state_->fresh.has_value(); }
bool AcDbObject::isModified() const { return state_->modified; }
bool AcDbObject::isModifiedGraphics() const { return state_->graphicsModified; }

Acad::ErrorStatus AcDbObject::close() { return Host::instance().openObjects().close(*this); }

Acad::ErrorStatus AcDbObject::upgradeOpen()
{
    if (isWriteEnabled()) return Acad::eWasOpenForWrite;
    if (state_->notifying) return Acad::eWasNotifying;
    if (state_->readers > 1) return Acad::eHadMultipleReaders;
    const Acad::ErrorStatus status = writeStatus(*state_->drawing, state_->index);
    if (status != Acad::eOk) return status;
    state_->readers = 0;
    state_->writing = true;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::downgradeOpen()
{
    if (state_->fresh) return Acad::eNotInDatabase;
    if (state_->notifying) return Acad::eWasNotifying;
    if (!state_->writing) return Acad::eNotOpenForWrite;
    state_->writing = state_->modified = state_->graphicsModified = false;
    state_->readers = 1;
    tellChanges(*state_->drawing);
    return Acad::eOk;
}

// -- erasing

bool AcDbObject::isErased() const { return state_->read().erased; }

Acad::ErrorStatus AcDbObject::erase(bool erasing)
{
    if (state_->fresh) return Acad::eNotInDatabase;
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (isErased() == erasing) return erasing ? Acad::eWasErased : Acad::eWasNotErased;
    if (!state_->drawing->mayErase(state_->index)) return Acad::eCannotBeErasedByCaller;
    state_->drawing->setErased(state_->index, erasing);
    state_->modified = state_->graphicsModified = true;
    return Acad::eOk;
}

// -- extended data

resbuf* AcDbObject::xData(const ACHAR* application) const
{
    const drawing::Drawing* drawing = state_->fresh ? state_->namesOf : state_->drawing;
    const drawing::Extras* extras = state_->read().extras();
    if (drawing == nullptr || extras == nullptr) return nullptr;
    return drawing::xdataChain(*drawing, extras->xdata,
                               application == nullptr ? std::u16string_view() : application);
}

Acad::ErrorStatus AcDbObject::setXData(const resbuf* data)
{
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    Document* document = Host::instance().current();
    const drawing::Drawing* drawing = state_->drawing;
    if (state_->fresh && document != nullptr) drawing = &document->drawing();
    if (drawing == nullptr) return Acad::eNoDatabase;
    if (state_->fresh && state_->namesOf != nullptr && state_->namesOf != drawing)
        return Acad::eWrongDatabase;
    drawing::TagList merged;
    if (const drawing::Extras* extras = state_->read().extras()) merged = extras->xdata;
    switch (drawing::mergeXdataChain(*drawing, data, merged)) {
    case drawing::ErrNo::none: break;
    case drawing::ErrNo::noApp: return Acad::eRegappIdNotFound;
    case drawing::ErrNo::xdataTooBig: return Acad::eXdataSizeExceeded;
    default: return Acad::eInvalidInput;
    }
    if (state_->fresh) state_->namesOf = drawing;
    Record& record = state_->edit();
    record.needExtras().xdata = std::move(merged);
    record.trimExtras();
    return Acad::eOk;
}

// -- extension dictionary

AcDbObjectId AcDbObject::extensionDictionary() const
{
    if (state_->fresh) return {};
    const drawing::Drawing& drawing = *state_->drawing;
    return outerId(drawing.idOf(drawing.byHandle(state_->read().extensionDictionary())));
}

Acad::ErrorStatus AcDbObject::createExtensionDictionary()
{
    if (state_->fresh) return Acad::eNotInDatabase;
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (!extensionDictionary().isNull()) return Acad::eAlreadyInDb;
    state_->drawing->needExtensionDictionary(state_->index);
    state_->modified = true;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::releaseExtensionDictionary()
{
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    const AcDbObjectId id = extensionDictionary();
    if (id.isNull()) return Acad::eKeyNotFound;
    const Acad::ErrorStatus status = Host::instance().openObjects().whyNotWritable(id);
    if (status != Acad::eOk) return status;
    if (!state_->drawing->releaseExtensionDictionary(state_->index))
        return Acad::eContainerNotEmpty;
    state_->modified = true;
    return Acad::eOk;
}

// -- persistent reactors

Acad::ErrorStatus AcDbObject::addPersistentReactor(AcDbObjectId reactor)
{
    if (state_->fresh) return Acad::eNotInDatabase;
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (reactor.isNull()) return Acad::eNullObjectId;
    const Index index = state_->drawing->indexOf(innerId(reactor));
    if (index == kNone) return Acad::eWrongDatabase;
    if (hasPersistentReactor(reactor)) return Acad::eOk;
    state_->edit().needExtras().reactors.push_back(state_->drawing->at(index).handle);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::removePersistentReactor(AcDbObjectId reactor)
{
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (!hasPersistentReactor(reactor)) return Acad::eKeyNotFound;
    Record& record = state_->edit();
    std::erase(record.needExtras().reactors, drawing::Handle{reactor.handle()});
    record.trimExtras();
    return Acad::eOk;
}

bool AcDbObject::hasPersistentReactor(AcDbObjectId reactor) const
{
    const drawing::Extras* extras = state_->read().extras();
    if (state_->fresh || extras == nullptr) return false;
    if (state_->drawing->indexOf(innerId(reactor)) == kNone) return false;
    const drawing::Handle handle = reactor.handle();
    return std::ranges::find(extras->reactors, handle) != extras->reactors.end();
}

// -- identity

Acad::ErrorStatus AcDbObject::swapIdWith(AcDbObjectId other, bool swapXdata,
                                         bool swapExtensionDictionary)
{
    if (state_->fresh) return Acad::eNoDatabase;
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (other.isNull()) return Acad::eNullObjectId;
    drawing::Drawing& drawing = *state_->drawing;
    const Index index = drawing.indexOf(innerId(other)), mine = state_->index;
    if (index == kNone) return other.isValid() ? Acad::eWrongDatabase : Acad::eNoDatabase;
    if (index == mine) return Acad::eOk;
    OpenObjects& open = Host::instance().openObjects();
    AcDbObject* const second = open.find(other);
    if (second != nullptr && !second->isWriteEnabled())
        return open.whyNotWritable(other); // readers, or one that is being notified
    if (!drawing.swapRecords(mine, index, swapXdata, swapExtensionDictionary))
        return Acad::eNotThatKindOfClass;
    open.swapped(objectId(), other);
    state_->index = index;
    state_->modified = state_->graphicsModified = true;
    if (second != nullptr) {
        second->state_->index = mine;
        second->state_->modified = second->state_->graphicsModified = true;
    }
    return Acad::eOk;
}

// -- entities

void AcDbEntity::recordGraphicsModified(bool modified) { state().graphicsModified = modified; }

AcDbObjectId AcDbEntity::blockId() const
{
    const drawing::Drawing& drawing = *state().drawing;
    return outerId(drawing.idOf(drawing.blockOf(state().index)));
}

AcDbObjectId AcDbEntity::layerId() const
{
    const drawing::Drawing& drawing = *state().drawing;
    return outerId(
        drawing.idOf(drawing.findRecord(drawing::TableId::layer, state().read().layer())));
}
