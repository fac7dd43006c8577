// SPDX-License-Identifier: LicenseRef-ORVALD
#include "prompt/initget.h"

#include "hostapi/user.h"
#include "kex/message.h"

namespace KEX {

CKexString dl_initget(const ACHAR* helpText, CKexArrayTempl<CKexString> keywords, int bits,
                      bool orFlag)
{
    if (helpText != nullptr) keywords.append(CKexString(KT("?")));
    CKexString display, list;
    for (int i = 0; i < keywords.length(); ++i) {
        const CKexString& keyword = keywords[i];
        if (keyword.isNull() || keyword[0] != KT('_')) {
            // By position, not by what is shown already: behind a hidden keyword the display
            // begins with "/". Programs know it so.
            if (i > 0) display += KT("/");
            display += keyword;
        }
        if (i > 0) list += KT(" ");
        // One keyword for the host, however many words it has.
        for (const ACHAR unit : TextView(keyword)) {
            if (unit == KT(' ')) list += KT("---");
            else list += unit;
        }
    }
    if (!display.isNull()) {
        display = KT("[") + display + KT("]");
        if (orFlag) display = msgGet(KT("KEX041"), KT("oder")) + KT(" ") + display;
    }
    acedInitGet(bits, list.c_str());
    return display;
}

} // namespace KEX
