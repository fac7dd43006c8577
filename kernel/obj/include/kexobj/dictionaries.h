// SPDX-License-Identifier: LicenseRef-ORVALD
// Dictionaries and xrecords below a drawing's named object dictionary, by keys whose components are
// their names: texts, or integers, which stand for their decimal text.
#pragma once

#include "hostapi/objects.h"
#include "kexdata/data_item.h"
#include "kexobj/export.h"

namespace KEX {

/// The database that the calls below mean when none is given: that of the current document; null
/// when none is open.
KEX_OBJ_API AcDbDatabase* currentDatabase();

/// The dictionary at a key; the root for the empty one. With `create` those that are missing are
/// made, all or none. Null when it is absent, when something else has one of the names, and when
/// one of them is no name for a dictionary entry.
KEX_OBJ_API AcDbObjectId dictId(AcDbDatabase* database, const CKexDataKey& key, bool create);
/// The xrecord at a key, whose last component is its name in the dictionary at the others; with
/// `create` all that is missing is made. Null when it is absent, for the empty key, and as above.
KEX_OBJ_API AcDbObjectId dictXrecId(AcDbDatabase* database, const CKexDataKey& key, bool create);

/// An entry of a dictionary.
struct DictEntry
{
    CKexString name;
    AcDbObjectId id;
};
/// The entries of a dictionary in the host's order, sorted by name without regard to case; none
/// when the id is none of a dictionary.
KEX_OBJ_API CKexArrayTempl<DictEntry> dictDir(AcDbObjectId dictionary);

/// The item in the xrecord at a dictionary key, or its child at a key; null when it is absent.
KEX_OBJ_API std::unique_ptr<CKexDataItem> dxrGet(const CKexDataKey& record,
                                                 const CKexDataKey& key = {});
/// Writes an item there, as xrPut; with `create` a record that is missing is made, but not for
/// taking something away. Gives the record's id, null on failure.
KEX_OBJ_API AcDbObjectId dxrPut(const CKexDataKey& record, const CKexDataKey& key,
                                std::unique_ptr<CKexDataItem> item, bool create = true);

/// Name under which an object is entered in its owner, below the named object dictionary, with
/// `anyOwner` in any dictionary; "" when it is not.
KEX_OBJ_API CKexString objDictName(AcDbObjectId object, bool anyOwner = false);
/// Names from below the named object dictionary down to the object, its own last; none for the root
/// and for what does not stand below it.
KEX_OBJ_API CKexArrayTempl<CKexString> obj_dict_path(AcDbObjectId object);

} // namespace KEX
