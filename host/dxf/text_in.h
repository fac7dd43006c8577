// SPDX-License-Identifier: LicenseRef-ORVALD
// Bytes of a text value as they stand in a file, made into the file form that records keep.
#pragma once

#include <string>
#include <string_view>

namespace orvald::dxf {

/// True when the value is plain ASCII without control characters (a tab may stand in text): then it
/// is in file form already.
bool isPlainAscii(std::string_view value);

/// Brings other text to file form: control characters become ^ forms; in a file of a code page the
/// bytes from 0x80 on are characters of ANSI 1252, in a UTF-8 file bytes that are no UTF-8 are
/// taken so as well, and `foreign` is set. Gives the text in `out`.
void cleanText(std::string_view value, bool utf8File, std::string& out, bool& foreign);

} // namespace orvald::dxf
