// SPDX-License-Identifier: LicenseRef-ORVALD
// Compression in the zlib format (RFC 1950, RFC 1951).
#pragma once

#include <string>
#include <string_view>

namespace orvald::picture {

/// A whole zlib stream: matches from a window of 32768 bytes, a Huffman code for each block.
std::string zlibCompress(std::string_view bytes);

} // namespace orvald::picture
