// SPDX-License-Identifier: LicenseRef-ORVALD
// Bytes of a text value as they stand in a file, made into the file form that records keep.
#pragma once

#include "text/code_page.h"

#include <string>
#include <string_view>

namespace orvald::dxf {

/// The value in file form: control characters become ^ forms. `page` is that of the file; \U+ and
/// \M+ forms, which stand there for what the page does not have, become the characters. Null: the
/// file is in UTF-8, and bytes that are no UTF-8 are taken as characters of ANSI 1252. `foreign` is
/// set when there are such bytes, or some that the page does not have. Gives `value` itself or what
/// `scratch` then holds.
std::string_view readText(std::string_view value, const text::CodePage* page, std::string& scratch,
                          bool& foreign);

/// The code page of a file of `version` whose header tells the page `name` ("" when it tells none):
/// null for UTF-8, which newer versions are whatever they tell. `known` is false for a name that is
/// none; the page is ANSI 1252 then.
const text::CodePage* pageOf(std::string_view version, std::string_view name, bool& known);

} // namespace orvald::dxf
