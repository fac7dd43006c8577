// SPDX-License-Identifier: LicenseRef-ORVALD
// LISP forms that are more than one node.
#include "kex/mk_resbuf.h"

namespace KEX {
namespace {

RbBuilder& putVertex(RbBuilder& to, const CKexVertex& vertex)
{
    return to.point(vertex.startPoint()).point(vertex.endPoint()).real(vertex.bulge());
}

RbBuilder& putRows(RbBuilder& to, const CKexMatrix3d& matrix)
{
    for (int row = 0; row < 4; ++row) {
        to.begin();
        for (int column = 0; column < 4; ++column) to.real(matrix(row, column));
        to.end();
    }
    return to;
}

} // namespace

void rbPut(RbBuilder& to, const CKexVertex& value) { putVertex(to.begin(), value).end(); }

void rbPut(RbBuilder& to, const VertexEx& value)
{
    putVertex(to.begin(), value.vertex);
    if (value.data.get() == nullptr) to.nil();
    else to.copy(value.data);
    to.end();
}

void rbPut(RbBuilder& to, const CKexMatrix3d& value) { putRows(to.begin(), value).end(); }

CSmartResbuf mkResbuf(const CKexVertex& vertex)
{
    RbBuilder to;
    return putVertex(to, vertex).take();
}

CSmartResbuf mkResbuf(const CKexMatrix3d& matrix)
{
    RbBuilder to;
    return putRows(to, matrix).take();
}

CSmartResbuf mkResbuf(const double (&values)[4])
{
    RbBuilder to;
    for (const double value : values) to.real(value);
    return to.take();
}

CSmartResbuf mkResbuf(const CKexMapTempl<CKexString, CKexString>& map)
{
    RbBuilder to;
    for (const auto& [key, value] : map) to.begin().text(key).text(value).endDotted();
    return to.take();
}

CSmartResbuf mkResbuf(const CKexMapTempl<CKexString, CKexArrayTempl<CKexString>>& map)
{
    RbBuilder to;
    for (const auto& [key, values] : map) {
        to.begin().text(key);
        for (const CKexString& value : values) to.text(value);
        to.end();
    }
    return to.take();
}

} // namespace KEX
