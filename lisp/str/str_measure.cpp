// SPDX-License-Identifier: LicenseRef-ORVALD
// Lengths and character codes. Lengths count UTF-16 units.
#include "marshal/arg_reader.h"
#include "marshal/ret_ads.h"
#include "str/str_rows.h"

namespace KEX {

int strLen(const resbuf* args)
{
    ArgReader in(args);
    const CKexString text = in.string(0);
    if (in.failed()) return in.fail();
    return retAds(text.len());
}

int ascii(const resbuf* args)
{
    ArgReader in(args);
    const CKexString text = in.string(0);
    if (in.failed()) return in.fail();
    return retAds(static_cast<int>(text[0])); // the empty text has code 0
}

int chr(const resbuf* args)
{
    ArgReader in(args);
    const int code = in.integer(0);
    if (in.failed()) return in.fail();
    const ACHAR unit[] = {static_cast<ACHAR>(code & 0xFFFF), 0};
    return retAds(unit); // code 0 gives ""
}

} // namespace KEX
