// SPDX-License-Identifier: LicenseRef-ORVALD
// Groups and data items in xrecords. What is to be written is brought into the form of the drawing
// before anything of the drawing is changed: a refused write leaves all as it was.
#include "kexobj/xrecords.h"

#include "data_record.h"
#include "kexdata/data_dir.h"
#include "kexobj/open_object.h"

namespace KEX {
namespace {

bool setGroups(AcDbXrecord& record, const resbuf* groups, AcDbDatabase* database = nullptr)
{
    const Acad::ErrorStatus status =
        groups == nullptr ? record.clear() : record.setFromRbChain(*groups, database);
    return status == Acad::eOk;
}

/// The entry of an object's extension dictionary; null when it is absent.
AcDbObjectId entryOf(const AcDbObject& object, const ACHAR* name)
{
    AcDbObjectId entry;
    const OpenObject<AcDbDictionary> dictionary(object.extensionDictionary());
    if (dictionary) dictionary->getAt(name, entry);
    return entry;
}

/// Enters a new xrecord under a name that is free; the object is open for write.
AcDbObjectId enter(AcDbObject& object, const ACHAR* name, std::unique_ptr<AcDbXrecord> record)
{
    // An erased dictionary keeps its place until it is released.
    if (object.extensionDictionary().isErased()) object.releaseExtensionDictionary();
    const bool made = object.createExtensionDictionary() == Acad::eOk;
    const OpenObject<AcDbDictionary> dictionary(object.extensionDictionary(), AcDb::kForWrite);
    AcDbObjectId id;
    if (dictionary && dictionary->setAt(name, record.get(), id) == Acad::eOk) {
        record.release()->close(); // the drawing's now
        return id;
    }
    if (made) object.releaseExtensionDictionary();
    return {};
}

/// Replaces the groups of an entry, which is made when it is missing; null on failure.
AcDbObjectId putEntry(AcDbObject& object, const ACHAR* name, const resbuf* groups)
{
    if (!object.isWriteEnabled()) return {};
    const AcDbObjectId id = entryOf(object, name);
    if (!id.isNull()) {
        const OpenObject<AcDbXrecord> record(id, AcDb::kForWrite);
        return record && setGroups(*record, groups) ? id : AcDbObjectId();
    }
    auto record = std::make_unique<AcDbXrecord>();
    if (!setGroups(*record, groups, object.database())) return {};
    return enter(object, name, std::move(record));
}

bool writeData(AcDbObject& object, const CKexDataItem& item)
{
    if (AcDbXrecord* record = AcDbXrecord::cast(&object))
        return isOurs(*record, itemForm(groupsOf(*record))) &&
               setGroups(*record, itemToGroups(item));
    if (itemForm(xrecRbGet(object, kDataXrecord)) == ItemForm::later) return false;
    return !putEntry(object, kDataXrecord, itemToGroups(item)).isNull();
}

bool removeData(AcDbObject& object)
{
    if (AcDbXrecord* record = AcDbXrecord::cast(&object))
        return isOurs(*record, itemForm(groupsOf(*record))) && setGroups(*record, nullptr);
    const AcDbObjectId id = entryOf(object, kDataXrecord);
    if (id.isNull()) return true;
    {
        const OpenObject<AcDbXrecord> record(id, AcDb::kForWrite);
        if (!record || itemForm(groupsOf(*record)) == ItemForm::later) return false;
        if (record->erase() != Acad::eOk) return false;
    }
    object.releaseExtensionDictionary(); // refused while it has entries
    return true;
}

/// Erases an xrecord, and the extension dictionary that is empty then.
bool dropRecord(AcDbXrecord& record)
{
    const AcDbObjectId holder = objectOf(record);
    if (record.erase() != Acad::eOk) return false;
    const OpenObject<AcDbObject> object(holder, AcDb::kForWrite);
    if (object) object->releaseExtensionDictionary();
    return true;
}

/// Puts an item at a key that is not empty; false when that cannot be.
bool put(std::unique_ptr<CKexDataItem>& whole, const CKexDataKey& key, CKexDataItem item,
         bool create)
{
    if (!create)
        return whole != nullptr && whole->isDir() &&
               whole->getDir()->set(key, std::move(item), false);
    if (whole == nullptr) whole = std::make_unique<CKexDataItem>();
    return whole->put(key, std::move(item));
}

} // namespace

CSmartResbuf groupsOf(const AcDbXrecord& record)
{
    resbuf* chain = nullptr;
    record.rbChain(&chain);
    return CSmartResbuf(chain);
}

AcDbObjectId dataRecord(const AcDbObject& object)
{
    return AcDbXrecord::cast(&object) != nullptr ? object.objectId()
                                                 : entryOf(object, kDataXrecord);
}

AcDbObjectId objectOf(const AcDbXrecord& record)
{
    const OpenObject<AcDbDictionary> dictionary(record.ownerId());
    AcDbObjectId entry;
    if (!dictionary || dictionary->getAt(kDataXrecord, entry) != Acad::eOk ||
        entry != record.objectId())
        return {};
    // For notify: whoever asks may have it open for write.
    const OpenObject<AcDbObject> object(dictionary->ownerId(), AcDb::kForNotify);
    return object && object->extensionDictionary() == dictionary->objectId() ? object->objectId()
                                                                             : AcDbObjectId();
}

bool isOurs(const AcDbXrecord& record, ItemForm form)
{
    return form == ItemForm::none || form == ItemForm::item ||
           (form == ItemForm::foreign && !objectOf(record).isNull());
}

std::unique_ptr<CKexDataItem> xrGet(const AcDbObject& object, const CKexDataKey& key)
{
    if (const AcDbXrecord* record = AcDbXrecord::cast(&object))
        return itemFromGroups(groupsOf(*record), key);
    return itemFromGroups(xrecRbGet(object, kDataXrecord), key);
}

std::unique_ptr<CKexDataItem> xrGet(AcDbObjectId id, const CKexDataKey& key, bool openErased)
{
    const OpenObject<AcDbObject> object(id, AcDb::kForRead, openErased);
    return object ? xrGet(*object, key) : nullptr;
}

bool xrSet(AcDbObject& object, const CKexDataItem* item, bool dataOnly)
{
    if (!object.isWriteEnabled()) return false;
    AcDbEntity* entity = AcDbEntity::cast(&object);
    const bool looksOtherwise = entity != nullptr && entity->isModifiedGraphics();
    const bool done = item == nullptr ? removeData(object) : writeData(object, *item);
    if (done && dataOnly && entity != nullptr && !looksOtherwise)
        entity->recordGraphicsModified(false);
    return done;
}

AcDbObjectId xrPut(AcDbObjectId xrecord, const CKexDataKey& key, std::unique_ptr<CKexDataItem> item,
                   bool create)
{
    const OpenObject<AcDbXrecord> record(xrecord, AcDb::kForWrite);
    if (!record) return {};
    const CSmartResbuf groups = groupsOf(*record);
    if (!isOurs(*record, itemForm(groups))) return {};

    std::unique_ptr<CKexDataItem> whole;
    if (key.isEmpty()) {
        whole = std::move(item);
    } else {
        whole = itemFromGroups(groups);
        if (item != nullptr) {
            if (!put(whole, key, std::move(*item), create)) return {};
        } else {
            if (whole == nullptr || !whole->remove(key)) return xrecord;
            if (whole->getDir()->isEmpty()) whole.reset();
        }
    }
    const bool done =
        whole == nullptr ? dropRecord(*record) : setGroups(*record, itemToGroups(*whole));
    return done ? xrecord : AcDbObjectId();
}

bool xrecId(AcDbObject& object, AcDbObjectId& xrecord, bool create)
{
    xrecord = dataRecord(object);
    if (xrecord.isNull() && create) xrecord = putEntry(object, kDataXrecord, nullptr);
    if (xrecord.objectClass() != AcDbXrecord::desc()) xrecord = {};
    return !xrecord.isNull();
}

CSmartResbuf xrecRbGet(const AcDbObject& object, const ACHAR* name)
{
    const OpenObject<AcDbXrecord> record(entryOf(object, name));
    return record ? groupsOf(*record) : CSmartResbuf();
}

bool xrecRbSet(AcDbObject& object, const ACHAR* name, const resbuf* groups)
{
    return !putEntry(object, name, groups).isNull();
}

} // namespace KEX
