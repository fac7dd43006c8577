// SPDX-License-Identifier: LicenseRef-ORVALD
// LISP functions about the module and its host.
#include "functions/app_rows.h"
#include "kex/system.h"
#include "lifecycle/settings.h"
#include "marshal/arg_reader.h"
#include "marshal/ret_ads.h"

namespace KEX {

int version(const resbuf* args)
{
    ArgReader in(args);
    if (!in.flag()) return retAds(regCurVer());
    const int host = acadver();
    return retAds(CKexArrayTempl<int>{2015, (host >> 8) & 0xFF, host & 0xFF});
}

int platform(const resbuf*)
{
#ifdef _WIN32
    constexpr const ACHAR* kSystem = KT("Windows");
#else
    constexpr const ACHAR* kSystem = KT("Linux");
#endif
    RbBuilder list;
    list.text(kSystem).integer(static_cast<int>(sizeof(void*) * 8));
    list.text(sysVarText(KT("PLATFORM")));
    return retList(list.take());
}

} // namespace KEX
