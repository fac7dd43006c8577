// SPDX-License-Identifier: LicenseRef-ORVALD
// Vertex lists from the notations that LISP programs use: vertices, points, points with bulges, an
// entity.
#include "entity_groups.h"
#include "geom/curve_dif.h"
#include "geom/entity_outline.h"
#include "geom/vertex_lists_rows.h"
#include "marshal/arg_reader.h"
#include "marshal/from_rb.h"
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

/// A line or an arc.
bool isSegment(const CAdsName& entity)
{
    const EntityGroups groups(entity);
    return groups.type() == KT("LINE") || groups.type() == KT("ARC");
}

/// The list, closed by a segment of its own when that is asked for and its ends do not meet.
CKexVertexArray completed(OpenList read, bool close)
{
    if (read.list.isEmpty() || !close) return std::move(read.list);
    const CKexPoint3d start = read.list.first().startPoint(), end = read.list.last().endPoint();
    if (!start.isEqualTo(end)) read.list.append(CKexVertex(end, start, read.closingBulge));
    return std::move(read.list);
}

} // namespace

int vxOfNotation(const resbuf* args)
{
    ArgReader in(args);
    const resbuf* const value = in.any();
    in.require(value != nullptr, 1);
    const double dif = curveDif(in, 2);
    if (in.failed()) return in.fail();
    const resbuf* node = value;
    CKexVertex vertex;
    if (readVertex(node, vertex)) return retAds(vertex);
    if (value->restype == RTENAME && !isSegment(CAdsName(value->resval.rlname))) {
        return retAds(false);
    }
    const CKexVertexArray list = readNotation(value, dif).list;
    return list.length() == 1 ? retAds(list.first()) : retAds(false);
}

int vlOfNotation(const resbuf* args)
{
    ArgReader in(args);
    const resbuf* const value = in.any();
    in.require(value != nullptr, 1);
    const bool close = in.flag();
    const double dif = curveDif(in, 3);
    if (in.failed()) return in.fail();
    return retAds(completed(readNotation(value, dif), close));
}

int vllOfNotation(const resbuf* args)
{
    ArgReader in(args);
    const resbuf* const value = in.any();
    in.require(value != nullptr, 1);
    const bool close = in.flag();
    const double dif = curveDif(in, 3);
    if (in.failed()) return in.fail();
    CKexArrayTempl<CKexVertexArray> all;
    const auto take = [&](const resbuf* one) {
        CKexVertexArray list = completed(readNotation(one, dif), close);
        if (!list.isEmpty()) all.append(std::move(list));
    };
    if (value->restype == RTPICKS) {
        const resbuf* node = value;
        CKexEnameArray members;
        for (const CKexEname& member : fromRb(members, node)) {
            resbuf name = {};
            name.restype = RTENAME;
            std::copy_n(member.asName(), 2, name.resval.rlname);
            take(&name);
        }
    } else if (value->restype == RTLB) {
        for (const resbuf* node = value->rbnext; node != nullptr && node->restype != RTLE;
             node = rbSkip(node)) {
            take(node);
        }
    }
    return retAds(all);
}

} // namespace KEX
