// SPDX-License-Identifier: LicenseRef-ORVALD
// Everything is computed relative to a centre or to a given point nearby, so that the place of the
// drawing in the world costs nothing but the last bit of its coordinates.
#include "kex/intersection.h"

namespace KEX {
namespace {

/// The part of a circle that an arc is.
class Span
{
public:
    Span(const CKexPoint3d& centre, double r, double a1, double a2)
        : centre_(centre), start_(directionOf(a1) * r), end_(directionOf(a2) * r)
    {
        const double sweep = g_ang(a2 - a1);
        isArc_ = sweep > 0.0 && r > 0.0; // neither for what is not a number
        isWide_ = sweep > kPi;
    }
    /// For a point on the circle: on the arc, or within the tolerance of one of its ends.
    bool holds(const CKexPoint3d& p, double tolLength) const
    {
        if (!isArc_) return false;
        const CKexVector3d q = p - centre_;
        const bool inside = isWide_ ? !(crossXY(end_, q) > 0.0 && crossXY(q, start_) > 0.0)
                                    : crossXY(start_, q) >= 0.0 && crossXY(q, end_) >= 0.0;
        return inside || (q - start_).lengthXY() <= tolLength || (q - end_).lengthXY() <= tolLength;
    }

private:
    CKexPoint3d centre_;
    CKexVector3d start_, end_; // from the centre
    bool isArc_, isWide_;
};

} // namespace

FewPoints g_cli(const CKexPoint3d& centre, double r, const CKexPoint3d& p1, const CKexPoint3d& p2,
                double tolLength)
{
    const CKexVector3d way = inXY(p2 - p1);
    const double length = way.lengthXY();
    if (!(r > 0.0) || !(length > tolLength)) return {};
    const CKexVector3d along = way * (1.0 / length);
    const double left = crossXY(along, p1 - centre); // of the line, from the centre
    const CKexVector3d foot = along.perpXY() * left;
    const double gap = r - std::abs(left);
    if (!(gap >= -tolLength)) return {};
    if (gap <= tolLength) return FewPoints(centre + foot);
    const CKexVector3d half = along * std::sqrt(gap * (r + std::abs(left)));
    return FewPoints(centre + (foot - half), centre + (foot + half));
}

FewPoints g_ali(const CKexPoint3d& centre, double r, double a1, double a2, const CKexPoint3d& p1,
                const CKexPoint3d& p2, double tolLength)
{
    const Span arc(centre, r, a1, a2);
    return g_cli(centre, r, p1, p2, tolLength).only([&](const CKexPoint3d& p) {
        return arc.holds(p, tolLength);
    });
}

FewPoints g_cci(const CKexPoint3d& c1, double r1, const CKexPoint3d& c2, double r2,
                double tolLength)
{
    const CKexVector3d way = inXY(c2 - c1);
    const double d = way.lengthXY();
    if (!(r1 > 0.0) || !(r2 > 0.0) || !(d > tolLength)) return {};
    const CKexVector3d along = way * (1.0 / d);
    const double sum = r1 + r2, difference = r1 - r2;
    const double outer = sum - d, inner = d - std::abs(difference);
    if (!(outer >= -tolLength) || !(inner >= -tolLength)) return {};
    // Touching: the middle between both circles on the line of the centres.
    if (outer <= tolLength) return FewPoints(c1 + along * (r1 - 0.5 * outer));
    if (inner <= tolLength) {
        const double reach = difference > 0.0 ? r1 + 0.5 * inner : 0.5 * inner - r1;
        return FewPoints(c1 + along * reach);
    }
    const CKexVector3d foot = along * (0.5 * (d + difference * (sum / d)));
    const double half =
        std::sqrt(outer * (d + sum) * (inner * (d + std::abs(difference)))) * (0.5 / d);
    const CKexVector3d left = along.perpXY() * half;
    return FewPoints(c1 + (foot + left), c1 + (foot - left));
}

FewPoints g_cai(const CKexPoint3d& c1, double r1, const CKexPoint3d& c2, double r2, double a1,
                double a2, double tolLength)
{
    const Span arc(c2, r2, a1, a2);
    return g_cci(c1, r1, c2, r2, tolLength).only([&](const CKexPoint3d& p) {
        return arc.holds(p, tolLength);
    });
}

FewPoints g_aai(const CKexPoint3d& c1, double r1, double a1, double a2, const CKexPoint3d& c2,
                double r2, double a3, double a4, double tolLength)
{
    const Span arc(c1, r1, a1, a2);
    return g_cai(c1, r1, c2, r2, a3, a4, tolLength).only([&](const CKexPoint3d& p) {
        return arc.holds(p, tolLength);
    });
}

std::optional<CKexPoint3d> g_int_ll(const CKexPoint3d& p1, const CKexPoint3d& p2,
                                    const CKexPoint3d& p3, const CKexPoint3d& p4, bool segments,
                                    double tolLength, double tolAngle)
{
    const CKexVector3d first = p2 - p1, second = p4 - p3, between = p3 - p1;
    const double size1 = dotXY(first, first), size2 = dotXY(second, second); // squared lengths
    const double cross = crossXY(first, second), tol2 = tolLength * tolLength;
    const bool meet =
        size1 > tol2 && size2 > tol2 && cross * cross > tolAngle * tolAngle * (size1 * size2);
    if (!meet) return std::nullopt;
    const double at1 = crossXY(between, second) / cross; // shares of the segments
    if (segments) {
        const double at2 = crossXY(between, first) / cross;
        const auto beyond = [tolLength](double at, double size) {
            const double length = std::sqrt(size);
            return at * length < -tolLength || (at - 1.0) * length > tolLength;
        };
        if (beyond(at1, size1) || beyond(at2, size2)) return std::nullopt;
    }
    return p1 + first * at1;
}

std::optional<CKexPoint3d> g_arc_pt(const CKexPoint3d& centre, double r, double a1, double a2,
                                    const CKexPoint3d& p, double tolLength)
{
    const CKexVector3d q = p - centre;
    const CKexVector3d off(q.lengthXY() - r, 0.0, q.z);
    const bool onCircle = off.length() <= tolLength;
    if (!onCircle || !Span(centre, r, a1, a2).holds(p, tolLength)) return std::nullopt;
    return p;
}

} // namespace KEX
