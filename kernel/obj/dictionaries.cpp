// SPDX-License-Identifier: LicenseRef-ORVALD
// Dictionaries and xrecords by key. What cannot be made whole is not made at all.
#include "kexobj/dictionaries.h"

#include "kex/format.h"
#include "kexobj/open_object.h"
#include "kexobj/xrecords.h"

#include <algorithm>

namespace KEX {
namespace {

CKexString nameOf(const DataKeyPart& part)
{
    return part.isText() ? part.text() : format(KT("{}"), part.number());
}

/// The entry of that name, made when it is missing and `create` is set; null when it is of another
/// class or cannot be made.
template <class Entry>
AcDbObjectId entryId(AcDbObjectId dictionary, const CKexString& name, bool create)
{
    AcDbObjectId id;
    {
        const OpenObject<AcDbDictionary> open(dictionary);
        if (open) open->getAt(name.c_str(), id);
    }
    if (!id.isNull()) return id.objectClass() == Entry::desc() ? id : AcDbObjectId();
    const OpenObject<AcDbDictionary> open(create ? dictionary : AcDbObjectId(), AcDb::kForWrite);
    auto fresh = std::make_unique<Entry>();
    if (!open || open->setAt(name.c_str(), fresh.get(), id) != Acad::eOk) return {};
    fresh.release()->close(); // the drawing's now
    return id;
}

/// Goes down from the root; what was made on the way is erased when the end is not reached.
template <class Last>
AcDbObjectId walk(AcDbDatabase* database, const CKexDataKey& key, bool create)
{
    if (database == nullptr) database = currentDatabase();
    if (database == nullptr) return {};
    AcDbObjectId id = database->namedObjectsDictionaryId();
    AcDbObjectId firstMade;
    for (int i = 0; i < key.length() && !id.isNull(); ++i) {
        const CKexString name = nameOf(key[i]);
        const auto find = [&](bool make) {
            return i + 1 == key.length() ? entryId<Last>(id, name, make)
                                         : entryId<AcDbDictionary>(id, name, make);
        };
        AcDbObjectId next = find(false);
        if (next.isNull() && create) {
            next = find(true);
            if (firstMade.isNull()) firstMade = next;
        }
        id = next;
    }
    if (id.isNull()) {
        const OpenObject<AcDbObject> made(firstMade, AcDb::kForWrite);
        if (made) made->erase();
    }
    return id;
}

/// The name under which a dictionary holds an object; nothing when it does not.
CKexString nameIn(AcDbObjectId dictionary, AcDbObjectId object)
{
    const OpenObject<AcDbDictionary> owner(dictionary);
    ACHAR* text = nullptr;
    if (!owner || owner->nameAt(object, text) != Acad::eOk) return CKexString();
    const CKexString name(text);
    acutDelString(text);
    return name;
}

} // namespace

AcDbDatabase* currentDatabase() { return acdbHostApplicationServices()->workingDatabase(); }

AcDbObjectId dictId(AcDbDatabase* database, const CKexDataKey& key, bool create)
{
    return walk<AcDbDictionary>(database, key, create);
}

AcDbObjectId dictXrecId(AcDbDatabase* database, const CKexDataKey& key, bool create)
{
    return key.isEmpty() ? AcDbObjectId() : walk<AcDbXrecord>(database, key, create);
}

CKexArrayTempl<DictEntry> dictDir(AcDbObjectId dictionary)
{
    CKexArrayTempl<DictEntry> entries;
    const OpenObject<AcDbDictionary> open(dictionary);
    if (!open) return entries;
    const std::unique_ptr<AcDbDictionaryIterator> walk(open->newIterator());
    for (; !walk->done(); walk->next()) entries.append({walk->name(), walk->objectId()});
    return entries;
}

std::unique_ptr<CKexDataItem> dxrGet(const CKexDataKey& record, const CKexDataKey& key)
{
    return xrGet(dictXrecId(nullptr, record, false), key);
}

AcDbObjectId dxrPut(const CKexDataKey& record, const CKexDataKey& key,
                    std::unique_ptr<CKexDataItem> item, bool create)
{
    AcDbObjectId xrecord = dictXrecId(nullptr, record, false);
    const bool fresh = xrecord.isNull() && create && item != nullptr;
    if (fresh) xrecord = dictXrecId(nullptr, record, true);
    const AcDbObjectId written = xrPut(xrecord, key, std::move(item), create);
    if (fresh && written.isNull()) {
        // A record that nothing could be written into shall not stay.
        const OpenObject<AcDbXrecord> made(xrecord, AcDb::kForWrite);
        if (made) made->erase();
    }
    return written;
}

CKexString objDictName(AcDbObjectId object, bool anyOwner)
{
    const OpenObject<AcDbObject> open(object);
    if (!open) return CKexString();
    if (anyOwner) return nameIn(open->ownerId(), object);
    const CKexArrayTempl<CKexString> path = obj_dict_path(object);
    return path.isEmpty() ? CKexString() : path.last();
}

CKexArrayTempl<CKexString> obj_dict_path(AcDbObjectId object)
{
    CKexArrayTempl<CKexString> names;
    AcDbDatabase* const database = object.database();
    if (database == nullptr) return names;
    const AcDbObjectId root = database->namedObjectsDictionaryId();
    // Owners of a damaged drawing may run in a circle, which comes back to one of the marked
    // objects: those after 1, 2, 4, 8 ... steps.
    AcDbObjectId marked;
    for (AcDbObjectId at = object; at != root;) {
        const OpenObject<AcDbObject> open(at);
        const AcDbObjectId owner = open ? open->ownerId() : AcDbObjectId();
        CKexString name = nameIn(owner, at);
        if (name.isNull() || at == marked) return {};
        names.append(std::move(name));
        const int steps = names.length();
        if ((steps & (steps - 1)) == 0) marked = at;
        at = owner;
    }
    std::reverse(names.begin(), names.end());
    return names;
}

} // namespace KEX
