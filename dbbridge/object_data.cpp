// SPDX-License-Identifier: LicenseRef-ORVALD
#include "object_data.h"

#include "dbbridge/hard_pointers.h"
#include "hostapi/entity.h"
#include "kexdata/data_compare.h"
#include "kexdata/data_dir.h"
#include "kexobj/data_cache.h"
#include "kexobj/dictionaries.h"
#include "kexobj/open_object.h"
#include "kexobj/xrecords.h"
#include "marshal/arg_reader.h"

namespace KEX {
namespace {

/// Record of the reference map: for each referenced object, under its handle, who refers to it.
CKexDataKey referenceMap()
{
    CKexDataKey key;
    key.set(RTSTR, KT("KEX_LOBJ"), RTSTR, KT("REF"), 0);
    return key;
}

/// A list without one name; false when it does not hold it.
bool dropName(CKexDataItem& list, const CAdsName& name)
{
    const auto isIt = [&name](const CKexDataItem& value) {
        CAdsName other;
        return value.get(other) && other == name;
    };
    if (isIt(list)) {
        list.clear();
        return true;
    }
    CKexDataItem::Values values = list.listValues();
    if (std::erase_if(values, isIt) == 0) return false;
    list = CKexDataItem::list(std::move(values));
    return true;
}

bool dropReferences(const CAdsName& name)
{
    const std::unique_ptr<CKexDataItem> map = dxrGet(referenceMap());
    if (map == nullptr || !map->isDir()) return false;
    bool any = false;
    for (const CKexDataKey& key : map->getKeyList()) {
        CKexDataItem& list = *map->find(key);
        if (!dropName(list, name)) continue;
        any = true;
        if (list.isNil()) map->remove(key);
    }
    if (!any) return false;
    const bool isEmpty = map->getDir()->isEmpty();
    auto rest = isEmpty ? nullptr : std::make_unique<CKexDataItem>(std::move(*map));
    return !dxrPut(referenceMap(), CKexDataKey(), std::move(rest)).isNull();
}

} // namespace

bool objectDataSet(AcDbObject& object, const CKexDataKey& key, CKexDataItem value)
{
    if (key.isEmpty()) return xrSet(object, value.isNil() ? nullptr : &value);
    std::unique_ptr<CKexDataItem> item = xrGet(object);
    if (value.isNil()) {
        if (item == nullptr || !item->remove(key)) return true;
        return xrSet(object, item->getDir()->isEmpty() ? nullptr : item.get());
    }
    if (item == nullptr) item = std::make_unique<CKexDataItem>(CKexDataItem::directory());
    return item->put(key, std::move(value)) && xrSet(object, item.get());
}

bool cachedDataSet(AcDbObjectId id, const CKexDataKey& key, CKexDataItem value)
{
    const std::shared_ptr<CKexDataItem> item = xd_init(id, true);
    if (item == nullptr) return false;
    if (!value.isNil()) return item->put(key, std::move(value));
    item->remove(key);
    return true;
}

bool objectDataRemove(AcDbObjectId id, bool all)
{
    xd_flush(id); // what waits in the cache would come back
    const OpenObject<AcDbObject> object(id, AcDb::kForWrite);
    if (!object) return false;
    AcDbObjectId record;
    const bool isRecord = AcDbXrecord::cast(object.get()) != nullptr;
    const bool hasData = isRecord ? xrGet(*object) != nullptr : xrecId(*object, record, false);
    bool any = hasData && xrSet(*object, nullptr);
    if (!all) return any;
    any |= removeHardPointerLists(*object);
    CAdsName name;
    acdbGetAdsName(name.asName(), id);
    return dropReferences(name) || any;
}

AcArray<AcDbObjectId> currentSpaceEntities()
{
    AcArray<AcDbObjectId> entities;
    AcDbDatabase* const database = currentDatabase();
    if (database == nullptr) return entities;
    const AcDbObjectId space = database->currentSpaceId();
    ads_name name;
    for (int found = acdbEntNext(nullptr, name); found == RTNORM; found = acdbEntNext(name, name)) {
        AcDbObjectId id;
        if (acdbGetObjectId(id, name) != Acad::eOk) break;
        // Parts of entities are owned by these.
        const OpenObject<AcDbEntity> entity(id);
        if (entity && entity->ownerId() == space) entities.append(id);
    }
    return entities;
}

AcArray<AcDbObjectId> objectsWithData(const AcArray<AcDbObjectId>& objects, const CKexDataKey& key,
                                      const CKexDataItem& value, double tol)
{
    AcArray<AcDbObjectId> found;
    for (const AcDbObjectId id : objects) {
        const std::unique_ptr<CKexDataItem> item = xrGet(id, key);
        if (item != nullptr && (value.isNil() || dataEqual(*item, value, tol))) found.append(id);
    }
    return found;
}

DataPlace DataPlace::read(ArgReader& in, int position)
{
    DataPlace place;
    const resbuf* argument = in.peek();
    if (argument != nullptr && argument->restype == RTENAME) {
        place.object_ = in.objectId(position);
    } else {
        place.record_ = in.key(position);
        in.require(!place.record_.isEmpty(), position);
    }
    return place;
}

std::unique_ptr<CKexDataItem> DataPlace::get(const CKexDataKey& key) const
{
    return record_.isEmpty() ? xrGet(object_, key) : dxrGet(record_, key);
}

AcDbObjectId DataPlace::put(const CKexDataKey& key, CKexDataItem value) const
{
    AcDbObjectId record;
    const bool isRecord = object_.objectClass() == AcDbXrecord::desc();
    if (!record_.isEmpty() || isRecord) {
        auto item = value.isNil() ? nullptr : std::make_unique<CKexDataItem>(std::move(value));
        record =
            isRecord ? xrPut(object_, key, std::move(item)) : dxrPut(record_, key, std::move(item));
    } else {
        const OpenObject<AcDbObject> object(object_, AcDb::kForWrite);
        if (!object || !objectDataSet(*object, key, std::move(value))) return {};
        xrecId(*object, record, false);
    }
    return record.isErased() ? AcDbObjectId() : record;
}

} // namespace KEX
