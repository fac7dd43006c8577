// SPDX-License-Identifier: LicenseRef-ORVALD
// Intersections of 1,000 segments with 1,000 others, a third of them arcs, against an exact
// arithmetic sweep (CGAL's traits of circle segments), which is the oracle as well: every exact
// point must be among ours within a millionth, and as many. The kernel looks at every pair, without
// an index. Milliseconds, median of rounds.
#include "bench_session.h"

#include "kex/arc.h"
#include "kex/vertex_inters.h"

#include <CGAL/Arr_circle_segment_traits_2.h>
#include <CGAL/Exact_predicates_exact_constructions_kernel.h>
#include <CGAL/Surface_sweep_2_algorithms.h>

#include <chrono>
#include <random>

namespace {

using namespace KEX;
using Clock = std::chrono::steady_clock;
using Exact = CGAL::Exact_predicates_exact_constructions_kernel;
using Traits = CGAL::Arr_circle_segment_traits_2<Exact>;

constexpr int kSegments = 1000; // in each of the two families
constexpr int kRounds = 9;

struct Both
{
    std::vector<CKexVertex> ours;
    std::vector<Traits::Curve_2> exact;
};

/// Segments some 30 long in a square of 1,000; every third one is an arc through three points.
Both makeSegments()
{
    std::mt19937_64 engine(11);
    const auto from = [&](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(engine);
    };
    Both both;
    for (int i = 0; i < 2 * kSegments; ++i) {
        const CKexPoint3d p(from(0, 1000), from(0, 1000));
        const CKexPoint3d q = p + CKexVector3d(from(-30, 30), from(-30, 30));
        const auto exact = [](const CKexPoint3d& point) {
            return Exact::Point_2(point.x, point.y);
        };
        if (i % 3 != 0) {
            both.ours.emplace_back(p, q);
            both.exact.emplace_back(exact(p), exact(q));
            continue;
        }
        const CKexPoint3d over = CKexVertex(p, q, from(0.2, 0.9)).mid();
        double bulge = 0.0;
        g_arc3p_bulg(p, over, q, bulge);
        both.ours.emplace_back(p, q, bulge);
        both.exact.emplace_back(exact(p), exact(over), exact(q));
    }
    return both;
}

double millisecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

std::vector<CKexPoint3d> allPairs(const std::vector<CKexVertex>& segments)
{
    std::vector<CKexPoint3d> points;
    for (std::size_t i = 0; i < segments.size(); ++i) {
        for (std::size_t k = i + 1; k < segments.size(); ++k) {
            for (const CKexPoint3d& p : vx_inters(segments[i], segments[k])) points.push_back(p);
        }
    }
    return points;
}

std::vector<CKexPoint3d> exactSweep(const std::vector<Traits::Curve_2>& curves)
{
    Traits traits;
    std::vector<Traits::Point_2> found;
    CGAL::compute_intersection_points(curves.begin(), curves.end(), std::back_inserter(found),
                                      false, traits);
    std::vector<CKexPoint3d> points;
    for (const Traits::Point_2& p : found) {
        points.emplace_back(CGAL::to_double(p.x()), CGAL::to_double(p.y()));
    }
    return points;
}

/// Every exact point has one of ours beside it, and there are as many.
void compare(std::vector<CKexPoint3d> ours, const std::vector<CKexPoint3d>& exact)
{
    constexpr double kClose = 1e-6;
    std::ranges::sort(ours, {}, [](const CKexPoint3d& p) { return p.x; });
    for (const CKexPoint3d& p : exact) {
        auto at = std::ranges::lower_bound(ours, p.x - kClose, {},
                                           [](const CKexPoint3d& one) { return one.x; });
        while (at != ours.end() && at->x <= p.x + kClose && std::abs(at->y - p.y) > kClose) ++at;
        if (at == ours.end() || at->x > p.x + kClose) kexbench::fail("an exact point is missing");
    }
    if (ours.size() != exact.size()) {
        kexbench::fail("points: " + std::to_string(ours.size()) + ", exactly " +
                       std::to_string(exact.size()));
    }
}

} // namespace

int main()
{
    const Both segments = makeSegments();
    std::vector<double> ours, peers;
    std::size_t count = 0;
    for (int round = 0; round < kRounds; ++round) {
        Clock::time_point start = Clock::now();
        const std::vector<CKexPoint3d> exact = exactSweep(segments.exact);
        peers.push_back(millisecondsSince(start));
        start = Clock::now();
        const std::vector<CKexPoint3d> points = allPairs(segments.ours);
        ours.push_back(millisecondsSince(start));
        if (round == 0) compare(points, exact);
        count = points.size();
    }
    const double own = kexbench::median(ours), peer = kexbench::median(peers);
    std::printf("%d segments, %zu points: kernel, all pairs %.1f ms, exact sweep %.1f ms, %.3f x\n",
                2 * kSegments, count, own, peer, own / peer);
    return 0;
}
