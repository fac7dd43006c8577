// SPDX-License-Identifier: LicenseRef-ORVALD
// printf-style formatting of UTF-16 text, as acutPrintf offers it to applications.
#pragma once

#include <cstdarg>
#include <string>

namespace orvald {

/// Conversions d i u x X o c s f e g E G p %, flags, width, precision, `*`, length letters and n$
/// positions. %s takes UTF-16 text, null as "(null)". An unknown conversion stays as written, and
/// the rest of the text with it, because its argument's size is unknown.
std::u16string formatText(const char16_t* format, va_list arguments);

} // namespace orvald
