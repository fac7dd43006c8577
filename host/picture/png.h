// SPDX-License-Identifier: LicenseRef-ORVALD
// Pixels as a PNG file.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace orvald::picture {

/// `pixels` are width * height times red, green, blue, from the top left.
std::string pngFile(int width, int height, const std::vector<std::uint8_t>& pixels);

} // namespace orvald::picture
