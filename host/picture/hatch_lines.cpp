// SPDX-License-Identifier: LicenseRef-ORVALD
// Everything is turned so that the lines of the family are level: line n then lies n distances
// above the base, and the boundary's edges are asked where they cross it.
#include "hatch_lines.h"

#include <algorithm>
#include <cmath>

namespace orvald::picture {

namespace {

struct Crossing
{
    double line; // a whole number
    double x;
    friend auto operator<=>(const Crossing&, const Crossing&) = default;
};

struct Turned // coordinates along and across the lines, from the base point
{
    Vec base, along;
    Vec in(Vec p) const
    {
        const Vec d = p - base;
        return {dot(d, along), cross(along, d)};
    }
    Vec out(Vec p) const
    {
        return base + Vec{p.x * along.x - p.y * along.y, p.x * along.y + p.y * along.x};
    }
};

double periodOf(const std::vector<double>& dashes)
{
    double period = 0.0;
    for (const double dash : dashes) period += std::abs(dash);
    return period;
}

} // namespace

double lineDistance(const drawing::HatchLine& family)
{
    const Vec along{std::cos(family.angle), std::sin(family.angle)};
    const Vec offset = flat(family.offset);
    const double distance = std::abs(cross(along, offset));
    // An offset along the lines does not lead to another line.
    return distance > 1e-9 * length(offset) ? distance : 0.0;
}

bool hatchLines(std::span<const Chords> boundary, const drawing::HatchLine& family, double finest,
                const Bounds& window, std::size_t most, std::vector<HatchSegment>& out)
{
    const Turned turned{flat(family.base), {std::cos(family.angle), std::sin(family.angle)}};
    const Vec offset = turned.in(turned.base + flat(family.offset));
    const double distance = lineDistance(family) > 0.0 ? offset.y : 0.0;

    Bounds seen; // the window in turned coordinates
    for (const Vec corner : {Vec{window.left, window.bottom}, Vec{window.right, window.bottom},
                             Vec{window.left, window.top}, Vec{window.right, window.top}})
        seen.add(turned.in(corner));

    std::vector<Crossing> crossings;
    const std::size_t mostCrossings = 2 * most;
    for (const Chords& run : boundary) {
        for (std::size_t i = 0; i < run.points.size(); ++i) {
            const Vec a = turned.in(run.points[i]);
            const Vec b = turned.in(run.points[(i + 1) % run.points.size()]);
            // Half open, so that a corner on a line counts once.
            const double low = std::max(std::min(a.y, b.y), seen.bottom);
            const double high = std::min(std::max(a.y, b.y), seen.top);
            if (!(low < high)) continue;
            double first = 0.0, last = 0.0; // lines from first to before last
            if (distance != 0.0) {
                const double p = low / distance, q = high / distance;
                first = std::ceil(std::min(p, q));
                last = std::ceil(std::max(p, q));
            } else if (low <= 0.0 && 0.0 < high) {
                last = 1.0;
            }
            if (last - first > double(mostCrossings - crossings.size())) return false;
            // Counted from 0: numbers of lines far away need not change when 1 is added.
            for (double n = 0.0; n < last - first; n += 1.0) {
                const double line = first + n;
                const double share = (line * distance - a.y) / (b.y - a.y);
                crossings.push_back({line, a.x + share * (b.x - a.x)});
            }
        }
    }
    std::sort(crossings.begin(), crossings.end());

    const double period = periodOf(family.dashes);
    const bool dashed = period > finest;
    for (std::size_t i = 0; i + 1 < crossings.size();) {
        const auto [line, enter] = crossings[i];
        const auto [sameLine, leave] = crossings[i + 1];
        if (line != sameLine) { // rounding at a corner lost its partner
            ++i;
            continue;
        }
        i += 2;
        const double from = std::max(enter, seen.left), to = std::min(leave, seen.right);
        const double y = line * distance;
        if (!(from < to)) continue;
        if (!dashed) {
            if (out.size() >= most) return false;
            out.push_back({turned.out({from, y}), turned.out({to, y})});
            continue;
        }
        // Dashes count from where the line's own base point lies.
        const double origin = line * offset.x;
        const double start = origin + std::floor((from - origin) / period) * period;
        const double cycles = std::ceil((to - start) / period);
        if (!(cycles * double(family.dashes.size()) < double(most - out.size()))) return false;
        for (double cycle = 0.0; cycle < cycles; cycle += 1.0) {
            double at = start + cycle * period;
            for (const double dash : family.dashes) {
                const double end = at + std::abs(dash);
                if (dash >= 0.0 && end >= from && at < to)
                    out.push_back(
                        {turned.out({std::max(at, from), y}), turned.out({std::min(end, to), y})});
                at = end;
            }
        }
    }
    return true;
}

} // namespace orvald::picture
