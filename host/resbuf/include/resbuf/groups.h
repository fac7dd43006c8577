// SPDX-License-Identifier: LicenseRef-ORVALD
// Which member of a result buffer a DXF group code uses, and who owns a chain.
#pragma once

#include "hostapi/resbuf.h"

#include <cstddef>
#include <cstdint>

namespace orvald {

enum class GroupKind : std::uint8_t
{
    none,   // no value: list marks and codes that do not exist
    text,   // rstring
    point,  // rpoint
    real,   // rreal
    int16,  // rint
    int32,  // rlong
    int64,  // mnInt64
    binary, // rbinary
    handle, // rstring, hexadecimal text
    object  // rlname
};

/// Kind of a group code in a result buffer, host codes below 5000 included (-1, -2 are object
/// names).
GroupKind groupKind(int code);
/// Kind of any restype: host codes from 5000 on as well as group codes.
GroupKind nodeKind(int restype);

/// Units of a text before its end mark; null counts as "".
std::size_t lengthOf(const ACHAR* text);
/// A string for a node from units without an end mark; null when memory is out.
ACHAR* newString(const ACHAR* units, std::size_t count);
/// The arguments of the running call belong to the host: acutRelRb leaves this chain alone. Gives
/// the chain that was protected before.
resbuf* protectChain(resbuf* arguments);
/// Frees a chain of the host's own, protected or not.
void releaseChain(resbuf* chain);

} // namespace orvald
