// SPDX-License-Identifier: LicenseRef-ORVALD
// Dictionaries and xrecords through classes.
#include "database.h"
#include "document.h"
#include "drawing/object_data.h"
#include "drawing/text.h"
#include "host.h"
#include "object_access.h"
#include "open_objects.h"
#include "resbuf/groups.h"

#include <algorithm>

using namespace orvald;
using drawing::Dictionary;
using drawing::Index;
using drawing::kNone;
using drawing::Record;

namespace {

std::string formOf(const ACHAR* text)
{
    return text == nullptr ? std::string() : drawing::fileForm(std::u16string_view(text));
}

/// A key as it may stand in a dictionary; "*" asks for an anonymous one.
bool isKey(std::string_view form) { return form == "*" || drawing::isSymbolName(form, true); }

/// Entry under a key that is not erased; kNone when there is none.
Index entryAt(const AcDbObject& dictionary, const ACHAR* key)
{
    const AcDbObjectAccess::State& state = AcDbObjectAccess::state(dictionary);
    if (state.fresh || key == nullptr) return kNone;
    const Dictionary::Entry* entry = state.read().dictionary()->find(formOf(key));
    const Index object = entry == nullptr ? kNone : state.drawing->byHandle(entry->object);
    return object == kNone || state.drawing->at(object).erased ? kNone : object;
}

/// The entry of an object; null when it has none here.
const Dictionary::Entry* entryOf(const AcDbObject& dictionary, AcDbObjectId object)
{
    const AcDbObjectAccess::State& state = AcDbObjectAccess::state(dictionary);
    const Record* record = state.fresh ? nullptr : state.drawing->find(innerId(object));
    if (record == nullptr || record->erased) return nullptr;
    return state.read().dictionary()->find(record->handle);
}

class DictionaryIterator final : public AcDbDictionaryIterator
{
public:
    DictionaryIterator(const drawing::Drawing* drawing, Index dictionary)
        : drawing_(drawing), dictionary_(dictionary)
    {
        advance();
    }
    const ACHAR* name() const override { return name_.c_str(); }
    AcDbObjectId objectId() const override { return object_; }
    Acad::ErrorStatus getObject(AcDbObject*& object, AcDb::OpenMode mode) const override
    {
        return acdbOpenAcDbObject(object, object_, mode);
    }
    bool done() const override { return object_.isNull(); }
    bool next() override
    {
        if (!done()) advance();
        return !done();
    }

private:
    /// The walk goes on by key, so that it survives changes of the dictionary.
    void advance()
    {
        object_ = {};
        name_.clear();
        const Dictionary* entries =
            drawing_ == nullptr ? nullptr : drawing_->at(dictionary_).dictionary();
        while (entries != nullptr) {
            const Dictionary::Entry* entry = first_ ? entries->first() : entries->after(key_);
            if (entry == nullptr) return;
            first_ = false;
            key_ = entry->key;
            const Index object = drawing_->byHandle(entry->object);
            if (object == kNone || drawing_->at(object).erased) continue;
            object_ = outerId(drawing_->idOf(object));
            name_ = drawing::text16(key_);
            return;
        }
    }

    const drawing::Drawing* drawing_; // null for a new dictionary, which has no entries
    Index dictionary_;
    bool first_ = true;
    std::string key_; // of the present entry
    std::u16string name_;
    AcDbObjectId object_;
};

} // namespace

// -- dictionaries

AcDbDictionary::AcDbDictionary()
    : AcDbObject(AcDbObjectAccess::fresh(drawing::newDictionary(false)))
{
}

std::uint32_t AcDbDictionary::numEntries() const
{
    if (state().fresh) return 0;
    const drawing::Drawing& drawing = *state().drawing;
    return static_cast<std::uint32_t>(
        std::ranges::count_if(state().read().dictionary()->entries(), [&](const auto& entry) {
            const Index object = drawing.byHandle(entry.object);
            return object != kNone && !drawing.at(object).erased;
        }));
}

