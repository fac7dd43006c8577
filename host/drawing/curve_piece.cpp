// SPDX-License-Identifier: LicenseRef-ORVALD
// Places, lengths and nearest points of one smooth piece. What has a closed form uses it; lengths
// of other curves by Gauss' rule on halves until both agree, nearest points from the signs of the
// derivative of the distance.
#include "drawing/curve.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

namespace orvald::drawing {
namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;
constexpr std::size_t kNodes = 16;
constexpr double kAgreement = 1e-13; // of the length: where halving stops
constexpr int kHalvings = 400;       // of one integral; a cusp needs some forty
constexpr int kSteps = 80;           // of a search; each at least halves
constexpr int kLooks = 48;           // places of a piece from which a nearest point is sought

struct GaussRule
{
    std::array<double, kNodes> place, weight; // on -1 .. 1
};

/// Roots of the Legendre polynomial by Newton's steps from their known approximations.
GaussRule makeRule()
{
    GaussRule rule;
    constexpr double n = kNodes;
    for (std::size_t i = 0; i < kNodes; ++i) {
        double x = std::cos(std::numbers::pi * (static_cast<double>(i) + 0.75) / (n + 0.5));
        double slope = 1.0;
        for (int step = 0; step < 8; ++step) {
            double before = 1.0, value = x;
            for (double k = 2.0; k <= n; k += 1.0) {
                const double next = ((2.0 * k - 1.0) * x * value - (k - 1.0) * before) / k;
                before = std::exchange(value, next);
            }
            slope = n * (x * value - before) / (x * x - 1.0);
            x -= value / slope;
        }
        rule.place[i] = x;
        rule.weight[i] = 2.0 / ((1.0 - x * x) * slope * slope);
    }
    return rule;
}

/// Integral of a smooth function, halved where it needs to be, as often as the budget allows.
template <typename Function>
class Integral
{
public:
    explicit Integral(const Function& function) : function_(function) {}

    double over(double a, double b)
    {
        double size = 0.0; // of what is added up, whatever its sign
        const double whole = gauss(a, b, &size);
        return halved(a, b, whole, kAgreement * size);
    }

private:
    double gauss(double a, double b, double* size = nullptr) const
    {
        static const GaussRule rule = makeRule();
        const double middle = 0.5 * (a + b), half = 0.5 * (b - a);
        double sum = 0.0;
        for (std::size_t i = 0; i < kNodes; ++i) {
            const double part = half * rule.weight[i] * function_(middle + half * rule.place[i]);
            sum += part;
            if (size != nullptr) *size += std::fabs(part);
        }
        return sum;
    }

    double halved(double a, double b, double whole, double allowed)
    {
        const double middle = 0.5 * (a + b);
        const double left = gauss(a, middle), right = gauss(middle, b);
        const bool agree = !(std::fabs(left + right - whole) > allowed); // not-a-number: give up
        if (agree || budget_ == 0) return left + right;
        --budget_;
        return halved(a, middle, left, allowed) + halved(middle, b, right, allowed);
    }

