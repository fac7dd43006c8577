// SPDX-License-Identifier: LicenseRef-ORVALD
// Functions over dictionaries of the drawing and the data in their xrecords.
#include "dbbridge/byte_array.h"
#include "dbbridge/dbbridge_rows.h"
#include "file/file_rows.h"
#include "kexobj/dictionaries.h"
#include "marshal/arg_reader.h"
#include "marshal/ret_ads.h"
#include "object_data.h"

namespace KEX {
namespace {

/// A dictionary by its name or its key; null when there is none.
AcDbObjectId readDictionary(ArgReader& in, int position)
{
    const resbuf* argument = in.peek();
    if (argument != nullptr && argument->restype == RTENAME) return in.objectId(position);
    const CKexDataKey key = in.key(position);
    return in.failed() ? AcDbObjectId() : dictId(nullptr, key, false);
}

CKexDataKey readFullKey(ArgReader& in, int position)
{
    const CKexDataKey key = in.key(position);
    in.require(!key.isEmpty(), position);
    return key;
}

} // namespace

int kexDictObj(const resbuf* args)
{
    ArgReader in(args);
    in.require(!in.isLast(), 1);
    if (in.failed()) return in.fail();
    CKexDataKey key;
    const resbuf* rest = args;
    if (!dataKeyFromRb(key, rest)) return retAds(false); // kept: a bad key is nil, not an error
    const bool create = rest == nullptr || rest->restype == RTT;
    return retAds(dictId(nullptr, key, create));
}

int kexDictDir(const resbuf* args)
{
    ArgReader in(args);
    const AcDbObjectId dictionary = readDictionary(in, 1);
    if (in.failed()) return in.fail();
    CKexArrayTempl<CKexString> names;
    for (const DictEntry& entry : dictDir(dictionary)) names.append(entry.name);
    return retAds(names);
}

int kexDwgDictDir(const resbuf* args)
{
    ArgReader in(args);
    const CKexDataKey key = in.key(0);
    if (in.failed()) return in.fail();
    CKexArrayTempl<CKexString> names;
    for (const DictEntry& entry : dictDir(dictId(nullptr, key, false))) {
        if (entry.id.objectClass() == AcDbDictionary::desc()) names.append(entry.name);
    }
    return retAds(names);
}

int kexDxrGet(const resbuf* args)
{
    ArgReader in(args);
    const DataPlace place = DataPlace::read(in, 1);
    const CKexDataKey key = in.key(2);
    if (in.failed()) return in.fail();
    return retAds(place.get(key).get());
}

int kexDxrMod(const resbuf* args)
{
    ArgReader in(args);
    const DataPlace place = DataPlace::read(in, 1);
    const CKexDataKey key = in.key(2);
    CKexDataItem value = in.dataAt(key, 3);
    if (in.failed()) return in.fail();
    return retAds(place.put(key, std::move(value)));
}

int kexDxrDir(const resbuf* args)
{
    ArgReader in(args);
    const DataPlace place = DataPlace::read(in, 1);
    const CKexDataKey key = in.key(2);
    const bool deep = in.flag();
    if (in.failed()) return in.fail();
    const std::unique_ptr<CKexDataItem> item = place.get(key);
    if (item == nullptr) return retAds(false);
    if (!deep) return retAds(item->getKeyList());
    RbBuilder paths;
    for (const CKexDataKey& path : item->getPathList()) {
        paths.begin();
        for (const DataKeyPart& part : path) rbPut(paths, part);
        paths.end();
    }
    return retList(paths.take());
}

int kexObjDictName(const resbuf* args)
{
    ArgReader in(args);
    const AcDbObjectId id = in.objectId(1);
    const bool anyOwner = in.flag();
    if (in.failed()) return in.fail();
    const CKexString name = objDictName(id, anyOwner);
    return name.isNull() ? retAds(false) : retAds(name);
}

int kexObjDictPath(const resbuf* args)
{
    ArgReader in(args);
    const AcDbObjectId id = in.objectId(1);
    if (in.failed()) return in.fail();
    return retAds(obj_dict_path(id));
}

int kexObjDictDir(const resbuf* args)
{
    ArgReader in(args);
    const CKexDataKey key = in.key(1);
    if (in.failed()) return in.fail();
    RbBuilder pairs;
    for (const DictEntry& entry : dictDir(dictId(nullptr, key, false))) {
        CAdsName name;
        acdbGetAdsName(name.asName(), entry.id);
        pairs.begin().text(entry.name).name(name).endDotted();
    }
    return retList(pairs.take());
}

int kexFileToXrec(const resbuf* args)
{
    ArgReader in(args);
    const CKexString file = in.path(1);
    const DataPlace place = DataPlace::read(in, 2);
    const CKexDataKey key = readFullKey(in, 3);
    if (in.failed()) return in.fail();
    CKexDataItem bytes;
    if (!kexFileToDataItem(&bytes, file.c_str())) return retAds(false);
    return retAds(!place.put(key, std::move(bytes)).isNull());
}

int kexFileFromXrec(const resbuf* args)
{
    ArgReader in(args);
    const CKexString file = in.path(1);
    const DataPlace place = DataPlace::read(in, 2);
    const CKexDataKey key = readFullKey(in, 3);
    if (in.failed()) return in.fail();
    const std::unique_ptr<CKexDataItem> bytes = place.get(key);
    // Another item would read as no bytes, and empty the file.
    const bool isFile = bytes != nullptr && isByteArray(*bytes);
    return retAds(isFile && kexFileFromDataItem(bytes.get(), file.c_str()));
}

} // namespace KEX
