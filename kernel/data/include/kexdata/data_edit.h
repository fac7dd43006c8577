// SPDX-License-Identifier: LicenseRef-ORVALD
// Changes of data items as LISP programs make them, where nil and an empty directory are the same.
#pragma once

#include "kexdata/data_item.h"

namespace KEX {

/// Puts a value at a key, as CKexDataItem::put does. nil takes away what stands there, and with it
/// the directories above that are empty then. The empty key is the item itself. False, and no
/// change, when a value stands on the way.
KEX_DATA_API bool dataSet(CKexDataItem& item, const CKexDataKey& key, CKexDataItem value);

/// Lays every value of `over` over an item: directories are merged, all else is replaced. nil
/// leaves a directory as it is, and the item as a whole: an empty directory comes from LISP as nil.
KEX_DATA_API void dataMerge(CKexDataItem& item, const CKexDataItem& over);

} // namespace KEX
