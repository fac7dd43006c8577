// SPDX-License-Identifier: LicenseRef-ORVALD
#include "dispatch/dispatch.h"
#include "hostapi/lisp.h"
#include "table/lisp_table.h"

namespace KEX {

int kexLispDefineAll()
{
    setLispTable(kexLispTable);
    int code = 0;
    for (const LispRow& row : kexLispTable) {
        if (acedDefun(row.name, code) != RTNORM) return RTERROR;
        if (acedRegFunc(kexLispDispatch, code) != RTNORM) return RTERROR;
        ++code;
    }
    return RTNORM;
}

int kexLispUndefineAll()
{
    int code = 0;
    for (const LispRow& row : kexLispTable) acedUndef(row.name, code++);
    return RTNORM;
}

int kexLispRedefine()
{
    kexLispUndefineAll();
    return kexLispDefineAll();
}

} // namespace KEX
