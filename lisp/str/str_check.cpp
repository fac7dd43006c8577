// SPDX-License-Identifier: LicenseRef-ORVALD
// Checks of texts.
#include "marshal/ret_ads.h"
#include "str/str_rows.h"

namespace KEX {
namespace {

enum class Balance
{
    even,
    openString,
    parentheses
};

/// Balance of a text as LISP source: quotes first, then parentheses outside of strings. A backslash
/// takes the next unit's meaning, outside of strings too.
Balance balanceOf(TextView text)
{
    bool inString = false, escaped = false;
    long depth = 0;
    for (const ACHAR unit : text) {
        if (!escaped && unit == KT('"')) inString = !inString;
        if (!inString && unit == KT('(')) ++depth;
        if (!inString && unit == KT(')')) --depth;
        if (depth < 0) break;
        escaped = !escaped && unit == KT('\\');
    }
    if (inString) return Balance::openString;
    return depth == 0 ? Balance::even : Balance::parentheses;
}

} // namespace

int dChkStr(const resbuf* args)
{
    // kept: what is no text gives nil, not an error
    if (args == nullptr || args->restype != RTSTR) return retAds(false);
    switch (balanceOf(args->resval.rstring)) {
    case Balance::openString: return retAds(1);
    case Balance::parentheses: return retAds(2);
    case Balance::even: break;
    }
    return retAds(false);
}

} // namespace KEX
