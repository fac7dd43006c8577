// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kexdata/entity_check.h"

#include "kex/entity.h"

void KEX::chk_ent(resbuf* chain)
{
    for (; chain != nullptr; chain = chain->rbnext) {
        if (chain->restype != RTENAME) continue;
        if (!entityHandle(CAdsName(chain->resval.rlname)).isNull()) continue;
        chain->restype = RTNIL;
        chain->resval = ads_u_val{};
    }
}
