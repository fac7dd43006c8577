// SPDX-License-Identifier: LicenseRef-ORVALD
// The form of a data item in an xrecord, version 1:
//
//   300 "KEX_ITEM", 90 1, then one value:
//     text       3 for every piece but the last one, 1 for the last
//     integer    90          real      40 (nil when it is not finite, as are points)
//     3-D point  10          2-D point 11 (Z 0)
//     entity     330, soft: data does not keep objects alive
//     280        1 directory, 2 its end, 3 list, 4 its end, 5 nil, 6 T, 7 the next value is the
//                tail of its list
//   Each child of a directory is its key (2, continued by 4 before it; an integer 91) and a value.
//
// A text is cut so that no piece is longer than kMostWritten characters when it is written to DXF
// of any version, and never within a surrogate pair. It ends before its first unit 0, where every
// text of a chain ends.
#pragma once

#include "kexdata/data_item.h"
#include "kexobj/export.h"

#include <memory>

namespace KEX {

/// Characters of a piece of text as DXF writes it: printable ASCII counts 1, a control character or
/// "^" 2, any other unit 7, as does a backslash that would read as the beginning of \U+ or \M+.
inline constexpr int kMostWritten = 250;

/// What an xrecord holds.
enum class ItemForm
{
    none,   // nothing
    item,   // an item, which may be damaged further down
    later,  // an item of a later version: it must not be written over
    foreign // something else
};

/// The groups of an xrecord for an item. A name that no open drawing knows is nil.
KEX_OBJ_API CSmartResbuf itemToGroups(const CKexDataItem& item);
/// What kind of content the groups are, told from the head of the chain.
KEX_OBJ_API ItemForm itemForm(const resbuf* groups);
/// The item of an xrecord's groups, at a key that part of it: without building more than is asked
/// for. Null when the groups hold no item of this version, when they are damaged anywhere in what
/// is read, and when the key is absent.
KEX_OBJ_API std::unique_ptr<CKexDataItem> itemFromGroups(const resbuf* groups,
                                                         const CKexDataKey& key = {});

} // namespace KEX
