// SPDX-License-Identifier: LicenseRef-ORVALD
// Base64 of RFC 4648 with padding, strictly: every sequence of bytes has one text, and every text
// that is taken is the one of its bytes.
#pragma once

#include "kex/string.h"

#include <string>

namespace KEX {

/// Four units for every three bytes, the last four filled with "="; no line ends.
KEX_BASE_API CKexString base64Encode(std::string_view bytes);
/// Appends the bytes of a text. False, and nothing appended, when it is not what base64Encode
/// gives: blanks and line ends, characters of other alphabets, missing or surplus "=", a length
/// that is no multiple of four, and bits behind the last byte that are not 0.
KEX_BASE_API bool base64Decode(TextView text, std::string& bytes);

} // namespace KEX
