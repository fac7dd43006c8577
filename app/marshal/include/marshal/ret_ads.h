// SPDX-License-Identifier: LicenseRef-ORVALD
// The result of a LISP function: one overload of retAds for each kernel type. Each copies its value
// into the host at once and gives RTNORM, so that a handler ends with `return retAds(value);`.
#pragma once

#include "hostapi/array.h"
#include "hostapi/database.h"
#include "kex/mk_resbuf.h"
#include "kex/norm_result.h"
#include "kexdata/data_item.h"
#include "kexdata/data_key.h"

#include <optional>

namespace KEX {

/// A chain as result: none is nil; one node is its value, an RTSHORT as integer, a node with a DXF
/// code as a list of one pair; several nodes are a list, each RTSHORT among them made an RTLONG in
/// place, so that integers always reach LISP with 32 bits.
int returnRb(resbuf* chain);
/// The values of a chain as one list, nil for none. The chain is neither changed nor freed.
int retList(const resbuf* chain);
int retList(CSmartResbuf&& chain);

/// The value that starts at a node, as it came in an argument; nil when there is none.
int retValue(const resbuf* value);

/// A result that is nothing: the host echoes nothing.
int retVoid();
/// T or nil.
int retAds(bool value);
/// A pointer must not turn into T.
template <class T>
int retAds(const T* pointer) = delete;
int retAds(int value);
int retAds(double value);
/// A null pointer is "", never nil.
int retAds(const ACHAR* text);
int retAds(const CKexString& text);
int retAds(const CKexPoint3d& point);
int retAds(const CKexVector3d& vector);
int retAds(const double (&values)[4]);
/// `type` is RTENAME or RTPICKS; a null name is nil.
int retAds(const CAdsName& name, short type);
/// The name of an object.
inline int retAds(const CAdsName& name) { return retAds(name, RTENAME); }
/// A null id is nil.
int retAds(AcDbObjectId id);
int retAds(const AcArray<AcDbObjectId>& ids);
int retAds(const CKexEnameArray& names);
int retAds(const CKexVertex& vertex);
int retAds(const CKexMatrix3d& matrix);
int retAds(const Line& line);
/// (min max).
int retAds(const Box& box);
int retAds(const Plane& plane);
int retAds(const FewPoints& points);
/// The values up to the first that is not finite; nil when the first is not.
int retAds(const nrmResult& result);
/// Null and the empty item are nil; a directory in its LISP form; an atom as its value; anything
/// else as a list. Entity references are made current first.
int retAds(const CKexDataItem* item);
/// (("key" . "value") ...), nil when empty.
int retAds(const CKexMapTempl<CKexString, CKexString>& map);
/// (("key" "a" "b") ...), an empty array as ("key").
int retAds(const CKexMapTempl<CKexString, CKexArrayTempl<CKexString>>& map);
/// Lists of every other kind of value, nested ones included, in the shapes of mkResbuf.
template <class T>
int retAds(const CKexArrayTempl<T>& array)
{
    return retList(mkResbuf(array));
}
/// nil for none.
template <class T>
int retAds(const std::optional<T>& value)
{
    return value.has_value() ? retAds(*value) : retAds(false);
}

} // namespace KEX
