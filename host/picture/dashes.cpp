// SPDX-License-Identifier: LicenseRef-ORVALD
// A run is cut only where the page shows it, so that a line of any length costs what is seen of it.
#include "dashes.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace orvald::picture {

namespace {

constexpr double kFinest = 3.0; // pixels: shorter patterns are a grey line, drawn unbroken

} // namespace

bool fitDashes(const std::vector<double>& pattern, double scale, double length, double dot,
               Dashes& dashes)
{
    dashes.lengths.clear();
    // Neighbours of the same sense join; a pattern that begins with a gap begins with its first
    // dash instead.
    std::size_t first = 0;
    while (first < pattern.size() && pattern[first] < 0.0) ++first;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const double item = pattern[(first + i) % pattern.size()];
        const bool drawn = !(item < 0.0), drawnBefore = dashes.lengths.size() % 2 == 1;
        const double size = drawn ? std::max(item * scale, dot) : -item * scale;
        if (drawn == drawnBefore && !dashes.lengths.empty()) dashes.lengths.back() += size;
        else dashes.lengths.push_back(size);
    }
    if (dashes.lengths.size() > 2 && dashes.lengths.size() % 2 == 1) {
        dashes.lengths.front() += dashes.lengths.back();
        dashes.lengths.pop_back();
    }
    if (dashes.lengths.size() < 2) return false;
    const double period = std::accumulate(dashes.lengths.begin(), dashes.lengths.end(), 0.0);
    if (!(period >= kFinest) || !(length < Path::kFar)) return false;
    const double repeats = std::round(length / period);
    if (repeats < 1.0) return false;
    const double stretch = length / (repeats * period);
    for (double& item : dashes.lengths) item *= stretch;
    dashes.offset = dashes.lengths.front() / 2.0;
    return true;
}

bool clipSegment(Vec from, Vec to, const Bounds& box, double& first, double& last)
{
    first = 0.0;
    last = 1.0;
    const auto keep = [&](double start, double delta, double low, double high) {
        if (delta == 0.0) return start >= low && start <= high;
        const double a = (low - start) / delta, b = (high - start) / delta;
        first = std::max(first, std::min(a, b));
        last = std::min(last, std::max(a, b));
        return first < last;
    };
    return keep(from.x, to.x - from.x, box.left, box.right) &&
           keep(from.y, to.y - from.y, box.bottom, box.top);
}

std::size_t cutDashes(const Chords& run, const Dashes& dashes, const Bounds& page,
                      std::vector<Chords>& out, std::size_t count)
{
    const std::vector<double>& lengths = dashes.lengths;
    const double period = std::accumulate(lengths.begin(), lengths.end(), 0.0);
    std::size_t item = 0; // even: drawn
    double left = 0.0;    // of the item
    const auto place = [&](double at) {
        at = std::fmod(at, period);
        item = 0;
        while (item + 1 < lengths.size() && at >= lengths[item]) at -= lengths[item++];
        left = std::max(lengths[item] - at, 0.0);
    };
    double walked = dashes.offset; // in the pattern, at the start of the segment
    place(walked);
    bool drawing = false; // the last run is still open at the current point
    const auto begin = [&](Vec p) {
        if (count == out.size()) out.emplace_back();
        out[count].points.assign(1, p);
        out[count].closed = false;
        ++count;
        drawing = true;
    };
    const std::size_t corners = run.points.size();
    for (std::size_t i = 0; i + (run.closed ? 0 : 1) < corners; ++i) {
        const Vec a = run.points[i], b = run.points[(i + 1) % corners];
        const double size = length(b - a);
        double first = 0.0, last = 1.0;
        if (size == 0.0) continue;
        if (!clipSegment(a, b, page, first, last)) {
            drawing = false;
            walked += size;
            place(walked);
            continue;
        }
        if (first > 0.0) {
            drawing = false;
            place(walked + first * size);
        }
        // Counted from where the page begins: on an endless line a dash would be lost in rounding.
        const Vec entry = a + first * (b - a);
        const double seen = (last - first) * size;
        double at = 0.0;
        const auto point = [&](double s) { return entry + s / size * (b - a); };
        while (at < seen) {
            const bool drawn = item % 2 == 0;
            if (drawn && !drawing) begin(point(at));
            const double step = std::min(left, seen - at);
            if (drawn) out[count - 1].points.push_back(point(at + step));
            at += step;
            left -= step;
            if (left > 0.0) break; // the segment ends inside the item
            drawing = false;
            item = (item + 1) % lengths.size();
            left = lengths[item];
        }
        walked += size;
        if (last < 1.0) {
            drawing = false;
            place(walked);
        }
    }
    return count;
}

} // namespace orvald::picture
