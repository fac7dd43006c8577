// SPDX-License-Identifier: LicenseRef-ORVALD
// The cache of objects' data items: an item is read from its xrecord once and written back once,
// however often it is used between. What the cache holds is seen by these functions only until it
// is written: by xd_flush, by saving, when another document becomes the current one, when the
// drawing is closed and when the module is unloaded.
//
// An item whose xrecord changes underneath, by whatever it is (lists, classes, UNDO), is read again
// when it is asked for. Changes of its own that are not written yet are kept and written over the
// others, which the user is told. An item follows its xrecord when objects swap their ids; one that
// has none yet stays with the id, and copies of objects have what is written: so flush before
// objects are swapped or copied. Items of erased objects wait for their return; they are written,
// too. LISP thread only.
#pragma once

#include "hostapi/objects.h"
#include "kexdata/data_item.h"
#include "kexobj/export.h"

#include <memory>

namespace KEX {

/// The cached item of an object, read from the drawing when it is not in the cache. An object and
/// its data xrecord have one item. `create`: for changing; the item is an empty directory when the
/// object has none, and it will be written. Null when the object has no data (without `create`), is
/// erased or cannot be opened, for `create` also when it cannot be written or holds an item of a
/// later version. Holds the item as long as the pointer lives, but a change after the next flush is
/// not written.
KEX_OBJ_API std::shared_ptr<CKexDataItem> xd_init(AcDbObjectId id, bool create);
/// The item at a key; null when it is absent. Holds until the next call of this cache.
KEX_OBJ_API const CKexDataItem* xd_get(AcDbObjectId id, const CKexDataKey& key = {});
/// Takes what stands at a key away; an emptied item goes whole. False when nothing stands there, or
/// the object cannot be written.
KEX_OBJ_API bool xd_remove(AcDbObjectId id, const CKexDataKey& key);
/// Writes an object's item when it has changed: an empty one is taken away. True when there was
/// nothing to write; on failure the item stays in the cache.
KEX_OBJ_API bool xd_flush(AcDbObjectId id);
/// Empties the cache: writes what has changed or, with `discard`, forgets it. False when something
/// could not be written, which stays and which the user is told with the object's handle.
KEX_OBJ_API bool xd_close(bool discard);
/// Writes, and drops, what belongs to one drawing. As above.
KEX_OBJ_API bool xd_close(AcDbDatabase* database);

} // namespace KEX
