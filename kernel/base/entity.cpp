// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/entity.h"

#include "hostapi/entity.h"
#include "kex/resbuf_chain.h"

namespace KEX {
namespace {
constexpr short kHandleGroup = 5;
}

CKexString entityHandle(const CAdsName& name)
{
    const CSmartResbuf entity(acdbEntGet(name.asName()));
    for (const resbuf* node = entity; node != nullptr; node = node->rbnext) {
        if (node->restype == kHandleGroup) return CKexString(node->resval.rstring).makeUpper();
    }
    return CKexString();
}

CAdsName entityOfHandle(TextView handle)
{
    CAdsName name;
    if (acdbHandEnt(CKexString(handle).c_str(), name.asName()) != RTNORM) return CAdsName();
    return name;
}

} // namespace KEX
