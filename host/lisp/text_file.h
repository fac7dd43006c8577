// SPDX-License-Identifier: LicenseRef-ORVALD
// Files of text as programs and users write them.
#pragma once

#include <cstdio>
#include <optional>
#include <string>

namespace orvald::lisp {

/// A whole file as text, UTF-8 or ANSI; nothing when it cannot be read.
std::optional<std::u16string> readTextFile(const std::string& path);

/// Opens for "r", "w" or "a", untranslated; null for anything that is no file.
std::FILE* openFile(const std::string& path, const char* mode);

} // namespace orvald::lisp
