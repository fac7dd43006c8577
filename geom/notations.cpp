// SPDX-License-Identifier: LicenseRef-ORVALD
// Vertex lists from the notations that LISP programs use: vertices, points, points with bulges, an
// entity.
#include "geom/curve_dif.h"
#include "geom/entity_outline.h"
#include "geom/vertex_lists_rows.h"
#include "marshal/arg_reader.h"
#include "marshal/ret_ads.h"

namespace KEX {
namespace {

/// (point bulge).
bool readPointBulge(const resbuf*& rb, CKexPoint3d& point, double& bulge)
{
    if (rb == nullptr || rb->restype != RTLB) return false;
    const resbuf* node = rb->rbnext;
    if (!readPoint(node, point) || !readNumber(node, bulge)) return false;
    if (node == nullptr || (node->restype != RTLE && node->restype != RTDOTE)) return false;
    rb = node->rbnext;
    return true;
}

/// A vertex list, and the bulge of the segment that would close it.
struct OpenList
{
    CKexVertexArray list;
    double closingBulge = 0.0;
};

/// A list of points or of points with bulges; false when it is neither.
bool readPoints(const resbuf* node, OpenList& out)
{
    CKexPoint3d from, to;
    double bulge = 0.0, next = 0.0;
    const auto read = [&](CKexPoint3d& point, double& b) {
        b = 0.0;
        return readPointBulge(node, point, b) || readPoint(node, point);
    };
    if (node == nullptr || node->restype != RTLB) return false;
    node = node->rbnext;
    if (!read(from, bulge)) return false;
    while (read(to, next)) {
        out.list.append(CKexVertex(from, to, bulge));
        from = to;
        bulge = next;
    }
    out.closingBulge = bulge;
    return node != nullptr && node->restype == RTLE;
}

/// An empty list when the value is no vertex list in any notation.
OpenList readNotation(const resbuf* value, double dif)
{
    OpenList read;
    const resbuf* node = value;
    if (value->restype == RTENAME) {
        const CAdsName entity(value->resval.rlname);
        read.list = entityOutline(entity, dif).value_or(CKexVertexArray());
    } else if (value->restype == RTLB && !readVertexList(node, read.list)) {
        read.list.clear();
        if (!readPoints(value, read)) read.list.clear();
    }
    return read;
}

} // namespace

int vlOfNotation(const resbuf* args)
{
    ArgReader in(args);
    const resbuf* const value = in.any();
    in.require(value != nullptr, 1);
    const bool close = in.flag();
    const double dif = curveDif(in, 3);
    if (in.failed()) return in.fail();
    auto [list, closingBulge] = readNotation(value, dif);
    if (list.isEmpty()) return retAds(false);
    const CKexPoint3d start = list.first().startPoint(), end = list.last().endPoint();
    if (close && !start.isEqualTo(end)) list.append(CKexVertex(end, start, closingBulge));
    return retAds(list);
}

} // namespace KEX
