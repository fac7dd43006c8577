// SPDX-License-Identifier: LicenseRef-ORVALD
#include "dispatch/dispatch.h"
#include "hostapi/lisp.h"
#include "marshal/lisp_row.h"

namespace KEX {

int kexLispDefineAll()
{
    int code = 0;
    for (const LispRow& row : lispTable()) {
        if (acedDefun(row.name, code) != RTNORM) return RTERROR;
        if (acedRegFunc(kexLispDispatch, code) != RTNORM) return RTERROR;
        ++code;
    }
    return RTNORM;
}

int kexLispUndefineAll()
{
    int code = 0;
    for (const LispRow& row : lispTable()) acedUndef(row.name, code++);
    return RTNORM;
}

int kexLispRedefine()
{
    kexLispUndefineAll();
    return kexLispDefineAll();
}

} // namespace KEX