    const Function& function_;
    int budget_ = kHalvings;
};

/// Length for one unit of the parameter where it is the same all along.
std::optional<double> steadySpeed(const CurvePiece& piece)
{
    if (const auto* line = std::get_if<LinePiece>(&piece.form)) return length(line->along);
    const auto* conic = std::get_if<ConicPiece>(&piece.form);
    if (conic == nullptr || !conic->circular) return std::nullopt;
    return length(conic->u) * std::fabs(conic->rate);
}

Point seen(Point v, const Point* sight)
{
    return sight == nullptr ? v : v - dot(v, *sight) * *sight;
}

double nearestOnLine(const LinePiece& line, Point place, double low, double high,
                     const Point* sight)
{
    const Point along = seen(line.along, sight);
    const double square = dot(along, along);
    // A line that is seen as a point: its start, as near as the limits allow.
    const double t = square > 0.0 ? line.zero + dot(place - line.start, along) / square : line.zero;
    return std::clamp(t, low, high);
}

double nearestOnCircle(const ConicPiece& conic, double from, Point place, double low, double high)
{
    const Point d = place - conic.centre;
    const double x = dot(d, conic.u), y = dot(d, conic.v);
    if (x == 0.0 && y == 0.0) return low;
    const double turn = kTurn / std::fabs(conic.rate);
    double t = from + (std::atan2(y, x) - conic.angle) / conic.rate;
    t += std::ceil((low - t) / turn) * turn; // the first one at or behind `low`
    if (t <= high) return t;
    // Both ends are left; the nearer one is nearer by angle as well.
    return t - high <= low - (t - turn) ? high : low;
}

/// All local minima of the distance start where its derivative turns from falling to rising.
double nearestBySearch(const CurvePiece& piece, Point place, double low, double high,
                       const Point* sight)
{
    const auto slope = [&](double t, double* change) {
        const Jet jet = piece.at(t);
        const Point d = seen(jet.at - place, sight), first = seen(jet.first, sight);
        if (change != nullptr) *change = dot(first, first) + dot(d, seen(jet.second, sight));
        return dot(d, first);
    };
    const auto distance = [&](double t) { return length(seen(piece.at(t).at - place, sight)); };
    double best = distance(low) <= distance(high) ? low : high;
    double bestDistance = distance(best);
    double a = low, slopeA = slope(low, nullptr);
    for (int i = 1; i <= kLooks; ++i) {
        const double b = low + (high - low) * i / kLooks, slopeB = slope(b, nullptr);
        if (slopeA <= 0.0 && slopeB >= 0.0) {
            double left = a, right = b, t = 0.5 * (a + b);
            for (int step = 0; step < kSteps && left < right; ++step) {
                double change = 0.0;
                const double here = slope(t, &change);
                if (here == 0.0) break;
                (here < 0.0 ? left : right) = t;
                const double newton = change > 0.0 ? t - here / change : left;
                const double next = newton > left && newton < right ? newton : 0.5 * (left + right);
                if (next == t) break;
                t = next;
            }
            if (const double found = distance(t); found < bestDistance) {
                best = t;
                bestDistance = found;
            }
        }
        a = b;
        slopeA = slopeB;
    }
    return best;
}

} // namespace

Jet CurvePiece::at(double parameter) const
{
    if (const auto* line = std::get_if<LinePiece>(&form))
        return {line->start + (parameter - line->zero) * line->along, line->along, {}};
    if (const auto* bezier = std::get_if<BezierPiece>(&form)) return bezier->at(parameter);
    const ConicPiece& conic = std::get<ConicPiece>(form);
    const double a = conic.angle + conic.rate * (parameter - from);
    const double c = std::cos(a), s = std::sin(a);
    const Point out = c * conic.u + s * conic.v;
    return {conic.centre + out, conic.rate * (c * conic.v - s * conic.u),
            -conic.rate * conic.rate * out};
}

double CurvePiece::length(double a, double b) const
{
    if (!(a < b)) return 0.0;
    if (const auto speed = steadySpeed(*this)) return *speed * (b - a);
    const auto speed = [this](double t) { return drawing::length(at(t).first); };
    return Integral(speed).over(a, b);
}

double CurvePiece::parameterAt(double wanted) const
{
    if (const auto speed = steadySpeed(*this))
        return *speed > 0.0 ? std::min(from + wanted / *speed, to) : from;
    const double whole = length(from, to);
    double left = from, right = to;
    double t = whole > 0.0 ? from + (to - from) * std::clamp(wanted / whole, 0.0, 1.0) : from;
    for (int step = 0; step < kSteps && left < right; ++step) {
        const double missing = wanted - length(from, t);
        if (std::fabs(missing) <= kAgreement * whole) break;
        (missing > 0.0 ? left : right) = t;
        const double speed = drawing::length(at(t).first);
        const double newton = speed > 0.0 ? t + missing / speed : left;
        const double next = newton > left && newton < right ? newton : 0.5 * (left + right);
        if (next == t) break;
        t = next;
    }
    return t;
}

double CurvePiece::nearest(Point place, double low, double high, const Point* sight) const
{
    if (const auto* line = std::get_if<LinePiece>(&form))
        return nearestOnLine(*line, place, low, high, sight);
    const auto* conic = std::get_if<ConicPiece>(&form);
    if (conic != nullptr && conic->circular && sight == nullptr)
        return nearestOnCircle(*conic, from, place, low, high);
    return nearestBySearch(*this, place, low, high, sight);
}

double CurvePiece::sweep(Point origin, Point normal) const
{
    const Point p = at(from).at, q = at(to).at;
    if (std::holds_alternative<LinePiece>(form)) return dot(cross(p - origin, q - origin), normal);
    if (const auto* conic = std::get_if<ConicPiece>(&form))
        return dot(cross(conic->centre - origin, q - p), normal) +
               conic->rate * (to - from) * dot(cross(conic->u, conic->v), normal);
    const auto moment = [&](double t) {
        const Jet jet = at(t);
        return dot(cross(jet.at - origin, jet.first), normal);
    };
    return Integral(moment).over(from, to);
}

} // namespace orvald::drawing
