// SPDX-License-Identifier: LicenseRef-ORVALD
#include "marshal/from_rb.h"

#include "hostapi/entity.h"
#include "hostapi/resbuf.h"

namespace KEX {

CKexEnameArray& fromRb(CKexEnameArray& out, const resbuf*& rb)
{
    if (rb == nullptr) return out;
    out.clear();
    if (rb->restype == RTPICKS) {
        Adesk_Int32 length = 0;
        acedSSLength(rb->resval.rlname, &length);
        out.reserve(length);
        for (Adesk_Int32 i = 0; i < length; ++i) {
            CKexEname name;
            if (acedSSName(rb->resval.rlname, i, name.asName()) == RTNORM) out.append(name);
        }
    } else if (rb->restype == RTLB) {
        for (rb = rb->rbnext; rb != nullptr && rb->restype == RTENAME; rb = rb->rbnext) {
            out.append(CKexEname(rb->resval.rlname));
        }
    }
    if (rb != nullptr) rb = rb->rbnext;
    return out;
}

AcArray<AcDbObjectId>& fromRb(AcArray<AcDbObjectId>& out, const resbuf*& rb)
{
    if (rb == nullptr) return out;
    CKexEnameArray names;
    fromRb(names, rb);
    out.setLogicalLength(0);
    for (const CKexEname& name : names) {
        AcDbObjectId id;
        if (acdbGetObjectId(id, name.asName()) == Acad::eOk) out.append(id);
    }
    return out;
}

} // namespace KEX
