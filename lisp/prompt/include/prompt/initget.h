// SPDX-License-Identifier: LicenseRef-ORVALD
// Keyword prompts: keywords for the host, and how they are shown to the user.
#pragma once

#include "hostapi/arxapp.h"
#include "kex/array.h"
#include "kex/string.h"

namespace KEX {

/// Hands the keywords with the host's control bits (1 no empty input, 2 no zero, ...) to the host
/// for its next input and gives their display: "[Ja/Nein]", with `orFlag` "oder [Ja/Nein]".
///
/// A help text, which may be null, adds the keyword "?". A keyword that begins with "_" is accepted
/// but not shown. Blanks in a keyword reach the host as "---". Without keywords the display is "".
ACRX_EXPORT CKexString dl_initget(const ACHAR* helpText, CKexArrayTempl<CKexString> keywords,
                                  int bits, bool orFlag);

} // namespace KEX
