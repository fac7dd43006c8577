// SPDX-License-Identifier: LicenseRef-ORVALD
// cvunit: from one unit of measure to another. A unit is a factor over the powers of the basic
// measures; temperatures have a zero of their own. Factors are exact where the unit is defined by
// them.
#include "builtins/tables.h"

#include "evaluator.h"

#include <algorithm>
#include <array>
#include <numbers>
#include <optional>
#include <string>

namespace orvald::lisp {

namespace {

/// Powers of length, mass, time, angle, temperature.
using Dimension = std::array<int, 5>;

struct Measure
{
    double factor = 1.0, zero = 0.0; // in metres, kilograms, seconds, radians, kelvins
    Dimension dimension{};
};

struct Unit
{
    std::string_view names; // apart by blanks, in small letters
    double factor;
    Dimension dimension;
    double zero = 0.0;
};

constexpr Dimension kLength{1, 0, 0, 0, 0}, kVolume{3, 0, 0, 0, 0}, kSurface{2, 0, 0, 0, 0},
    kMass{0, 1, 0, 0, 0}, kTime{0, 0, 1, 0, 0}, kAngle{0, 0, 0, 1, 0}, kHeat{0, 0, 0, 0, 1};
constexpr double kInch = 0.0254, kFoot = 12 * kInch, kPound = 0.45359237;
constexpr double kTurn = 2.0 * std::numbers::pi;

constexpr Unit kUnits[] = {
    {"meter metre m", 1.0, kLength},
    {"decimeter decimetre dm", 0.1, kLength},
    {"centimeter centimetre cm", 0.01, kLength},
    {"millimeter millimetre mm", 0.001, kLength},
    {"micron micrometer um", 1e-6, kLength},
    {"nanometer nm", 1e-9, kLength},
    {"angstrom", 1e-10, kLength},
    {"decameter dam", 10.0, kLength},
    {"hectometer hm", 100.0, kLength},
    {"kilometer kilometre km", 1000.0, kLength},
    {"inch inches in \"", kInch, kLength},
    {"mil", kInch / 1000.0, kLength},
    {"foot feet ft '", kFoot, kLength},
    {"yard yd", 3 * kFoot, kLength},
    {"rod rd", 16.5 * kFoot, kLength},
    {"chain", 66 * kFoot, kLength},
    {"furlong", 660 * kFoot, kLength},
    {"mile mi", 5280 * kFoot, kLength},
    {"nautical_mile nmile", 1852.0, kLength},
    {"point pt", kInch / 72.0, kLength},
    {"acre", 43560.0 * kFoot* kFoot, kSurface},
    {"are", 100.0, kSurface},
    {"hectare ha", 10000.0, kSurface},
    {"liter litre l", 0.001, kVolume},
    {"milliliter ml cc", 1e-6, kVolume},
    {"gallon gal", 231 * kInch* kInch* kInch, kVolume},
    {"quart qt", 57.75 * kInch* kInch* kInch, kVolume},
    {"pint", 28.875 * kInch* kInch* kInch, kVolume},
    {"gram g", 0.001, kMass},
    {"kilogram kg", 1.0, kMass},
    {"tonne metric_ton", 1000.0, kMass},
    {"ounce oz", kPound / 16.0, kMass},
    {"pound lb", kPound, kMass},
    {"ton", 2000.0 * kPound, kMass},
    {"second sec s", 1.0, kTime},
    {"millisecond msec", 0.001, kTime},
    {"minute min", 60.0, kTime},
    {"hour hr", 3600.0, kTime},
    {"day", 86400.0, kTime},
    {"week", 604800.0, kTime},
    {"year yr", 31556952.0, kTime},
    {"radian rad", 1.0, kAngle},
    {"degree deg", kTurn / 360.0, kAngle},
    {"grad gon", kTurn / 400.0, kAngle},
    {"circle turn", kTurn, kAngle},
    {"kelvin k", 1.0, kHeat},
    {"celsius centigrade", 1.0, kHeat, 273.15},
    {"fahrenheit", 5.0 / 9.0, kHeat, 459.67 * 5.0 / 9.0},
    {"rankine", 5.0 / 9.0, kHeat},
};

bool names(const Unit& unit, std::string_view word)
{
    for (std::string_view rest = unit.names; !rest.empty();) {
        const std::size_t end = std::min(rest.find(' '), rest.size());
        if (rest.substr(0, end) == word) return true;
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return false;
}

/// A unit by one of its names, also in the plural.
const Unit* unitOf(std::string_view word)
{
    const auto known = [&](std::string_view name) {
        return std::ranges::find_if(kUnits, [&](const Unit& unit) { return names(unit, name); });
    };
    auto unit = known(word);
    if (unit == std::end(kUnits) && word.size() > 3 && word.ends_with('s'))
        unit = known(word.substr(0, word.size() - 1));
    return unit == std::end(kUnits) ? nullptr : unit;
}

void include(Measure& measure, const Unit& unit, int power)
{
    for (int i = 0; i < std::abs(power); ++i)
        measure.factor = power > 0 ? measure.factor * unit.factor : measure.factor / unit.factor;
    for (std::size_t i = 0; i < measure.dimension.size(); ++i)
        measure.dimension[i] += power * unit.dimension[i];
}

/// "sq ft", "cubic meter", "m^2", "m2", "km/hour", "kg*m/sec^2".
std::optional<Measure> readMeasure(std::string_view text)
{
    Measure measure;
    int sign = 1, next = 1; // next: power of the word to come, from "sq" and "cubic"
    std::size_t units = 0;
    for (std::size_t at = 0; at < text.size();) {
        const char c = text[at];
        if (c == ' ' || c == '*' || c == '-') {
            ++at;
            continue;
        }
        if (c == '/') {
            sign = -1;
            ++at;
            continue;
        }
        std::size_t end = text.find_first_of(" */-^23", at);
        end = std::min(end, text.size());
        const std::string_view word = text.substr(at, end - at);
        at = end;
        if (word == "sq" || word == "square" || word == "cu" || word == "cubic") {
            next = word.front() == 's' ? 2 : 3;
            continue;
        }
        if (at < text.size() && text[at] == '^') ++at;
        if (at < text.size() && (text[at] == '2' || text[at] == '3')) next = text[at++] - '0';
        const Unit* unit = unitOf(word);
        if (unit == nullptr) return std::nullopt;
        include(measure, *unit, sign * next);
        measure.zero = unit->zero;
        next = 1;
        ++units;
    }
    if (units == 0) return std::nullopt;
    if (units > 1) measure.zero = 0.0; // differences of temperature
    return measure;
}

std::optional<Measure> measureArgument(Args args, int index)
{
    std::string text = toUtf8(args.string(index));
    for (char& c : text)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return readMeasure(text);
}

// (cvunit value from to) -> real or point; nil for unknown units and those that do not fit
Value cvunit(World& world, Args args)
{
    const Value value = args[0];
    const auto from = measureArgument(args, 1), to = measureArgument(args, 2);
    const auto converted = [&](Value number) {
        return Value::real((number.asNumber() * from->factor + from->zero - to->zero) / to->factor);
    };
    const bool fits = from && to && from->dimension == to->dimension;
    if (value.isNumber()) return fits ? converted(value) : Value::nil();
    const Args::Point point = args.point(0);
    if (!fits) return Value::nil();
    const Value x = converted(Value::real(point.x)), y = converted(Value::real(point.y));
    if (point.dimensions == 2) return world.makeList({x, y});
    return world.makeList({x, y, converted(Value::real(point.z))});
}

constexpr Builtin kTable[] = {{"cvunit", cvunit, 3, 3}};

} // namespace

std::span<const Builtin> unitBuiltins() { return kTable; }

} // namespace orvald::lisp
