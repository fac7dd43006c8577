// SPDX-License-Identifier: LicenseRef-ORVALD
// Comparing data items as values of construction data, and telling whether data has changed.
#pragma once

#include "kexdata/data_item.h"

namespace KEX {

/// Equal as construction data: directories whatever their order; reals within `tol`, also those of
/// points, each for itself, and against integers; integers and texts exactly; a list like (1 2 3)
/// and the point (1.0 2.0 3.0); an empty directory and nil, which LISP does not tell apart. What
/// stands at a key of `ignored`, a path from the items on, may differ and may be missing.
KEX_DATA_API bool dataEqual(const CKexDataItem& a, const CKexDataItem& b, double tol,
                            const CKexArrayTempl<CKexDataKey>& ignored = {});

/// CRC-32 of the item's node in a data file whose directories are sorted: the file's own check.
KEX_DATA_API std::uint32_t dataCrc(const CKexDataItem& item);

} // namespace KEX
