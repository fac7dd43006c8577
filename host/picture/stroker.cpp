// SPDX-License-Identifier: LicenseRef-ORVALD
// One box for each segment and one wedge for each corner.
#include "stroker.h"

#include <algorithm>
#include <numbers>

namespace orvald::picture {

namespace {

constexpr double kChordTolerance = 0.1; // pixels, of round ends and corners
constexpr double kLeastStep = 1e-3;     // radians of a chord, however wide the line
constexpr double kThin = 2.5;           // pixels: below this a round end looks like a square one
// Of a thin line's width: a square end this long has the area of a round one.
constexpr double kThinEnd = std::numbers::pi / 8.0;
constexpr double kMitreLimit = 4.0;  // in half widths, from the corner to the tip
constexpr double kNoLength = 1e-9;   // pixels
constexpr double kFlatCorner = 0.02; // sine of the turn, below which a corner leaves no gap

class Stroker
{
public:
    Stroker(Coverage& coverage, double width, Ends ends)
        : coverage_(coverage), half_(width / 2.0), ends_(ends)
    {
    }

    void box(Vec a, Vec b, Vec n)
    {
        polygon(a + n);
        polygon(b + n);
        polygon(b - n);
        polygon(a - n);
        closePolygon();
    }

    // The gap on the outer side of a corner between two segments with the normals n1 and n2.
    void corner(Vec p, Vec n1, Vec n2)
    {
        const double turn = cross(n1, n2) / (half_ * half_);
        const bool back = dot(n1, n2) < 0.0;
        if (std::abs(turn) < kFlatCorner && !back) return;
        const bool left = turn > 0.0;
        const Vec first = left ? Vec{} - n2 : n1, last = left ? Vec{} - n1 : n2;
        polygon(p);
        polygon(p + first);
        if (ends_ == Ends::sharp) mitre(p, first, last);
        else round(p, first, last);
        polygon(p + last);
        closePolygon();
    }

    // Half a disc around p, from p + n to p - n.
    void cap(Vec p, Vec n)
    {
        polygon(p + n);
        round(p, n, Vec{} - n);
        polygon(p - n);
        closePolygon();
    }

    void dot(Vec p)
    {
        const Vec n{half_, 0.0};
        cap(p, n);
        cap(p, Vec{} - n);
    }

private:
    static double dot(Vec a, Vec b) { return picture::dot(a, b); }

    void polygon(Vec p)
    {
        if (open_) coverage_.edge(last_, p);
        else first_ = p;
        open_ = true;
        last_ = p;
    }
    void closePolygon()
    {
        coverage_.edge(last_, first_);
        open_ = false;
    }

    void mitre(Vec p, Vec first, Vec last)
    {
        // The tip t lies on both offset lines: t.first = t.last = half^2.
        const Vec sum = first + last;
        const double stretch = half_ * half_ + dot(first, last);
        if (stretch <= 0.0) return;
        const Vec tip = half_ * half_ / stretch * sum;
        if (length(tip) <= kMitreLimit * half_) polygon(p + tip);
    }

    // The points between first and last on the arc around p that turns as the boxes do.
    void round(Vec p, Vec first, Vec last)
    {
        double angle = std::atan2(cross(first, last), dot(first, last));
        if (angle > 0.0) angle -= 2.0 * std::numbers::pi; // only -0 and rounding can bring it here
        const double step = std::clamp(std::sqrt(8.0 * kChordTolerance / half_), kLeastStep,
                                       std::numbers::pi / 3.0);
        const int chords = std::max(1, static_cast<int>(std::ceil(-angle / step)));
        for (int i = 1; i < chords; ++i) {
            const double t = angle * (double(i) / chords);
            const double c = std::cos(t), s = std::sin(t);
            polygon(p + Vec{c * first.x - s * first.y, s * first.x + c * first.y});
        }
    }

    Coverage& coverage_;
    double half_;
    Ends ends_;
    Vec first_, last_;
    bool open_ = false;
};

} // namespace

void addStroke(Coverage& coverage, const Chords& run, double width, Ends ends, bool capped)
{
    Stroker stroker(coverage, width, ends);
    const double half = width / 2.0;
    const bool roundEnds = capped && !run.closed && ends == Ends::round;
    const bool thin = width < kThin;

    Vec start, previous, firstNormal, normal; // previous: end of the last segment with length
    bool any = false;
    const auto segment = [&](Vec to) {
        const Vec along = to - previous;
        const double size = length(along);
        if (size < kNoLength) return;
        const Vec unit = 1.0 / size * along;
        const Vec n{-half * unit.y, half * unit.x};
        if (any) stroker.corner(previous, normal, n);
        Vec from = previous;
        if (!any) {
            firstNormal = n;
            if (roundEnds && thin) from = from - kThinEnd * width * unit;
        }
        stroker.box(from, to, n);
        any = true;
        normal = n;
        previous = to;
    };
    if (run.points.empty()) return;
    start = previous = run.points.front();
    for (const Vec p : run.points) segment(p);
    if (run.closed) segment(start);
    if (!any) {
        if (capped && ends == Ends::round) stroker.dot(start);
        return;
    }
    if (run.closed) {
        stroker.corner(start, normal, firstNormal);
    } else if (roundEnds && thin) {
        const Vec unit{normal.y / half, -normal.x / half};
        stroker.box(previous, previous + kThinEnd * width * unit, normal);
    } else if (roundEnds) {
        stroker.cap(previous, normal);
        stroker.cap(start, Vec{} - firstNormal);
    }
}

} // namespace orvald::picture
