// SPDX-License-Identifier: LicenseRef-ORVALD
// LISP functions over the configuration tree.
#include "kexdata/configuration.h"
#include "functions/app_rows.h"
#include "hostapi/lisp.h"
#include "kex/rb_print.h"
#include "marshal/ret_ads.h"

namespace KEX {
namespace {

void printTopLevel()
{
    for (const CKexDataKey& key : cfg_dir()) {
        RbBuilder line;
        rbPut(line, key);
        const CKexDataItem* item = cfg_get(key);
        CSmartResbuf value =
            item->getDir() != nullptr ? rbToList(item->getDir()->mkLisp()) : item->mkLisp();
        if (value.get() == nullptr) line.nil();
        else line.adopt(std::move(value));
        CKexString text = rbPrint(line.take());
        text.replace(KT("\n"), KT(" "));
        acutPrintf(KT("%s\n"), text.trim().c_str());
    }
}

} // namespace

int cfgGet(const resbuf* args)
{
    if (args == nullptr || args->restype == RTNIL) {
        printTopLevel();
        return retAds(false);
    }
    CKexDataKey key;
    if (!dataKeyFromRb(key, args)) {
        argError(0);
        return RTERROR;
    }
    return retAds(cfg_get(key));
}

} // namespace KEX
