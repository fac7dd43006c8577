// SPDX-License-Identifier: LicenseRef-ORVALD
// Functions over the data of objects: extension records and lists of hard pointers. An object that
// cannot be opened, erased ones among them, is nil, never an error.
#include "dbbridge/dbbridge_rows.h"
#include "dbbridge/hard_pointers.h"
#include "kex/units.h"
#include "kexdata/configuration.h"
#include "kexobj/data_cache.h"
#include "kexobj/open_object.h"
#include "kexobj/xrecords.h"
#include "marshal/arg_reader.h"
#include "marshal/from_rb.h"
#include "marshal/ret_ads.h"
#include "object_data.h"

namespace KEX {
namespace {

/// The second argument of the functions for which nil is no key but asks for nothing.
std::optional<CKexDataKey> readKeyOrNil(ArgReader& in, int position)
{
    const bool isNil = !in.isLast() && in.peek()->restype == RTNIL;
    CKexDataKey key = in.key(position);
    if (isNil) return std::nullopt;
    return key;
}

CKexString readListName(ArgReader& in, int position)
{
    const CKexString name = in.string(position);
    in.require(isHardPointerName(name.c_str()), position);
    return name;
}

} // namespace

int kexXrObj(const resbuf* args)
{
    ArgReader in(args);
    const AcDbObjectId id = in.objectId(1);
    const bool create = in.flag();
    if (in.failed()) return in.fail();
    const OpenObject<AcDbObject> object(id, create ? AcDb::kForWrite : AcDb::kForRead);
    AcDbObjectId record;
    if (object) xrecId(*object, record, create);
    return retAds(record);
}

int kexXrGet(const resbuf* args)
{
    ArgReader in(args);
    const AcDbObjectId id = in.objectId(1);
    const std::optional<CKexDataKey> key = readKeyOrNil(in, 2);
    if (in.failed()) return in.fail();
    return key.has_value() ? retAds(xrGet(id, *key).get()) : retAds(false);
}

int kexXrMod(const resbuf* args)
{
    ArgReader in(args);
    const AcDbObjectId id = in.objectId(1);
    const CKexDataKey key = in.key(2);
    CKexDataItem value = in.dataAt(key, 3);
    if (in.failed()) return in.fail();
    const OpenObject<AcDbObject> object(id, AcDb::kForWrite);
    return retAds(object && objectDataSet(*object, key, std::move(value)));
}

int kexXrDir(const resbuf* args)
{
    ArgReader in(args);
    const AcDbObjectId id = in.objectId(1);
    const CKexDataKey key = in.key(2);
    if (in.failed()) return in.fail();
    const std::unique_ptr<CKexDataItem> item = xrGet(id, key);
    return item == nullptr ? retAds(false) : retAds(item->getKeyList());
}

int kexXdGet(const resbuf* args)
{
    ArgReader in(args);
    const AcDbObjectId id = in.objectId(1);
    const std::optional<CKexDataKey> key = readKeyOrNil(in, 2);
    if (in.failed()) return in.fail();
    return key.has_value() ? retAds(xd_get(id, *key)) : retAds(false);
}

int kexXdMod(const resbuf* args)
{
    ArgReader in(args);
    const AcDbObjectId id = in.objectId(1);
    const CKexDataKey key = in.key(2);
    CKexDataItem value = in.dataAt(key, 3);
    if (in.failed()) return in.fail();
    return retAds(cachedDataSet(id, key, std::move(value)));
}

int kexXdDir(const resbuf* args)
{
    ArgReader in(args);
    const AcDbObjectId id = in.objectId(1);
    const CKexDataKey key = in.key(2);
    if (in.failed()) return in.fail();
    const CKexDataItem* item = xd_get(id, key);
    return item == nullptr ? retAds(false) : retAds(item->getKeyList());
}

int kexXdFlush(const resbuf* args)
{
    // kept: T also when something could not be written, which the user is told
    if (args != nullptr && args->restype == RTENAME) xd_flush(ArgReader(args).objectId(1));
    else xd_close(false);
    return retAds(true);
}

int dGet(const resbuf* args)
{
    ArgReader in(args);
    const AcDbObjectId id = in.objectId(1);
    const CKexDataKey key = in.key(2);
    if (in.failed()) return in.fail();
    const std::unique_ptr<CKexDataItem> item = xrGet(id, key);
    return item == nullptr ? retValue(in.peek()) : retAds(item.get());
}

int dCopy(const resbuf* args)
{
    ArgReader in(args);
    const AcDbObjectId from = in.objectId(1);
    const AcDbObjectId to = in.objectId(2);
    const CKexDataKey key = in.isLast() ? CKexDataKey() : in.key(3);
    if (in.failed()) return in.fail();
    const std::unique_ptr<CKexDataItem> item = xrGet(from, key);
    if (item == nullptr) return retAds(false);
    const OpenObject<AcDbObject> object(to, AcDb::kForWrite);
    return retAds(object && objectDataSet(*object, key, std::move(*item)));
}

int dRemove(const resbuf* args)
{
    ArgReader in(args);
    const AcDbObjectId id = in.objectId(1);
    const bool all = in.flag();
    if (in.failed()) return in.fail();
    return retAds(objectDataRemove(id, all));
}

int dFind(const resbuf* args)
{
    ArgReader in(args);
    const CKexDataKey key = in.key(1);
    const CKexDataItem value = in.isLast() ? CKexDataItem() : in.data(2);
    const std::optional<AcArray<AcDbObjectId>> given = in.objectIdsIfAny(3);
    if (in.failed()) return in.fail();
    const double tol = cfg_length(KT("_RNDF"), Kex::kUnitDrawing);
    return retAds(
        objectsWithData(given.has_value() ? *given : currentSpaceEntities(), key, value, tol));
}

int dHardPointer(const resbuf* args)
{
    ArgReader in(args);
    const AcDbObjectId id = in.objectId(1);
    const CKexString name = readListName(in, 2);
    in.require(!in.isLast(), 3);
    const AcDbObjectId target = in.objectIdIfAny(3);
    if (in.failed()) return in.fail();
    const OpenObject<AcDbObject> owner(id, AcDb::kForWrite);
    if (!owner) return retAds(false);
    // kept: an erased target empties the list, and nil adds nothing and fails
    const bool erased = !target.isNull() && target.isErased();
    return retAds(erased ? setHardPointer(owner.get(), name.c_str(), AcArray<AcDbObjectId>())
                         : addHardPointer(owner.get(), name.c_str(), target));
}

int dHardPointerRem(const resbuf* args)
{
    ArgReader in(args);
    const AcDbObjectId id = in.objectId(1);
    const CKexString name = readListName(in, 2);
    const AcDbObjectId target = in.objectId(3);
    if (in.failed()) return in.fail();
    const OpenObject<AcDbObject> owner(id, AcDb::kForWrite);
    return retAds(owner && removeHardPointer(owner.get(), name.c_str(), target));
}

int dHardPointerGet(const resbuf* args)
{
    ArgReader in(args);
    const AcDbObjectId id = in.objectId(1);
    const CKexString name = readListName(in, 2);
    if (in.failed()) return in.fail();
    const OpenObject<AcDbObject> owner(id);
    AcArray<AcDbObjectId> targets;
    if (owner) getHardPointer(owner.get(), name.c_str(), targets);
    return retAds(targets);
}

} // namespace KEX
