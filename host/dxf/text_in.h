// SPDX-License-Identifier: LicenseRef-ORVALD
// Bytes of a text value as they stand in a file, made into the file form that records keep.
#pragma once

#include <string>
#include <string_view>

namespace orvald::dxf {

/// The value in file form: control characters become ^ forms; in a file of a code page the bytes
/// from 0x80 on are characters of ANSI 1252, in a UTF-8 file bytes that are no UTF-8 are taken so
/// as well, and `foreign` is set. Gives `value` itself or what `scratch` then holds.
std::string_view readText(std::string_view value, bool utf8File, std::string& scratch,
                          bool& foreign);

} // namespace orvald::dxf
