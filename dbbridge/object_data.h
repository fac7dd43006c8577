// SPDX-License-Identifier: LicenseRef-ORVALD
// Operations of the LISP functions on data in the drawing.
#pragma once

#include "hostapi/objects.h"
#include "kex/ename.h"
#include "kexdata/data_item.h"

namespace KEX {

class ArgReader;

/// Puts a value at a key of an object's data item, the whole item at the empty key, and writes it
/// back; the entity looks as before. nil takes away what stands there; an item that has lost its
/// last key goes whole. False, and no change, where xrSet fails and when a value stands on the way.
bool objectDataSet(AcDbObject& object, const CKexDataKey& key, CKexDataItem value);

/// The same in the cache: the drawing is written later. False, and no change, when the object
/// cannot be written and when a value stands on the way.
bool cachedDataSet(AcDbObjectId id, const CKexDataKey& key, CKexDataItem value);

/// Takes away an object's data item, that of the cache too, and, with `all`, its hard-pointer lists
/// and its name in the lists of the reference map. False when there was nothing.
bool objectDataRemove(AcDbObjectId id, bool all);

/// The living entities of the current space in drawing order.
AcArray<AcDbObjectId> currentSpaceEntities();

/// Those of the objects whose data has the key and, unless `value` is nil, holds it there: equal by
/// dataEqual, lengths within `tol`.
AcArray<AcDbObjectId> objectsWithData(const AcArray<AcDbObjectId>& objects, const CKexDataKey& key,
                                      const CKexDataItem& value, double tol);

/// Where functions of two keys find their data: an xrecord by the key of its dictionary, an xrecord
/// by its name, or the data item of any other object.
class DataPlace
{
public:
    /// Reads an argument: the name of an object, or a key that is not empty.
    static DataPlace read(ArgReader& in, int position);

    /// The item at a key; null when it is absent.
    std::unique_ptr<CKexDataItem> get(const CKexDataKey& key) const;
    /// Puts a value at a key as objectDataSet does; a record that holds nothing is erased, one that
    /// is missing made. Gives the record that holds the data now; null when none does and on
    /// failure.
    AcDbObjectId put(const CKexDataKey& key, CKexDataItem value) const;

private:
    CKexDataKey record_; // empty: the object is meant
    AcDbObjectId object_;
};

} // namespace KEX
