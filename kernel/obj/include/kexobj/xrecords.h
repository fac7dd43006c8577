// SPDX-License-Identifier: LicenseRef-ORVALD
// Data items and other groups of an object of the drawing, in xrecords.
//
// An object's data item stands in the xrecord "KEX_DATA" of its extension dictionary; that of an
// xrecord in the xrecord itself. Objects are opened and closed as needed: a function that takes an
// id fails when the object cannot be opened; one that takes an object needs it open for write where
// it may write, and never fails for an object that is erased but open.
#pragma once

#include "hostapi/objects.h"
#include "kexdata/data_item.h"
#include "kexobj/export.h"

namespace KEX {

/// Name of an object's data xrecord, reserved for the kernel.
inline constexpr const ACHAR* kDataXrecord = KT("KEX_DATA");

/// The data item of an object, or the child at a key; null when it is absent. `openErased`: of an
/// erased object as well.
KEX_OBJ_API std::unique_ptr<CKexDataItem> xrGet(const AcDbObject& object,
                                                const CKexDataKey& key = {});
KEX_OBJ_API std::unique_ptr<CKexDataItem> xrGet(AcDbObjectId id, const CKexDataKey& key = {},
                                                bool openErased = false);

/// Writes an object's data item; null takes it away, with the xrecord and with an extension
/// dictionary that is empty then (an xrecord of its own is emptied). With `dataOnly` an entity
/// counts as looking as before. False, and no change, when the object is not open for write, holds
/// an item of a later version or, being an xrecord, something else than an item, when the item
/// names an object of another drawing, and when somebody has the record or its dictionary open.
KEX_OBJ_API bool xrSet(AcDbObject& object, const CKexDataItem* item, bool dataOnly = true);

/// Writes an item at a key into the xrecord with that id, in place of what stood there; null takes
/// it away. The empty key is the whole item. With `create` the directories on the way are made. An
/// item that is taken away, or has lost its last key, goes with its record, which is erased.
/// Gives the id; null, and no change, on failure: no xrecord, an item of a later version, something
/// else than an item in a record that is not an object's data xrecord, a value on the way.
KEX_OBJ_API AcDbObjectId xrPut(AcDbObjectId xrecord, const CKexDataKey& key,
                               std::unique_ptr<CKexDataItem> item, bool create = true);

/// The object's data xrecord, the object itself when it is an xrecord. Without `create`, false when
/// there is none; else an empty one is made, which needs the object open for write.
KEX_OBJ_API bool xrecId(AcDbObject& object, AcDbObjectId& xrecord, bool create);

/// Groups of a named xrecord of the object's extension dictionary; none when there is no such
/// record.
KEX_OBJ_API CSmartResbuf xrecRbGet(const AcDbObject& object, const ACHAR* name);
/// Writes them, and makes what is missing; an empty chain leaves an empty record. The object is
/// open for write. False, and no change, when that fails, as it does for groups that no xrecord may
/// have and when something else than an xrecord has the name.
KEX_OBJ_API bool xrecRbSet(AcDbObject& object, const ACHAR* name, const resbuf* groups);

} // namespace KEX
