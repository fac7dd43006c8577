// SPDX-License-Identifier: LicenseRef-ORVALD
// LISP functions on bodies of prisms: lists of (matrix region height).
#include "entity_groups.h"
#include "geom/entity_curve.h"
#include "geom/prism_rows.h"
#include "kex/prism.h"

namespace KEX {
namespace {

bool readRegion(const resbuf*& rb, Region& region)
{
    if (rb == nullptr || rb->restype != RTLB) return false;
    const resbuf* node = rb->rbnext;
    CKexVertexArray loop;
    while (node != nullptr && node->restype == RTLB && readVertexList(node, loop)) {
        region.append(loop);
        loop.clear();
    }
    if (node == nullptr || node->restype != RTLE) return false;
    rb = node->rbnext;
    return true;
}

/// (matrix region height).
bool readPrism(const resbuf*& rb, Prism& prism)
{
    if (rb == nullptr || rb->restype != RTLB) return false;
    const resbuf* node = rb->rbnext;
    CKexMatrix3d system;
    Region region;
    double height = 0.0;
    if (!readMatrix(node, system) || !readRegion(node, region) || !readNumber(node, height) ||
        node == nullptr || node->restype != RTLE) {
        return false;
    }
    auto read = g_prism(region, height, system);
    if (!read) return false;
    prism = std::move(*read);
    rb = node->rbnext;
    return true;
}

Body readBody(ArgReader& in, int position)
{
    Body body;
    const resbuf* node = in.any();
    if (in.failed() || (node != nullptr && node->restype == RTNIL)) return body;
    const bool list = node != nullptr && node->restype == RTLB;
    if (list) node = node->rbnext;
    Prism prism;
    while (list && readPrism(node, prism)) body.append(std::move(prism));
    in.require(list && node != nullptr && node->restype == RTLE, position);
    return body;
}

int retBody(const Body& body)
{
    RbBuilder list;
    for (const Prism& prism : body) {
        list.begin();
        rbPut(list, prism.system);
        rbPut(list, prism.region);
        list.real(prism.height).end();
    }
    return retList(list.take());
}

int retBody(std::optional<Prism> prism)
{
    Body body;
    if (prism) body.append(std::move(*prism));
    return retBody(body);
}

/// A vertex list, or several as a region.
Region readOutlines(ArgReader& in, int position)
{
    Region region;
    const resbuf* value = in.any();
    const resbuf* node = value;
    CKexVertexArray single;
    if (readVertexList(node, single)) {
        if (!single.isEmpty()) region.append(std::move(single));
        return region;
    }
    node = value;
    in.require(readRegion(node, region), position);
    return region;
}

} // namespace

int solidExtrude(const resbuf* args)
{
    ArgReader in(args);
    const Region outlines = readOutlines(in, 1);
    const double height = in.number(2);
    const CKexMatrix3d system = in.absent() ? CKexMatrix3d() : in.matrix(3);
    if (in.failed()) return in.fail();
    return retBody(g_prism(outlines, height, system));
}

int solidOfEntity(const resbuf* args)
{
    ArgReader in(args);
    const CAdsName entity = in.ename(0);
    if (in.failed()) return in.fail();
    const EntityGroups groups(entity);
    const auto plane = entityPlane(groups);
    const auto curve = EntityCurve::of(entity);
    if (!plane || !curve) return retAds(false);
    // The outline of a level entity is given in the world.
    const CKexMatrix3d system = plane->toWorld();
    Region outline;
    outline.append(curve->list());
    if (!curve->isTilted()) {
        const CKexMatrix3d back = system.inverse().value_or(CKexMatrix3d());
        for (CKexVertex& v : outline.first()) {
            v = CKexVertex(back * v.startPoint(), back * v.endPoint(), plane->bulge(v.bulge()));
        }
    }
    return retBody(g_prism(outline, groups.real(39), system));
}

int solidTransform(const resbuf* args)
{
    ArgReader in(args);
    const Body body = readBody(in, 1);
    const CKexMatrix3d map = in.matrix(2);
    if (in.failed()) return in.fail();
    const std::optional<Body> mapped = g_solid_mtx(body, map);
    return mapped ? retBody(*mapped) : retAds(false);
}

int solidVolume(const resbuf* args)
{
    ArgReader in(args);
    const Body body = readBody(in, 0);
    if (in.failed()) return in.fail();
    const Volume volume = g_solid_vol(body);
    return retList(RbBuilder().real(volume.volume).point(volume.centroid).take());
}

int solidExtents(const resbuf* args)
{
    ArgReader in(args);
    const Body body = readBody(in, 0);
    return in.failed() ? in.fail() : adapting::give(g_solid_ext(body));
}

int solidEdges(const resbuf* args)
{
    ArgReader in(args);
    const Body body = readBody(in, 0);
    return in.failed() ? in.fail() : retAds(g_solid_edges(body, angleTolerance()));
}

int solidInside(const resbuf* args)
{
    ArgReader in(args);
    const Body body = readBody(in, 1);
    const CKexPoint3d p = in.point(2);
    return in.failed() ? in.fail() : retAds(g_solid_inside(body, p));
}

} // namespace KEX
