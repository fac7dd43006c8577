// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/prism.h"

#include "kex/frame.h"
#include "kex/vertex_area.h"
#include "kex/vertex_place.h"

#include <algorithm>
#include <cmath>

namespace KEX {
namespace {

/// A system without its scale; nothing when the axes are not square or not of one length.
struct Unscaled
{
    CKexMatrix3d system;
    double scale;
    bool mirrored; // the Y axis has been turned round
};
std::optional<Unscaled> unscaled(const CKexMatrix3d& m)
{
    const CKexVector3d x = g_mtx_column(m, 0), y = g_mtx_column(m, 1), z = g_mtx_column(m, 2);
    const double size = x.length();
    constexpr double kNoise = 1e-9; // relative, of lengths and cosines
    const auto same = [&](const CKexVector3d& v) {
        return std::abs(v.length() - size) <= kNoise * size;
    };
    const auto square = [&](const CKexVector3d& a, const CKexVector3d& b) {
        return std::abs(a.dot(b)) <= kNoise * size * size;
    };
    const bool good = size > 0.0 && std::isfinite(size) && same(y) && same(z) && square(x, y) &&
                      square(y, z) && square(z, x);
    if (!good) return std::nullopt;
    const bool mirrored = x.cross(y).dot(z) < 0.0;
    const double part = 1.0 / size;
    const CKexPoint3d origin(m(0, 3), m(1, 3), m(2, 3));
    return Unscaled{
        CKexMatrix3d::coordSystem(origin, x * part, y * (mirrored ? -part : part), z * part), size,
        mirrored};
}

CKexVertexArray scaledOutline(const CKexVertexArray& list, double scale, bool mirrored)
{
    const double across = mirrored ? -scale : scale;
    CKexVertexArray scaled;
    for (const CKexVertex& v : list) {
        const auto at = [&](const CKexPoint3d& p) {
            return CKexPoint3d(p.x * scale, p.y * across, 0.0);
        };
        scaled.append(CKexVertex(at(v.startPoint()), at(v.endPoint()),
                                 mirrored ? 0.0 - v.bulge() : v.bulge()));
    }
    return scaled;
}

/// Area and moments of a region, holes taken off, about the origin of its system.
AreaMoments momentsOf(const Region& region)
{
    AreaMoments sum;
    for (const CKexVertexArray& loop : region) {
        const CKexPoint3d start = loop.first().startPoint();
        const AreaMoments one = vl_moments(loop, start);
        sum.area += one.area;
        sum.moment = sum.moment + one.moment + start.asVector() * one.area;
    }
    return sum;
}

int insideRegion(const Region& region, const CKexPoint3d& p, double tol)
{
    int side = -1;
    for (int i = 0; i < region.length(); ++i) {
        const int one = vl_inside(region[i], p, tol);
        if (one == 0) return 0;
        if (i == 0) side = one;
        else if (one == 1) side = -1;
    }
    return side;
}

/// 1 between the ends, 0 at one of them, -1 beyond.
int between(double z, double height, double tol)
{
    const double low = std::min(0.0, height), high = std::max(0.0, height);
    if (z < low - tol || z > high + tol) return -1;
    return z > low + tol && z < high - tol ? 1 : 0;
}

CKexPoint3d lifted(const CKexPoint3d& p, double z) { return {p.x, p.y, z}; }

void addOutline(CKexArrayTempl<Line>& edges, const Prism& prism, const CKexVertexArray& loop,
                double z)
{
    constexpr double kStep = kPi / 12.0; // 15°
    for (const CKexVertex& vertex : loop) {
        const int parts = std::max(
            1, static_cast<int>(std::ceil(std::abs(vertex.sweep()) / kStep - kAngleNoise)));
        CKexPoint3d from = prism.system * lifted(vertex.startPoint(), z);
        for (int i = 1; i <= parts; ++i) {
            const CKexPoint3d to =
                prism.system * lifted(vx_point(vertex, static_cast<double>(i) / parts), z);
            edges.append(Line{from, to});
            from = to;
        }
    }
}

void addUprights(CKexArrayTempl<Line>& edges, const Prism& prism, const CKexVertexArray& loop,
                 double tolAngle)
{
    for (int i = 0; i < loop.length(); ++i) {
        const CKexVertex& before = loop[(i + loop.length() - 1) % loop.length()];
        const CKexVector3d in = vx_tangent(before, 1.0), out = vx_tangent(loop[i], 0.0);
        const double turn = std::atan2(in.x * out.y - in.y * out.x, in.dot(out));
        if (std::abs(turn) <= tolAngle) continue;
        const CKexPoint3d& corner = loop[i].startPoint();
        edges.append(
            Line{prism.system * lifted(corner, 0.0), prism.system * lifted(corner, prism.height)});
    }
}

} // namespace

std::optional<Prism> g_prism(const Region& outlines, double height, const CKexMatrix3d& system)
{
    const std::optional<Unscaled> plain = unscaled(system);
    if (!plain || outlines.isEmpty()) return std::nullopt;
    const double tall = height * plain->scale;
    if (!(std::abs(tall) > CKexPoint3d::tol)) return std::nullopt;
    Prism prism{plain->system, {}, tall};
    for (const CKexVertexArray& outline : outlines) {
        if (!outline.isClosed()) return std::nullopt;
        CKexVertexArray loop = scaledOutline(outline, plain->scale, plain->mirrored);
        const bool outer = prism.region.isEmpty();
        if ((vl_area(loop) > 0.0) != outer) loop = vl_reversed(loop);
        prism.region.append(std::move(loop));
    }
    return prism;
}

std::optional<Body> g_solid_mtx(const Body& body, const CKexMatrix3d& map)
{
    Body mapped;
    for (const Prism& prism : body) {
        auto one = g_prism(prism.region, prism.height, map * prism.system);
        if (!one) return std::nullopt;
        mapped.append(std::move(*one));
    }
    return mapped;
}

Volume g_solid_vol(const Body& body)
{
    Volume sum;
    CKexVector3d moment;
    for (const Prism& prism : body) {
        const AreaMoments area = momentsOf(prism.region);
        const double volume = area.area * std::abs(prism.height);
        if (!(volume > 0.0)) continue;
        const CKexVector3d centre = area.moment * (1.0 / area.area);
        const CKexPoint3d world = prism.system * CKexPoint3d(centre.x, centre.y, prism.height / 2);
        sum.volume += volume;
        moment = moment + world.asVector() * volume;
    }
    if (sum.volume > 0.0) sum.centroid = CKexPoint3d() + moment * (1.0 / sum.volume);
    return sum;
}

std::optional<Box> g_solid_ext(const Body& body)
{
    std::optional<Box> box;
    for (const Prism& prism : body) {
        const CKexMatrix3d top = prism.system * CKexMatrix3d::translation({0.0, 0.0, prism.height});
        for (const CKexVertexArray& loop : prism.region) {
            for (const CKexVertex& vertex : loop) {
                for (const CKexMatrix3d& map : {prism.system, top}) {
                    const Box one = vx_box(vertex, map);
                    if (box) box->add(one);
                    else box = one;
                }
            }
        }
    }
    return box;
}

CKexArrayTempl<Line> g_solid_edges(const Body& body, double tolAngle)
{
    CKexArrayTempl<Line> edges;
    for (const Prism& prism : body) {
        for (const CKexVertexArray& loop : prism.region) {
            addOutline(edges, prism, loop, 0.0);
            addOutline(edges, prism, loop, prism.height);
            addUprights(edges, prism, loop, tolAngle);
        }
    }
    return edges;
}

int g_solid_inside(const Body& body, const CKexPoint3d& p, double tolLength)
{
    int best = -1;
    for (const Prism& prism : body) {
        const std::optional<CKexMatrix3d> back = prism.system.inverse();
        if (!back) continue;
        const CKexPoint3d local = *back * p;
        const int along = between(local.z, prism.height, tolLength);
        if (along < 0) continue;
        const int across = insideRegion(prism.region, lifted(local, 0.0), tolLength);
        if (across >= 0) best = std::max(best, std::min(along, across));
    }
    return best;
}

} // namespace KEX
