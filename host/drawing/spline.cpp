// SPDX-License-Identifier: LicenseRef-ORVALD
// Spans of a spline by blossoming: control point j of a span's Bezier form is the polar form of the
// span at its lower end (degree - j times) and its upper end (j times).
#include "drawing/spline.h"

#include <algorithm>
#include <array>

namespace orvald::drawing {
namespace {

constexpr std::size_t kMostDegree = 25;
using Polygon = std::array<WeightedPoint, kMostDegree + 1>;

WeightedPoint mixed(const WeightedPoint& a, const WeightedPoint& b, double share)
{
    return {(1.0 - share) * a.at + share * b.at, (1.0 - share) * a.weight + share * b.weight};
}

bool isSound(const SplineView& s)
{
    if (s.degree < 1 || s.degree > static_cast<int>(kMostDegree)) return false;
    const auto degree = static_cast<std::size_t>(s.degree);
    return s.controls.size() > degree && s.knots.size() >= s.controls.size() + degree + 1 &&
           std::ranges::is_sorted(s.knots) && s.knots[degree] < s.knots[s.controls.size()];
}

// Polar form of the span behind knot `span` with `high` arguments at its upper end.
WeightedPoint blossom(const SplineView& s, std::size_t span, std::size_t high)
{
    const auto degree = static_cast<std::size_t>(s.degree);
    const bool weighted = s.weights.size() == s.controls.size();
    Polygon d;
    for (std::size_t i = 0; i <= degree; ++i) {
        const std::size_t control = span - degree + i;
        const double weight = weighted ? s.weights[control] : 1.0;
        d[i] = {weight * s.controls[control], weight};
    }
    for (std::size_t level = 1; level <= degree; ++level) {
        const double t = level <= high ? s.knots[span + 1] : s.knots[span];
        for (std::size_t i = degree; i >= level; --i) {
            const std::size_t low = span - degree + i;
            const double from = s.knots[low], to = s.knots[low + degree + 1 - level];
            d[i] = mixed(d[i - 1], d[i], to > from ? (t - from) / (to - from) : 0.0);
        }
    }
    return d[degree];
}

// Cubics through the points; the direction at each is that from its neighbour before to the one
// behind.
std::vector<BezierPiece> throughPoints(const std::vector<Point>& fits, bool closed)
{
    const auto count = static_cast<std::ptrdiff_t>(fits.size());
    const auto fit = [&](std::ptrdiff_t i) {
        return fits[static_cast<std::size_t>(closed ? (i + count) % count
                                                    : std::clamp<std::ptrdiff_t>(i, 0, count - 1))];
    };
    std::vector<BezierPiece> pieces;
    for (std::ptrdiff_t i = 0; i < (closed ? count : count - 1); ++i) {
        const Point a = fit(i), b = fit(i + 1);
        const Point third = 1.0 / 6.0 * (b - fit(i - 1)), last = 1.0 / 6.0 * (fit(i + 2) - a);
        const auto from = static_cast<double>(i);
        pieces.push_back(
            {from, from + 1.0, {{a, 1.0}, {a + third, 1.0}, {b - last, 1.0}, {b, 1.0}}});
    }
    return pieces;
}

} // namespace

SplineView splineView(const Record& record)
{
    SplineView spline;
    for (const Tag tag : record.tags) {
        // A helix is a spline that goes on with groups of its own.
        if (tag.code() == 100 && tag.text() == "AcDbHelix") break;
        switch (tag.code()) {
        case 10: spline.controls.push_back(tag.point()); break;
        case 11: spline.fits.push_back(tag.point()); break;
        case 40: spline.knots.push_back(tag.real()); break;
        case 41: spline.weights.push_back(tag.real()); break;
        case 70:
            spline.closed = (tag.integer() & 1) != 0;
            spline.periodic = (tag.integer() & 2) != 0;
            break;
        case 71:
            spline.degree = static_cast<int>(std::clamp<std::int64_t>(tag.integer(), 0, 100));
            break;
        default: break;
        }
    }
    return spline;
}

Jet BezierPiece::at(double parameter) const
{
    const double span = to - from, s = (parameter - from) / span;
    const std::size_t degree = points.size() - 1;
    Polygon d;
    std::ranges::copy(points, d.begin());
    WeightedPoint second{{}, 0.0}, first{{}, 0.0};
    for (std::size_t level = degree; level >= 1; --level) {
        const double n = static_cast<double>(degree);
        if (level == 2) {
            const double f = n * (n - 1.0) / (span * span);
            second = {f * (d[2].at - 2.0 * d[1].at + d[0].at),
                      f * (d[2].weight - 2.0 * d[1].weight + d[0].weight)};
        }
        if (level == 1)
            first = {n / span * (d[1].at - d[0].at), n / span * (d[1].weight - d[0].weight)};
        for (std::size_t i = 0; i < level; ++i) d[i] = mixed(d[i], d[i + 1], s);
    }
    const double w = d[0].weight;
    if (w == 0.0) return {d[0].at, first.at, second.at};
    Jet jet;
    jet.at = 1.0 / w * d[0].at;
    jet.first = 1.0 / w * (first.at - first.weight * jet.at);
    jet.second = 1.0 / w * (second.at - 2.0 * first.weight * jet.first - second.weight * jet.at);
    return jet;
}

std::vector<BezierPiece> bezierPieces(const SplineView& spline)
{
    if (spline.controls.empty() && spline.fits.size() > 1)
        return throughPoints(spline.fits, spline.closed);
    if (!isSound(spline)) return {};
    std::vector<BezierPiece> pieces;
    const auto degree = static_cast<std::size_t>(spline.degree);
    for (std::size_t span = degree; span < spline.controls.size(); ++span) {
        if (!(spline.knots[span] < spline.knots[span + 1])) continue;
        BezierPiece& piece =
            pieces.emplace_back(BezierPiece{spline.knots[span], spline.knots[span + 1], {}});
        for (std::size_t j = 0; j <= degree; ++j) piece.points.push_back(blossom(spline, span, j));
    }
    return pieces;
}

} // namespace orvald::drawing
