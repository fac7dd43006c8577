// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/vertex_inters.h"

#include "kex/intersection.h"

namespace KEX {
namespace {

/// A point of the segment's line or circle lies between its ends, or within `tol` of one.
class Extent
{
public:
    Extent(const CKexVertex& vertex, double tol) : vertex_(vertex), tol_(tol)
    {
        const CKexVector3d d = vertex.endPoint() - vertex.startPoint();
        along_ = CKexVector3d(d.x, d.y);
        middle_ = vertex.isStraight() ? vertex.startPoint() + d * 0.5 : vertex.mid();
    }
    bool holds(const CKexPoint3d& p) const
    {
        if (isNear(p, vertex_.startPoint()) || isNear(p, vertex_.endPoint())) return true;
        const CKexVector3d q = p - vertex_.startPoint();
        if (vertex_.isStraight()) {
            const double share = q.x * along_.x + q.y * along_.y;
            return share >= 0.0 && share <= along_.dot(along_);
        }
        // An arc is the part of its circle on the side of the chord where its middle is.
        const CKexVector3d m = middle_ - vertex_.startPoint();
        const double side = along_.x * q.y - along_.y * q.x;
        return side * (along_.x * m.y - along_.y * m.x) >= 0.0;
    }

private:
    bool isNear(const CKexPoint3d& p, const CKexPoint3d& q) const
    {
        const double x = p.x - q.x, y = p.y - q.y;
        return x * x + y * y <= tol_ * tol_;
    }
    const CKexVertex& vertex_;
    double tol_;
    CKexVector3d along_;
    CKexPoint3d middle_;
};

} // namespace

FewPoints vx_inters(const CKexVertex& a, const CKexVertex& b, double tolLength, double tolAngle)
{
    const CKexPoint3d &a1 = a.startPoint(), &a2 = a.endPoint();
    const CKexPoint3d &b1 = b.startPoint(), &b2 = b.endPoint();
    FewPoints points;
    if (a.isStraight() && b.isStraight()) {
        const auto one = g_int_ll(a1, a2, b1, b2, true, tolLength, tolAngle);
        return one ? FewPoints(*one) : FewPoints();
    }
    if (a.isStraight()) points = g_cli(b.center(), b.radius(), a1, a2, tolLength);
    else if (b.isStraight()) points = g_cli(a.center(), a.radius(), b1, b2, tolLength);
    else points = g_cci(a.center(), a.radius(), b.center(), b.radius(), tolLength);
    if (points.isEmpty()) return points;
    const Extent first(a, tolLength), second(b, tolLength);
    FewPoints kept;
    for (const CKexPoint3d& p : points.only(
             [&](const CKexPoint3d& one) { return first.holds(one) && second.holds(one); })) {
        const CKexPoint3d level(p.x, p.y, a1.z);
        kept = kept.isEmpty() ? FewPoints(level) : FewPoints(kept[0], level);
    }
    return kept;
}

} // namespace KEX
