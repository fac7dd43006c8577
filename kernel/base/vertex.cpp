// SPDX-License-Identifier: LicenseRef-ORVALD
// Segments and lists of segments. Formulas work on the chord vector, which is exact where the ends
// are close together however far they lie from the origin.
#include "kex/vertex.h"

#include "kex/vertex_ex.h"

#include <limits>

CKexVertex::CKexVertex(const CKexPoint3d& centre, double radius, double a1, double a2)
{
    const double r = std::abs(radius);
    const auto at = [&](double angle) {
        return centre + CKexVector3d(r * std::cos(angle), r * std::sin(angle));
    };
    start_ = at(a1);
    const double sweep = radius < 0.0 ? -KEX::g_ang(a1 - a2) : KEX::g_ang(a2 - a1);
    end_ = sweep == 0.0 ? start_ : at(a2);
    bulge_ = KEX::g_ang_bulg(sweep);
}

double CKexVertex::radius() const
{
    if (isStraight()) return std::numeric_limits<double>::infinity();
    const double b = std::abs(bulge_);
    return chord() * 0.25 * (b + 1.0 / b);
}

double CKexVertex::bulgLen() const
{
    if (isStraight()) return chord();
    // radius · sweep with the bulge cancelled as far as it goes, so that nothing overflows near a
    // full circle and nothing is lost near a straight line.
    const double b = std::abs(bulge_);
    return chord() * (b + 1.0 / b) * std::atan(b);
}

CKexPoint3d CKexVertex::center() const
{
    const CKexVector3d d = end_ - start_;
    if (isStraight()) return start_ + d * 0.5;
    // Distance of the centre from the chord, in chords: (1 - b²)/(4b).
    const double rise = 0.25 * (1.0 / bulge_ - bulge_);
    return start_ + CKexVector3d(d.x, d.y) * 0.5 + d.perpXY() * rise;
}

CKexPoint3d CKexVertex::mid() const
{
    const CKexVector3d d = end_ - start_;
    if (isStraight()) return start_ + d * 0.5;
    return start_ + CKexVector3d(d.x, d.y) * 0.5 - d.perpXY() * (0.5 * bulge_);
}

double CKexVertexArray::geomLength() const
{
    double sum = 0.0;
    for (const CKexVertex& vertex : *this) sum += vertex.bulgLen();
    return sum;
}

int CKexVertexArray::numOpens(double tolLength) const
{
    int gaps = 0;
    for (int i = 1; i < length(); ++i) {
        if (!(*this)[i - 1].endPoint().isEqualTo((*this)[i].startPoint(), tolLength)) ++gaps;
    }
    return gaps;
}

bool CKexVertexArray::isClosed(double tolLength) const
{
    return length() >= 2 && numOpens(tolLength) == 0 &&
           last().endPoint().isEqualTo(first().startPoint(), tolLength);
}

CKexPoint3dArray CKexVertexArray::pts(double tolLength) const
{
    CKexPoint3dArray points;
    points.reserve(length() + 1);
    for (int i = 0; i < length(); ++i) {
        const CKexVertex& vertex = (*this)[i];
        points.append(vertex.startPoint());
        const bool joined =
            i + 1 < length() && vertex.endPoint().isEqualTo((*this)[i + 1].startPoint(), tolLength);
        if (!joined) points.append(vertex.endPoint());
    }
    return points;
}

CKexVertexArrayEx::CKexVertexArrayEx(const CKexVertexArray& list)
{
    reserve(list.length());
    for (const CKexVertex& vertex : list) append(KEX::VertexEx(vertex));
}

CKexVertexArray CKexVertexArrayEx::vertices() const
{
    CKexVertexArray list;
    list.reserve(length());
    for (const KEX::VertexEx& item : *this) list.append(item.vertex);
    return list;
}
