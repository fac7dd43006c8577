// SPDX-License-Identifier: LicenseRef-ORVALD
// Splines by repeated interpolation between control points (de Boor), span by span.
#include "splines.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace orvald::picture {

using drawing::Point;

namespace {

constexpr int kMostDegree = 25;
constexpr int kMostChordsOfSpan = 512;

// A smooth piece of that many pixels deviates from its chords by less than a quarter of a pixel.
int chordsFor(double pixels)
{
    const double wanted = 2.0 + 2.0 * std::sqrt(pixels);
    return wanted < kMostChordsOfSpan ? static_cast<int>(wanted) : kMostChordsOfSpan;
}

struct Weighted
{
    Point at; // times weight
    double weight = 1.0;
};

class DeBoor
{
public:
    explicit DeBoor(const Spline& spline) : spline_(spline), degree_(std::size_t(spline.degree)) {}

    bool isSound() const
    {
        const Spline& s = spline_;
        return s.degree >= 1 && s.degree <= kMostDegree && s.controls.size() > degree_ &&
               s.knots.size() >= s.controls.size() + degree_ + 1 &&
               std::is_sorted(s.knots.begin(), s.knots.end()) &&
               s.knots[degree_] < s.knots[s.controls.size()];
    }

    // The point at t within the span from knot `span` to the next.
    Point at(std::size_t span, double t) const
    {
        std::array<Weighted, kMostDegree + 1> d;
        for (std::size_t i = 0; i <= degree_; ++i) {
            const std::size_t control = span - degree_ + i;
            const double weight =
                spline_.weights.size() == spline_.controls.size() ? spline_.weights[control] : 1.0;
            d[i] = {weight * spline_.controls[control], weight};
        }
        for (std::size_t level = 1; level <= degree_; ++level) {
            for (std::size_t i = degree_; i >= level; --i) {
                const std::size_t low = span - degree_ + i;
                const double from = spline_.knots[low],
                             to = spline_.knots[low + degree_ + 1 - level];
                const double share = to > from ? (t - from) / (to - from) : 0.0;
                d[i] = {(1.0 - share) * d[i - 1].at + share * d[i].at,
                        (1.0 - share) * d[i - 1].weight + share * d[i].weight};
            }
        }
        const Weighted& result = d[degree_];
        return result.weight != 0.0 ? 1.0 / result.weight * result.at : result.at;
    }

private:
    const Spline& spline_;
    std::size_t degree_;
};

// A cubic through the fit points whose direction at each is that from its neighbour before to the
// one behind.
std::vector<Point> throughPoints(const std::vector<Point>& fits, bool closed, double scale)
{
    std::vector<Point> out;
    const std::size_t count = fits.size();
    const auto fit = [&](std::ptrdiff_t i) {
        const auto n = std::ptrdiff_t(count);
        return fits[std::size_t(closed ? (i + n) % n : std::clamp<std::ptrdiff_t>(i, 0, n - 1))];
    };
    out.push_back(fits.front());
    const std::size_t spans = closed ? count : count - 1;
    for (std::size_t s = 0; s < spans; ++s) {
        const auto i = std::ptrdiff_t(s);
        const Point a = fit(i), b = fit(i + 1);
        const Point da = 0.5 * (b - fit(i - 1)), db = 0.5 * (fit(i + 2) - a);
        const int chords = chordsFor(length(b - a) * scale);
        for (int k = 1; k <= chords; ++k) {
            const double t = double(k) / chords, r = 1.0 - t;
            out.push_back(r * r * (1.0 + 2.0 * t) * a + t * t * (3.0 - 2.0 * t) * b +
                          t * r * r * da + -t * t * r * db);
        }
    }
    return out;
}

} // namespace

Spline splineOf(const drawing::Record& record)
{
    Spline spline;
    for (const drawing::Tag tag : record.tags) {
        switch (tag.code()) {
        case 10: spline.controls.push_back(tag.point()); break;
        case 11: spline.fits.push_back(tag.point()); break;
        case 40: spline.knots.push_back(tag.real()); break;
        case 41: spline.weights.push_back(tag.real()); break;
        case 70: spline.closed = (tag.integer() & 1) != 0; break;
        case 71: spline.degree = int(std::clamp<std::int64_t>(tag.integer(), 0, 100)); break;
        default: break;
        }
    }
    return spline;
}

std::vector<Point> splinePoints(const Spline& spline, double scale)
{
    const std::vector<Point>& controls = spline.controls;
    if (controls.empty() && spline.fits.size() > 1)
        return throughPoints(spline.fits, spline.closed, scale);
    const DeBoor curve(spline);
    if (!curve.isSound()) return controls;

    std::vector<Point> out;
    const auto degree = std::size_t(spline.degree);
    for (std::size_t span = degree; span < controls.size(); ++span) {
        const double from = spline.knots[span], to = spline.knots[span + 1];
        if (!(from < to)) continue;
        if (out.empty()) out.push_back(curve.at(span, from));
        double hull = 0.0;
        for (std::size_t i = span - degree; i < span; ++i)
            hull += length(controls[i + 1] - controls[i]);
        const int chords = spline.degree == 1 ? 1 : chordsFor(hull * scale);
        for (int k = 1; k <= chords; ++k)
            out.push_back(curve.at(span, from + (to - from) * (double(k) / chords)));
    }
    return out;
}

} // namespace orvald::picture
