// SPDX-License-Identifier: LicenseRef-ORVALD
// Handlers of the keyword prompt and of the status bar. Those of the status bar never fail: what
// they cannot use they pass over.
#include "marshal/arg_reader.h"
#include "marshal/ret_ads.h"
#include "prompt/initget.h"
#include "prompt/prompt_rows.h"
#include "prompt/status_bar.h"

#include <algorithm>

namespace KEX {
namespace {

constexpr int kShortest = 1, kLongest = 30000; // milliseconds
int interval = 100;                            // of the animation, kept from call to call

const ACHAR* textOf(const resbuf* argument)
{
    const bool isText = argument != nullptr && argument->restype == RTSTR;
    return isText && argument->resval.rstring != nullptr ? argument->resval.rstring : KT("");
}

} // namespace

int dlInitget(const resbuf* args)
{
    ArgReader in(args);
    const CKexString help = in.string(1);
    const CKexArrayTempl<CKexString> keywords = in.stringList(2);
    bool orFlag = true;
    if (const resbuf* flag = in.any(); flag != nullptr) {
        orFlag = flag->restype == RTT;
        in.require(orFlag || flag->restype == RTNIL, 3);
    }
    if (in.failed()) return in.fail();
    int bits = 0;
    const resbuf* last = in.peek();
    readInteger(last, bits);
    // LISP has no other way to say "no help" than "".
    return retAds(dl_initget(help.isNull() ? nullptr : help.c_str(), keywords, bits, orFlag));
}

int dlStatusBar(const resbuf* args)
{
    statusBarShow(textOf(args));
    return retVoid();
}

int dlStatusBarSet(const resbuf* args)
{
    double fraction = 0.0;
    if (readNumber(args, fraction)) statusBarMove(fraction);
    return retVoid();
}

int dlStatusBarRun(const resbuf* args)
{
    const ACHAR* text = textOf(args);
    if (args != nullptr && args->restype == RTSTR) args = args->rbnext;
    readInteger(args, interval);
    interval = std::clamp(interval, kShortest, kLongest);
    statusBarRun(text, interval);
    return retVoid();
}

int dlStatusBarStop(const resbuf*)
{
    statusBarStop();
    return RTNORM; // nil is set already
}

} // namespace KEX
