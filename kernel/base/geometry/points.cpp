// SPDX-License-Identifier: LicenseRef-ORVALD
// Clouds of points: order, neighbours, hulls.
#include "kex/direction.h"
#include "kex/polygon.h"

#include <algorithm>
#include <array>
#include <limits>
#include <unordered_map>

namespace KEX {
namespace {

/// Kept points in cubes, found by what is near.
class Cells
{
public:
    /// `size` 0 tells only points that are exactly one.
    explicit Cells(double size) : size_(size) {}

    bool hasNear(const CKexPoint3d& p) const
    {
        const Key home = keyOf(p);
        const int cubes = size_ > 0.0 ? 27 : 1;
        for (int cube = 0; cube < cubes; ++cube) {
            // Home first, then its neighbours; far out, where cubes are below the last bit, home
            // again.
            const int step[] = {cube % 3, cube / 3 % 3, cube / 9};
            Key key = home;
            for (std::size_t i = 0; i < 3; ++i) key[i] += step[i] == 2 ? -1.0 : step[i];
            if (holdsNear(key, p)) return true;
        }
        return false;
    }
    void add(const CKexPoint3d& p) { cells_.emplace(keyOf(p), p); }

private:
    using Key = std::array<double, 3>;
    struct Hash
    {
        std::size_t operator()(const Key& key) const
        {
            std::size_t sum = 0;
            for (const double part : key) sum = sum * kSpread + std::hash<double>()(part);
            return sum;
        }
        static constexpr std::size_t kSpread = 1000003;
    };
    Key keyOf(const CKexPoint3d& p) const
    {
        if (!(size_ > 0.0)) return {p.x, p.y, p.z};
        return {std::floor(p.x / size_), std::floor(p.y / size_), std::floor(p.z / size_)};
    }
    bool holdsNear(const Key& key, const CKexPoint3d& p) const
    {
        const auto [first, last] = cells_.equal_range(key);
        return std::any_of(first, last, [&](const auto& cell) {
            const double distance = cell.second.distanceTo(p);
            return distance < size_ || distance == 0.0;
        });
    }