bool AcDbDictionary::has(const ACHAR* key) const { return entryAt(*this, key) != kNone; }
bool AcDbDictionary::has(AcDbObjectId object) const { return entryOf(*this, object) != nullptr; }

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* key, AcDbObjectId& id) const
{
    const Index object = entryAt(*this, key);
    id = object == kNone ? AcDbObjectId() : outerId(state().drawing->idOf(object));
    return object == kNone ? Acad::eKeyNotFound : Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* key, AcDbObject*& object,
                                        AcDb::OpenMode mode) const
{
    object = nullptr;
    AcDbObjectId id;
    const Acad::ErrorStatus status = getAt(key, id);
    return status == Acad::eOk ? acdbOpenAcDbObject(object, id, mode) : status;
}

Acad::ErrorStatus AcDbDictionary::nameAt(AcDbObjectId id, ACHAR*& key) const
{
    const Dictionary::Entry* entry = entryOf(*this, id);
    if (entry == nullptr) return Acad::eKeyNotFound;
    const std::u16string text = drawing::text16(entry->key);
    return acutNewString(text.c_str(), key) == RTNORM ? Acad::eOk : Acad::eOutOfMemory;
}

Acad::ErrorStatus AcDbDictionary::setAt(const ACHAR* key, AcDbObject* object, AcDbObjectId& id)
{
    State& mine = state();
    if (mine.fresh) return Acad::eNotInDatabase;
    if (!mine.writing) return Acad::eNotOpenForWrite;
    if (object == nullptr) return Acad::eNullObjectPointer;
    const std::string form = formOf(key);
    if (!isKey(form)) return Acad::eInvalidKey;
    drawing::Drawing& drawing = *mine.drawing;
    State& given = AcDbObjectAccess::state(*object);
    if (given.fresh) {
        if (given.namesOf != nullptr && given.namesOf != &drawing) return Acad::eWrongDatabase;
    } else {
        const Record& record = given.read();
        if (given.drawing != &drawing) return Acad::eWrongDatabase;
        if (!given.writing) return Acad::eNotOpenForWrite;
        if (record.family() != drawing::Family::object || drawing.standsIn(mine.index, given.index))
            return Acad::eNotThatKindOfClass;
        if (record.erased) return Acad::eWasErased;
        if (record.owner != 0) return Acad::eAlreadyInDb;
    }
    const Index taken = entryAt(*this, key);
    if (taken != kNone) {
        const AcDbObjectId old = outerId(drawing.idOf(taken));
        const Acad::ErrorStatus status = Host::instance().openObjects().whyNotWritable(old);
        if (status != Acad::eOk) return status;
        drawing.setErased(taken, true);
    }
    if (given.fresh) {
        given.index = drawing.add(std::move(*given.fresh));
        given.drawing = &drawing;
        given.fresh.reset();
        Host::instance().openObjects().adopt(*object);
    }
    drawing.removeFromDictionary(mine.index, form); // an entry whose object is lost
    drawing.addToDictionary(mine.index, form, given.index);
    mine.modified = given.modified = true;
    id = object->objectId();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::remove(const ACHAR* key, AcDbObjectId& id)
{
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    const Acad::ErrorStatus status = getAt(key, id);
    if (status != Acad::eOk) return status;
    state().drawing->removeFromDictionary(state().index, formOf(key));
    state().modified = true;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::remove(const ACHAR* key)
{
    AcDbObjectId id;
    return remove(key, id);
}

Acad::ErrorStatus AcDbDictionary::remove(AcDbObjectId id)
{
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    const Dictionary::Entry* entry = entryOf(*this, id);
    if (entry == nullptr) return Acad::eKeyNotFound;
    state().drawing->removeFromDictionary(state().index, std::string(entry->key));
    state().modified = true;
    return Acad::eOk;
}

bool AcDbDictionary::setName(const ACHAR* from, const ACHAR* to)
{
    if (!isWriteEnabled() || entryAt(*this, from) == kNone) return false;
    const std::string form = formOf(to);
    if (!drawing::isSymbolName(form, true)) return false;
    return state().edit().needExtras().dictionary->rename(formOf(from), form);
}

bool AcDbDictionary::isTreatElementsAsHard() const
{
    return state().read().tags.integer(drawing::kHardOwnerGroup) != 0;
}

Acad::ErrorStatus AcDbDictionary::setTreatElementsAsHard(bool hard)
{
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    drawing::setHardOwner(state().edit(), hard);
    return Acad::eOk;
}

AcDb::DuplicateRecordCloning AcDbDictionary::mergeStyle() const
{
    return static_cast<AcDb::DuplicateRecordCloning>(
        state().read().tags.integer(drawing::kDictionaryCloningGroup, AcDb::kDrcIgnore));
}

Acad::ErrorStatus AcDbDictionary::setMergeStyle(AcDb::DuplicateRecordCloning style)
{
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (style < AcDb::kDrcNotApplicable || style > AcDb::kDrcUnmangleName)
        return Acad::eInvalidInput;
    drawing::setDictionaryCloning(state().edit(), style);
    return Acad::eOk;
}

AcDbDictionaryIterator* AcDbDictionary::newIterator(AcRx::DictIterType) const
{
    return new DictionaryIterator(state().drawing, state().index);
}

// -- xrecords

AcDbXrecord::AcDbXrecord() : AcDbObject(AcDbObjectAccess::fresh(drawing::newXrecord())) {}

Acad::ErrorStatus AcDbXrecord::setFromRbChain(const resbuf& chain, AcDbDatabase* database)
{
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    const drawing::Drawing* drawing = state().drawing;
    if (state().fresh) {
        if (database == nullptr) database = acdbHostApplicationServices()->workingDatabase();
        if (database == nullptr) return Acad::eNoDatabase;
        drawing = &Database::drawingOf(*database);
    }
    drawing::TagList groups;
    const Acad::ErrorStatus status = drawing::xrecordGroups(*drawing, &chain, groups);
    if (status != Acad::eOk) return status;
    if (state().fresh) state().namesOf = drawing;
    drawing::setXrecordGroups(state().edit(), groups);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbXrecord::clear()
{
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    drawing::setXrecordGroups(state().edit(), {});
    if (state().fresh && state().read().extras() == nullptr) state().namesOf = nullptr;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbXrecord::rbChain(resbuf** chain, AcDbDatabase*) const
{
    if (chain == nullptr) return Acad::eInvalidInput;
    const drawing::Drawing* drawing = state().fresh ? state().namesOf : state().drawing;
    *chain = drawing == nullptr ? nullptr : drawing::xrecordChain(*drawing, state().read());
    return Acad::eOk;
}

bool AcDbXrecord::isXlateReferences() const
{
    const drawing::Extras* extras = state().read().extras();
    return extras == nullptr || !extras->keepsReferences;
}

Acad::ErrorStatus AcDbXrecord::setXlateReferences(bool translate)
{
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    Record& record = state().edit();
    record.needExtras().keepsReferences = !translate;
    record.trimExtras();
    return Acad::eOk;
}

AcDb::DuplicateRecordCloning AcDbXrecord::mergeStyle() const
{
    return static_cast<AcDb::DuplicateRecordCloning>(drawing::xrecordCloning(state().read()));
}

Acad::ErrorStatus AcDbXrecord::setMergeStyle(AcDb::DuplicateRecordCloning style)
{
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (style < AcDb::kDrcNotApplicable || style > AcDb::kDrcUnmangleName)
        return Acad::eInvalidInput;
    drawing::setXrecordCloning(state().edit(), style);
    return Acad::eOk;
}
