// SPDX-License-Identifier: LicenseRef-ORVALD
// LISP functions on entities whose arguments or results are more than a primitive's.
#include "geom/curve_dif.h"
#include "geom/entity_lists.h"
#include "geom/entity_make.h"
#include "geom/entity_outline.h"
#include "geom/entity_rows.h"
#include "kex/rb_tokens.h"

namespace KEX {
namespace {

/// The value of a group from a LISP value; false when it is none that the group can have.
bool setGroup(resbuf& group, const resbuf* value)
{
    if (value == nullptr) return false;
    CKexPoint3d point;
    int whole = 0;
    double number = 0.0;
    const resbuf* at = value;
    switch (rbKind(group.restype)) {
    case RbKind::text:
        return value->restype == RTSTR &&
               acutNewString(value->resval.rstring, group.resval.rstring) == RTNORM;
    case RbKind::real:
        if (!readNumber(at, number)) return false;
        group.resval.rreal = number;
        return true;
    case RbKind::int16:
        if (!readInteger(at, whole) || whole != static_cast<short>(whole)) return false;
        group.resval.rint = static_cast<short>(whole);
        return true;
    case RbKind::int32:
        if (!readInteger(at, whole)) return false;
        group.resval.rlong = whole;
        return true;
    case RbKind::name:
        if (value->restype != RTENAME) return false;
        std::copy_n(value->resval.rlname, 2, group.resval.rlname);
        return true;
    default: return false;
    }
}

/// Reads ((code . value) ...) as a chain of groups; points, which say where something is, are
/// passed over. False when it is anything else.
bool readProperties(const resbuf* list, CSmartResbuf& groups)
{
    const resbuf* node = list;
    if (node == nullptr || node->restype == RTNIL) return true;
    if (node->restype != RTLB) return false;
    RbBuilder all;
    for (node = node->rbnext; node != nullptr && node->restype == RTLB; node = rbSkip(node)) {
        const resbuf* at = node->rbnext;
        int code = 0;
        if (!readInteger(at, code) || code <= 0 || rbKind(code) == RbKind::none) return false;
        if (rbKind(code) == RbKind::point) continue;
        CSmartResbuf group(acutNewRb(code));
        if (group == nullptr || !setGroup(*group, at)) return false;
        all.adopt(std::move(group));
    }
    groups = all.take();
    return node != nullptr && node->restype == RTLE;
}

} // namespace

int entityInters(const resbuf* args)
{
    ArgReader in(args);
    const CAdsName a = in.ename(1);
    const CAdsName b = in.ename(2);
    const int extend = in.integerIfAny(3).value_or(0);
    in.require(extend >= 0 && extend <= 3, 3);
    if (in.failed()) return in.fail();
    return retAds(e_inters(a, b, static_cast<Extend>(extend)));
}

int entityMake(const resbuf* args)
{
    ArgReader in(args);
    const CKexVertexArray list = in.vertexList(1);
    CSmartResbuf properties;
    in.require(in.failed() || readProperties(in.any(), properties), 2);
    if (in.failed()) return in.fail();
    return retAds(e_mk(list, properties));
}

int entityTransform(const resbuf* args)
{
    ArgReader in(args);
    const CAdsName entity = in.ename(1);
    const CKexMatrix3d map = in.matrix(2);
    if (in.failed()) return in.fail();
    return e_trans(entity, map) ? retAds(entity) : retAds(false);
}

int entityListNear(const resbuf* args)
{
    ArgReader in(args);
    const CKexEnameArray list = in.enames(1);
    const CKexPoint3d p = in.point(2);
    if (in.failed()) return in.fail();
    const std::optional<EntityPoint> found = el_near(list, p);
    if (!found) return retAds(false);
    return retList(RbBuilder().name(found->entity).point(found->point).take());
}

} // namespace KEX
