// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kexdata/data_key.h"

#include <algorithm>

using KEX::TextView;

namespace KEX {
namespace {

/// Appends a component as LISP gives it; false when it is neither text nor integer.
bool appendPart(CKexDataKey& key, const resbuf& node)
{
    switch (node.restype) {
    case RTSTR: key.appendPath(node.resval.rstring); return true;
    case RTSHORT: key.append(node.resval.rint); return true;
    case RTLONG: key.append(node.resval.rlong); return true;
    default: return false;
    }
}

} // namespace

int DataKeyView::compare(const DataKeyView& a, const DataKeyView& b)
{
    if (a.isText_ != b.isText_) return a.isText_ ? 1 : -1;
    if (a.isText_) return compareNoCase(a.text_, b.text_);
    return a.number_ == b.number_ ? 0 : a.number_ < b.number_ ? -1 : 1;
}

bool dataKeyFromRb(CKexDataKey& key, const resbuf*& rb)
{
    if (rb == nullptr) return false;
    CKexDataKey read;
    const resbuf* node = rb;
    if (node->restype == RTLB) {
        for (node = node->rbnext; node != nullptr && node->restype != RTLE; node = node->rbnext) {
            if (!appendPart(read, *node)) return false;
        }
        if (node == nullptr) return false;
    } else if (node->restype != RTNIL && !appendPart(read, *node)) {
        return false;
    }
    key = std::move(read);
    rb = node->rbnext;
    return true;
}

void rbPut(RbBuilder& to, const DataKeyPart& part)
{
    if (part.isText()) to.text(part.text());
    else to.integer(part.number());
}

void rbPut(RbBuilder& to, const CKexDataKey& key)
{
    if (key.isEmpty()) {
        to.nil();
    } else if (key.length() == 1) {
        rbPut(to, key.first());
    } else {
        to.begin();
        for (const DataKeyPart& part : key) rbPut(to, part);
        to.end();
    }
}

} // namespace KEX

void CKexDataKey::appendPath(TextView path)
{
    for (std::size_t at = 0; at < path.size();) {
        const std::size_t end = std::min(path.find(KT('\\'), at), path.size());
        if (end != at) append(TextView(path.substr(at, end - at)));
        at = end + 1;
    }
}