    double size_;
    std::unordered_multimap<Key, CKexPoint3d, Hash> cells_;
};

/// The path a-b-c turns left by more than rounding makes of a straight one.
bool turnsLeft(const CKexPoint3d& a, const CKexPoint3d& b, const CKexPoint3d& c)
{
    constexpr double kRounding = 4.0 * std::numeric_limits<double>::epsilon();
    const CKexVector3d u = b - a, v = c - a;
    return crossXY(u, v) > kRounding * u.lengthXY() * v.lengthXY();
}

} // namespace

CKexPoint3dArray g_pl_uniq(const CKexPoint3dArray& points, double tolLength)
{
    CKexPoint3dArray kept;
    Cells cells(tolLength);
    for (const CKexPoint3d& p : points) {
        if (cells.hasNear(p)) continue;
        cells.add(p);
        kept.append(p);
    }
    return kept;
}

CKexPoint3dArray g_pl_sort(const CKexPoint3dArray& points, double angle, bool unique,
                           double tolLength)
{
    struct Placed
    {
        double along, left;
        CKexPoint3d point;
    };
    const CKexVector3d ahead = directionOf(angle);
    std::vector<Placed> placed;
    for (const CKexPoint3d& p : points) {
        placed.push_back({dotXY(ahead, p.asVector()), crossXY(ahead, p.asVector()), p});
    }
    // An order that also holds for what is not a number: that comes last.
    const auto before = [](double a, double b) { return a < b || (a == a && b != b); };
    std::ranges::stable_sort(placed, before, &Placed::along);
    for (auto group = placed.begin(); group != placed.end();) {
        const auto end = std::find_if(group + 1, placed.end(), [&](const Placed& other) {
            return !(other.along - group->along <= tolLength);
        });
        std::ranges::stable_sort(group, end, before, [](const Placed& p) { return -p.left; });
        group = end;
    }
    CKexPoint3dArray sorted;
    for (const Placed& one : placed) {
        const bool again =
            unique && !sorted.isEmpty() && sorted.last().isEqualTo(one.point, tolLength);
        if (!again) sorted.append(one.point);
    }
    return sorted;
}

CKexPoint3dArray g_pl_hull(const CKexPoint3dArray& points, double tolLength)
{
    CKexPoint3dArray sorted = g_pl_uniq(points, tolLength);
    const bool finite = std::ranges::all_of(
        sorted, [](const CKexPoint3d& p) { return std::isfinite(p.x) && std::isfinite(p.y); });
    if (sorted.length() < 3 || !finite) return sorted;
    std::sort(sorted.begin(), sorted.end(), [](const CKexPoint3d& a, const CKexPoint3d& b) {
        return a.y != b.y ? a.y < b.y : a.x < b.x;
    });
    CKexPoint3dArray hull;
    // Up along the right side, down along the left; each chain begins where the other ends.
    const auto extend = [&hull](const CKexPoint3d& p, int chainStart) {
        while (hull.length() >= chainStart + 2 &&
               !turnsLeft(hull[hull.length() - 2], hull.last(), p)) {
            hull.removeLast();
        }
        hull.append(p);
    };
    for (const CKexPoint3d& p : sorted) extend(p, 0);
    const int top = hull.length() - 1;
    for (int i = sorted.length() - 2; i >= 0; --i) extend(sorted[i], top);
    hull.removeLast(); // the first point again
    return hull;
}

std::optional<int> g_pl_near(const CKexPoint3dArray& points, const CKexPoint3d& p)
{
    if (points.isEmpty()) return std::nullopt;
    int nearest = 0;
    double least = points[0].distanceTo(p);
    for (int i = 1; i < points.length(); ++i) {
        const double distance = points[i].distanceTo(p);
        if (distance < least) {
            least = distance;
            nearest = i;
        }
    }
    return nearest + 1;
}

CKexPoint3dArray g_pl_mtx(const CKexPoint3dArray& points, const CKexMatrix3d& matrix)
{
    CKexPoint3dArray mapped;
    mapped.reserve(points.length());
    for (const CKexPoint3d& p : points) mapped.append(matrix * p);
    return mapped;
}

bool g_pl_colin(const CKexPoint3dArray& points, double tolLength)
{
    if (points.length() < 3) return true;
    const auto farthest = [&](const CKexPoint3d& from) {
        return *std::ranges::max_element(points, {},
                                         [&](const CKexPoint3d& p) { return p.distanceTo(from); });
    };
    const CKexPoint3d a = farthest(points[0]), b = farthest(a);
    return std::ranges::all_of(
        points, [&](const CKexPoint3d& p) { return g_line_dist(p, a, b, 0.0) <= tolLength; });
}

CKexPoint3dArray g_pl_thin(const CKexPoint3dArray& points, double dif)
{
    if (points.length() < 3) return points;
    const auto offWay = [](const CKexPoint3d& p, const CKexPoint3d& a, const CKexPoint3d& b) {
        const CKexVector3d way = b - a;
        const double along = way.dot(p - a), size2 = way.dot(way);
        if (along <= 0.0 || size2 == 0.0) return p.distanceTo(a);
        return along >= size2 ? p.distanceTo(b) : g_line_dist(p, a, b, 0.0);
    };
    std::vector<bool> stays(static_cast<std::size_t>(points.length()), false);
    stays.front() = stays.back() = true;
    // Stretches whose ends stay and whose inside is still to be looked at.
    std::vector<std::pair<int, int>> open{{0, points.length() - 1}};
    while (!open.empty()) {
        const auto [from, to] = open.back();
        open.pop_back();
        int worst = from;
        double most = dif;
        for (int i = from + 1; i < to; ++i) {
            const double off = offWay(points[i], points[from], points[to]);
            if (off > most) {
                most = off;
                worst = i;
            }
        }
        if (worst == from) continue;
        stays[static_cast<std::size_t>(worst)] = true;
        open.push_back({from, worst});
        open.push_back({worst, to});
    }
    CKexPoint3dArray thin;
    for (int i = 0; i < points.length(); ++i) {
        if (stays[static_cast<std::size_t>(i)]) thin.append(points[i]);
    }
    return thin;
}

} // namespace KEX
