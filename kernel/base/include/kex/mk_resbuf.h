// SPDX-License-Identifier: LicenseRef-ORVALD
// LISP forms of the kernel's types. rbPut appends one LISP value; mkResbuf gives the elements of
// the value's list, not wrapped: rbToList makes the list of them, and no elements are nil.
//
//   vertex            ((x y z) (x y z) bulge), extended with data, nil when it has none, as fourth
//   vertex list       list of vertices; arrays of arrays nest once more
//   line              ((x y z) (x y z)), a plane ((x y z) (nx ny nz))
//   matrix            four rows of four reals
//   map to text       (("key" . "value") ...), map to texts (("key" "a" "b") ...), in key order
#pragma once

#include "kex/box.h"
#include "kex/line.h"
#include "kex/map.h"
#include "kex/plane.h"
#include "kex/resbuf_chain.h"
#include "kex/string.h"
#include "kex/vertex.h"
#include "kex/vertex_ex.h"

namespace KEX {

inline void rbPut(RbBuilder& to, double value) { to.real(value); }
inline void rbPut(RbBuilder& to, int value) { to.integer(value); }
inline void rbPut(RbBuilder& to, short value) { to.integer(value); }
inline void rbPut(RbBuilder& to, const CKexString& value) { to.text(value); }
inline void rbPut(RbBuilder& to, const CKexPoint3d& value) { to.point(value); }
inline void rbPut(RbBuilder& to, const CKexVector3d& value)
{
    to.point(CKexPoint3d(value.asArray()));
}
inline void rbPut(RbBuilder& to, const CAdsName& value) { to.name(value); }
inline void rbPut(RbBuilder& to, const Line& value)
{
    to.begin().point(value.start).point(value.end).end();
}
inline void rbPut(RbBuilder& to, const Box& value)
{
    to.begin().point(value.min).point(value.max).end();
}
inline void rbPut(RbBuilder& to, const Plane& value)
{
    to.begin().point(value.origin).point(CKexPoint3d(value.normal.asArray())).end();
}
KEX_BASE_API void rbPut(RbBuilder& to, const CKexVertex& value);
KEX_BASE_API void rbPut(RbBuilder& to, const VertexEx& value);
KEX_BASE_API void rbPut(RbBuilder& to, const CKexMatrix3d& value);

/// An array as a list, the empty one as nil.
template <class T>
void rbPut(RbBuilder& to, const CKexArrayTempl<T>& array)
{
    if (array.isEmpty()) {
        to.nil();
        return;
    }
    to.begin();
    for (const T& item : array) rbPut(to, item);
    to.end();
}

template <class T>
CSmartResbuf mkResbuf(const CKexArrayTempl<T>& array)
{
    RbBuilder to;
    for (const T& item : array) rbPut(to, item);
    return to.take();
}
/// Start, end, bulge.
KEX_BASE_API CSmartResbuf mkResbuf(const CKexVertex& vertex);
/// Four rows.
KEX_BASE_API CSmartResbuf mkResbuf(const CKexMatrix3d& matrix);
KEX_BASE_API CSmartResbuf mkResbuf(const double (&values)[4]);
KEX_BASE_API CSmartResbuf mkResbuf(const CKexMapTempl<CKexString, CKexString>& map);
KEX_BASE_API CSmartResbuf mkResbuf(const CKexMapTempl<CKexString, CKexArrayTempl<CKexString>>& map);

} // namespace KEX
