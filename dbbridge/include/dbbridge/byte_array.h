// SPDX-License-Identifier: LicenseRef-ORVALD
// Byte arrays, and with them whole files, as data items: a directory with the children
//   "ENCODING"   how the chunks are written: 0 hexadecimal pairs, 1 base64, 2 base64 with two
//                characters in each unit, the first one in its low byte; 0 when it is missing
//   0, 1, 2 ...  texts of at most 512 bytes each, up to the first that is missing
// What is written here has encoding 1.
#pragma once

#include "hostapi/arxapp.h"
#include "kexdata/data_item.h"

#include <cstdint>

namespace KEX {
/// True for a directory with an encoding or a first chunk; the functions below read any item.
bool isByteArray(const CKexDataItem& item);
} // namespace KEX

/// Replaces an item by the bytes. False for a null item.
ACRX_EXPORT bool kexBinToDataItem(CKexDataItem* item, const CKexArrayTempl<std::uint8_t>& bytes);
/// The bytes of an item. False for a null item, and when a chunk cannot be decoded or is in an
/// encoding that is none of the above; then `bytes` holds what was decoded before it.
ACRX_EXPORT bool kexBinFromDataItem(const CKexDataItem* item, CKexArrayTempl<std::uint8_t>& bytes);
/// Writes a file's bytes into an item, which must not be null. An item that is a directory keeps
/// its other children, so that chunks of a longer file before stay behind: give a new item. False
/// when the file cannot be read; the item is as it was then.
ACRX_EXPORT bool kexFileToDataItem(CKexDataItem* item, const ACHAR* file);
/// Writes the bytes of an item to a file, in place of an old one. False for a null item, for one
/// that kexBinFromDataItem refuses, and when the file cannot be written.
ACRX_EXPORT bool kexFileFromDataItem(const CKexDataItem* item, const ACHAR* file);
