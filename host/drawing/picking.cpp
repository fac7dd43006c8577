// SPDX-License-Identifier: LicenseRef-ORVALD
#include "drawing/picking.h"

#include "outline.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace orvald::drawing {
namespace {

constexpr double kChordShare = 1e-3; // of the size of a border
constexpr double kOnBorder = 1e-9;   // of its size: what lies on a window counts as inside
constexpr double kReachShare = 0.05; // of the reach of a pick

/// Twice the area of a triangle, positive to the left.
double turn(Point a, Point b, Point c)
{
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

bool between(Point a, Point b, Point p)
{
    return std::min(a.x, b.x) <= p.x && p.x <= std::max(a.x, b.x) && std::min(a.y, b.y) <= p.y &&
           p.y <= std::max(a.y, b.y);
}

/// True when two segments have a point in common.
bool meet(Point a, Point b, Point c, Point d)
{
    const double p = turn(a, b, c), q = turn(a, b, d), r = turn(c, d, a), s = turn(c, d, b);
    const bool apart = (p > 0.0) != (q > 0.0) && (r > 0.0) != (s > 0.0);
    if (p != 0.0 && q != 0.0 && r != 0.0 && s != 0.0) return apart;
    return apart || (p == 0.0 && between(a, b, c)) || (q == 0.0 && between(a, b, d)) ||
           (r == 0.0 && between(c, d, a)) || (s == 0.0 && between(c, d, b));
}

bool isInside(std::span<const Point> polygon, Point p)
{
    bool inside = false;
    for (std::size_t i = 0, j = polygon.size() - 1; i < polygon.size(); j = i++) {
        const Point a = polygon[i], b = polygon[j];
        if ((a.y > p.y) != (b.y > p.y) && (turn(a, b, p) > 0.0) == (b.y > a.y)) inside = !inside;
    }
    return inside;
}

/// Calls `test` with each edge; true as soon as one satisfies it.
template <typename Test>
bool anyEdge(std::span<const Point> points, bool closed, const Test& test)
{
    for (std::size_t i = 0; i + 1 < points.size(); ++i)
        if (test(points[i], points[i + 1])) return true;
    return closed && points.size() > 2 && test(points.back(), points.front());
}

bool crosses(std::span<const Point> border, bool closed, const OutlinePath& path)
{
    return anyEdge(path.points, path.area, [&](Point a, Point b) {
        return anyEdge(border, closed, [&](Point c, Point d) { return meet(a, b, c, d); });
    });
}

double distanceTo(Point a, Point b, Point p)
{
    const double x = b.x - a.x, y = b.y - a.y, square = x * x + y * y;
    const double share =
        square > 0.0 ? std::clamp(((p.x - a.x) * x + (p.y - a.y) * y) / square, 0.0, 1.0) : 0.0;
    return std::hypot(a.x + share * x - p.x, a.y + share * y - p.y);
}

/// True when each of two segments has its ends on both sides of the other, farther than `slack`.
bool cut(Point a, Point b, Point c, Point d, double slack)
{
    const double first = slack * std::hypot(b.x - a.x, b.y - a.y);
    const double second = slack * std::hypot(d.x - c.x, d.y - c.y);
    const auto apart = [](double p, double q, double least) {
        return (p > least && q < -least) || (p < -least && q > least);
    };
    return apart(turn(a, b, c), turn(a, b, d), first) &&
           apart(turn(c, d, a), turn(c, d, b), second);
}

bool isWithin(std::span<const Point> border, const OutlinePath& path, double slack)
{
    const auto holds = [&](Point p) {
        return isInside(border, p) || anyEdge(border, true, [&](Point a, Point b) {
                   return distanceTo(a, b, p) <= slack;
               });
    };
    return !path.endless && std::ranges::all_of(path.points, holds) &&
           !anyEdge(path.points, path.area, [&](Point a, Point b) {
               return anyEdge(border, true,
                              [&](Point c, Point d) { return cut(a, b, c, d, slack); });
           });
}

bool isTouched(std::span<const Point> border, const OutlinePath& path)
{
    return isInside(border, path.points.front()) || crosses(border, true, path) ||
           (path.area && isInside(path.points, border.front()));
}

bool isNear(const OutlinePath& path, Point place, double reach)
{
    if (path.points.size() == 1)
        return distanceTo(path.points.front(), path.points.front(), place) <= reach;
    return (path.area && isInside(path.points, place)) ||
           anyEdge(path.points, path.area,
                   [&](Point a, Point b) { return distanceTo(a, b, place) <= reach; });
}

/// Calls `look` for every main entity of the current space that is seen, newest first, until it
/// answers true.
template <typename Look>
void forSeen(const Drawing& drawing, const Look& look)
{
    std::vector<Index> seen;
    if (drawing.currentSpace() == kNone) return;
    for (Index entity = drawing.firstChild(drawing.currentSpace()); entity != kNone;
         entity = drawing.next(entity))
        if (drawing.at(entity).isMainEntity() && isSeen(drawing, drawing.at(entity)))
            seen.push_back(entity);
    for (auto entity = seen.rbegin(); entity != seen.rend(); ++entity)
        if (look(*entity)) return;
}

} // namespace

std::vector<Index> entitiesIn(const Drawing& drawing, Border border, std::span<const Point> corners,
                              const Transform& toView)
{
    std::vector<Index> found;
    if (corners.size() < (border == Border::fence ? 2u : 3u)) return found;
    Box box;
    for (const Point corner : corners) box.add(corner);
    const double size = std::max(length(box.max() - box.min()), std::numeric_limits<double>::min());
    Outline outline(drawing, toView, kChordShare * size);
    forSeen(drawing, [&](Index entity) {
        bool any = false, chosen = border == Border::window;
        outline.walk(entity, [&](const OutlinePath& path) {
            if (path.points.empty()) return true;
            any = true;
            const bool good = border == Border::window ? isWithin(corners, path, kOnBorder * size)
                              : border == Border::crossing ? isTouched(corners, path)
                                                           : crosses(corners, false, path);
            chosen = good;
            // One path outside spoils a window, one touched is enough for the others.
            return good == (border == Border::window);
        });
        if (any && chosen) found.push_back(entity);
        return false;
    });
    return found;
}

std::optional<Hit> entityAt(const Drawing& drawing, Point place, double reach,
                            const Transform& toView)
{
    std::optional<Hit> hit;
    if (!(reach > 0.0)) return hit;
    Outline outline(drawing, toView, kReachShare * reach);
    forSeen(drawing, [&](Index entity) {
        const bool missed = outline.walk(entity, [&](const OutlinePath& path) {
            return path.points.empty() || !isNear(path, place, reach);
        });
        if (missed) return false;
        hit = Hit{entity, outline.part(), outline.inserts(), outline.toSpace()};
        std::ranges::reverse(hit->inserts);
        return true;
    });
    return hit;
}

} // namespace orvald::drawing
