// SPDX-License-Identifier: LicenseRef-ORVALD
// What the library's own builders may do with an item beyond its public face: marks of lists, and
// lists whose values are in their final form already.
#pragma once

#include "kexdata/data_item.h"

namespace KEX {

class DataAccess
{
public:
    static CKexDataItem mark(CKexDataItem::Kind kind) { return CKexDataItem(kind); }
    /// A mark that will be taken out.
    static void drop(CKexDataItem& mark) { mark.head_.units = kDropped; }
    static bool isDropped(const CKexDataItem& item)
    {
        return item.kind() == CKexDataItem::Kind::listBegin && item.head_.units == kDropped;
    }
    static CKexDataItem listOf(CKexDataItem::Values values, CKexDataItem::Kind kind)
    {
        CKexDataItem item;
        item.wide_.values = new CKexDataItem::Values(std::move(values));
        item.wide_.kind = kind;
        return item;
    }

private:
    static constexpr std::uint8_t kDropped = 1;
};

} // namespace KEX
