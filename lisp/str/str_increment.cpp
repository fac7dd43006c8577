// SPDX-License-Identifier: LicenseRef-ORVALD
// The trailing counter of a text.
#include "kex/increment.h"

#include "marshal/arg_reader.h"
#include "marshal/ret_ads.h"
#include "str/str_rows.h"

#include <algorithm>
#include <limits>

namespace KEX {
namespace {

int retIncremented(const resbuf* args, int most)
{
    ArgReader in(args);
    CKexString text = in.string(1);
    in.require(!in.isLast(), 2);
    const int steps = in.integerIfAny(2).value_or(0);
    if (in.failed()) return in.fail();
    return retAds(str_increment(text, std::min(steps, most)));
}

/// A character, or nil.
int retUnit(bool found, ACHAR unit) { return found ? retAds(CKexString(unit, 1)) : retAds(false); }

} // namespace

int strIncrement(const resbuf* args)
{
    return retIncremented(args, std::numeric_limits<int>::max());
}

// kept: only a larger number of steps is cut
int strIncrement0(const resbuf* args) { return retIncremented(args, 1); }

int strIncrParse(const resbuf* args)
{
    ArgReader in(args);
    const TextView text = in.text(0);
    if (in.failed()) return in.fail();
    CKexArrayTempl<CKexString> parts;
    if (!str_incr_parse(parts, text)) return retAds(false);
    RbBuilder list;
    for (int i = 0; i < parts.length(); ++i) {
        list.begin().integer(i).text(parts[i]).endDotted();
    }
    return retList(list.take());
}

int strIncrDelimit(const resbuf* args)
{
    ArgReader in(args);
    const CKexString text = in.string(0);
    if (in.failed()) return in.fail();
    return retUnit(str_incr_delimit(text[0]), text[0]);
}

int strIncrType(const resbuf* args)
{
    ArgReader in(args);
    const CKexString text = in.string(0);
    if (in.failed()) return in.fail();
    ACHAR type = 0;
    const bool found = str_incr_type(type, text[0]);
    return retUnit(found, type);
}

} // namespace KEX
