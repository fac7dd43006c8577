// SPDX-License-Identifier: LicenseRef-ORVALD
// A run is cut only where the page shows it, so that a line of any length costs what is seen of it.
#include "dashes.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace orvald::picture {

namespace {

constexpr double kMostListed = 50.0; // patterns: more are stretched, by one in a hundred at most
constexpr double kRounding = 1e-12;
constexpr double kFinest = 3.0; // pixels: shorter patterns are a grey line, drawn unbroken

} // namespace

Fit fitDashes(const std::vector<double>& pattern, double scale, double length, bool hasEnds,
              double dot, Dashes& dashes)
{
    std::vector<double>& lengths = dashes.lengths;
    lengths.clear();
    dashes.ends.assign(pattern.size(), 0.0);
    // Neighbours of the same sense join; a pattern that begins with a gap begins with its first
    // dash instead.
    std::size_t first = 0;
    while (first < pattern.size() && pattern[first] < 0.0) ++first;
    double period = 0.0;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const std::size_t element = (first + i) % pattern.size();
        const double item = pattern[element];
        const bool drawn = !(item < 0.0), drawnBefore = lengths.size() % 2 == 1;
        const double size = drawn ? std::max(item * scale, dot) : -item * scale;
        if (drawn == drawnBefore && !lengths.empty()) lengths.back() += size;
        else lengths.push_back(size);
        period += size;
        dashes.ends[element] = period;
    }
    // Where the pattern, as it is read, begins in the one that begins with a whole dash.
    double lead = 0.0;
    if (lengths.size() > 2 && lengths.size() % 2 == 1) {
        lead = lengths.back();
        lengths.front() += lead;
        lengths.pop_back();
    }
    if (lengths.empty() || !(period >= kFinest) || !(length < Path::kFar)) return Fit::none;
    const double whole = std::floor(length / period * (1.0 + kRounding));
    if (whole < 1.0) return Fit::none;
    dashes.period = period;
    if (lengths.size() < 2) {
        dashes.origin = (length - whole * period) / 2.0;
        return first < pattern.size() ? Fit::unbroken : Fit::none;
    }
    const double dash = lengths.front();
    const bool dotted = pattern[first] == 0.0;
    const double end = (length - whole * period + dash) / 2.0; // of the first and the last dash
    if (hasEnds && !dotted && end <= dash) {
        dashes.offset = dash - end;
        dashes.origin = end - dash + lead;
        return Fit::dashed;
    }
    if (hasEnds && !dotted && whole <= kMostListed) {
        const std::vector<double> once = lengths;
        lengths.front() = end;
        for (double n = 1.0; n < whole; n += 1.0)
            lengths.insert(lengths.end(), once.begin(), once.end());
        // Rounding must not begin it anew.
        lengths.insert(lengths.end(), {end + period, 0.0});
        dashes.offset = 0.0;
        dashes.origin = end - dash + lead;
        return Fit::dashed;
    }
    const double stretch = length / (std::max(std::round(length / period), 1.0) * period);
    for (double& item : lengths) item *= stretch;
    for (double& item : dashes.ends) item *= stretch;
    dashes.period *= stretch;
    dashes.offset = lengths.front() / 2.0;
    dashes.origin = lead * stretch - dashes.offset;
    return Fit::dashed;
}

bool markPlaces(const Chords& run, const Dashes& dashes, const LineType& type, const Bounds& page,
                std::size_t most, std::vector<MarkPlace>& out)
{
    // A mark that stands off the page by less than its pattern is long may reach into it.
    Bounds around = page;
    around.grow(2.0 * dashes.period);
    double walked = 0.0; // along the run, at the start of the segment
    const std::size_t corners = run.points.size();
    for (std::size_t i = 0; i + (run.closed ? 0 : 1) < corners; ++i) {
        const Vec a = run.points[i], b = run.points[(i + 1) % corners];
        const double size = length(b - a);
        double from = 0.0, to = 1.0;
        if (size > 0.0 && clipSegment(a, b, around, from, to)) {
            for (const LineMark& mark : type.marks) {
                const double start = dashes.origin + dashes.ends[mark.element] - walked;
                const double first = std::ceil((from * size - start) / dashes.period);
                const double last = std::ceil((to * size - start) / dashes.period);
                if (!(last - first <= double(most - out.size()))) return false;
                for (double n = first; n < last; n += 1.0)
                    out.push_back({&mark, a + (start + n * dashes.period) / size * (b - a),
                                   1.0 / size * (b - a)});
            }
        }
        walked += size;
    }
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
