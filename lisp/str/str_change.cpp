// SPDX-License-Identifier: LicenseRef-ORVALD
// Functions that give a changed copy of a text.
#include "marshal/arg_reader.h"
#include "marshal/ret_ads.h"
#include "str/str_rows.h"

namespace KEX {

int strCase(const resbuf* args)
{
    ArgReader in(args);
    CKexString text = in.string(0);
    if (in.failed()) return in.fail();
    return retAds(in.flag() ? text.makeLower() : text.makeUpper());
}

int strTrim(const resbuf* args)
{
    ArgReader in(args);
    CKexString text = in.string(0);
    if (in.failed()) return in.fail();
    return retAds(text.trim());
}

} // namespace KEX
