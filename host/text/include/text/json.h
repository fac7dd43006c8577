// SPDX-License-Identifier: LicenseRef-ORVALD
// Values as JSON writes them.
#pragma once

#include <string>
#include <string_view>

namespace orvald::text {

/// UTF-8 text in quotes; bytes that are no UTF-8 become U+FFFD.
std::string jsonText(std::string_view text);
/// The shortest number that reads back the same; null when it is not finite.
std::string jsonNumber(double number);

} // namespace orvald::text
