// SPDX-License-Identifier: LicenseRef-ORVALD
// Numbers and handles as files write them: blanks around, a plus in front.
#pragma once

#include "drawing/tags.h"

#include <cstdint>
#include <string_view>

namespace orvald::dxf {

enum class Reading
{
    good,
    none,   // no number at all
    outside // a number that does not fit: beyond 64 bits, not finite
};

/// Without blanks and tabs at both ends.
std::string_view trimmed(std::string_view s);

Reading readWhole(std::string_view value, std::int64_t& number);
/// A number too small for a double counts as 0.
Reading readReal(std::string_view value, double& number);
/// `outside`: more than 63 bits.
Reading readHandle(std::string_view value, drawing::Handle& handle);

} // namespace orvald::dxf
