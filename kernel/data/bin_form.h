// SPDX-License-Identifier: LicenseRef-ORVALD
// The binary form for what is about files alone, without a drawing in which handles name entities.
#pragma once

#include "kexdata/bin_file.h"

namespace KEX {

/// Handles that stand for themselves: an item's entity name is a place in the table.
class HandleTable
{
public:
    CAdsName add(CKexString handle)
    {
        handles_.append(std::move(handle));
        const ads_name name = {handles_.length(), 0};
        return CAdsName(name);
    }
    const CKexString& at(const CAdsName& name) const { return handles_[name.asName()[0] - 1]; }

private:
    CKexArrayTempl<CKexString> handles_;
};

struct BinReading
{
    CKexDataItem item;             // as far as it can be read
    const char* problem = nullptr; // in English; null when all is well
};
/// Reads a data file's bytes. Without a table handles are those of the current drawing.
BinReading binRead(std::string_view bytes, HandleTable* handles);
/// The bytes of an item that was read with a table.
std::string binWrite(const CKexDataItem& item, const HandleTable& handles);

} // namespace KEX
