// SPDX-License-Identifier: LicenseRef-ORVALD
// Where the data item of an object stands in the drawing.
#pragma once

#include "hostapi/objects.h"
#include "kex/resbuf_chain.h"
#include "kexobj/item_form.h"

namespace KEX {

/// A copy of the groups.
CSmartResbuf groupsOf(const AcDbXrecord& record);
/// The object's data xrecord, itself when it is one; null when there is none.
AcDbObjectId dataRecord(const AcDbObject& object);
/// The object that an xrecord holds the data of: its extension dictionary has the record under the
/// kernel's name. Null for other xrecords.
AcDbObjectId objectOf(const AcDbXrecord& record);
/// Whether the kernel may write over what the record holds, which has that form.
bool isOurs(const AcDbXrecord& record, ItemForm form);

} // namespace KEX
