// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/rounding.h"

#include "kex/units.h"

#include <limits>

namespace KEX {
namespace {

constexpr double kEpsilon = std::numeric_limits<double>::epsilon();
/// Part of a quotient that may be missing to the half or to the whole: four last bits, more than a
/// decimal number, its step and their quotient lose together.
constexpr double kNudge = 4.0 * kEpsilon;
/// From here on doubles are whole numbers.
constexpr double kAllWhole = 1.0 / kEpsilon;

/// Multiples of one step, which may be one over a whole number.
class Grid
{
public:
    explicit Grid(double step) : step_(step)
    {
        if (step >= 1.0) return;
        const double perUnit = std::round(1.0 / step);
        if (perUnit > 1.0 && 1.0 / perUnit == step) perUnit_ = perUnit; // 0.01 is 1/100, rounded
    }
    static Grid perUnit(double count) { return Grid(1.0 / count, count); }

    double count(double x) const { return perUnit_ != 0.0 ? x * perUnit_ : x / step_; }
    /// Dividing gives the nearest double, multiplying with a rounded step does not.
    double at(double count) const
    {
        return (perUnit_ != 0.0 ? count / perUnit_ : count * step_) + 0.0; // no -0.0
    }
    double nearest(double x) const
    {
        const double size = std::abs(count(x));
        if (!(size < kAllWhole)) return x;
        return at(std::copysign(std::floor(size * (1.0 + kNudge) + 0.5), x));
    }
    double notBelow(double x) const
    {
        const double size = count(x);
        if (!(std::abs(size) < kAllWhole)) return x;
        return at(std::ceil(size - std::abs(size) * kNudge));
    }

private:
    Grid(double step, double perUnit) : step_(step), perUnit_(perUnit) {}
    double step_;
    double perUnit_ = 0.0; // 0: the step is no such fraction
};

} // namespace

double round(double x, double step) { return step > 0.0 ? Grid(step).nearest(x) : x; }

double g_rnd_up(double x, double step, double tolLength)
{
    return step > 0.0 ? Grid(step).notBelow(x - tolLength) : x;
}

double g_rnd_unit(double x, int decimals, int unit)
{
    const double power = std::pow(10.0, std::abs(static_cast<double>(decimals)));
    const double length = acadUnitCv(x, Kex::kUnitDrawing, unit);
    if (!std::isfinite(power)) return decimals > 0 ? x : 0.0;
    const double rounded = (decimals > 0 ? Grid::perUnit(power) : Grid(power)).nearest(length);
    return acadUnitCv(rounded, unit, Kex::kUnitDrawing);
}

double g_rnd_quad(double angle)
{
    constexpr double kQuarter = 0.5 * kPi;
    return g_ang(std::floor((g_ang(angle) + kAngleNoise) / kQuarter + 0.5) * kQuarter);
}

} // namespace KEX
