// SPDX-License-Identifier: LicenseRef-ORVALD
// A path as argument: every function of the family takes it in the form of dos_name.
#pragma once

#include "kex/path_names.h"
#include "marshal/arg_reader.h"
#include "marshal/ret_ads.h"

namespace KEX {

/// The next argument when it is a text, "" and no error otherwise; any argument is passed.
inline CKexString readPathIfText(ArgReader& in)
{
    const resbuf* const argument = in.any();
    if (argument == nullptr || argument->restype != RTSTR) return CKexString();
    CKexString path = argument->resval.rstring;
    return dos_name(path);
}

/// For functions of one path, which name no argument, and of two: the operation's result.
template <bool (*Operation)(TextView)>
int onPath(const resbuf* args)
{
    ArgReader in(args);
    const CKexString path = in.path(0);
    if (in.failed()) return in.fail();
    return retAds(Operation(path));
}

template <bool (*Operation)(TextView, TextView)>
int onTwoPaths(const resbuf* args)
{
    ArgReader in(args);
    const CKexString first = in.path(1);
    const CKexString second = in.path(2);
    if (in.failed()) return in.fail();
    return retAds(Operation(first, second));
}

} // namespace KEX
