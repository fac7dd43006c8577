// SPDX-License-Identifier: LicenseRef-ORVALD
// Writing distances and angles. Values are rounded once, in the smallest unit that is shown, and
// only then split into feet, inches, degrees and so on: so nothing ever shows 60 seconds or 12
// inches.
#include "lisp/units.h"

#include "number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace orvald::lisp {

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr int kMostPlaces = 8;

// Bits of DIMZIN; its two low bits are a choice of four ways to show feet and inches.
constexpr int kDropLeadingZero = 4;
constexpr int kDropTrailingZeros = 8;

bool showsZeroFeet(int suppression) { return (suppression & 3) == 1 || (suppression & 3) == 2; }
bool showsZeroInches(int suppression) { return (suppression & 3) == 1 || (suppression & 3) == 3; }

std::string suppressZeros(std::string text, int suppression)
{
    if ((suppression & kDropTrailingZeros) != 0 && text.find('.') != std::string::npos) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.') text.pop_back();
    }
    if ((suppression & kDropLeadingZero) != 0) {
        const std::size_t zero = text.find("0.");
        if (zero == 0 || (zero == 1 && text.front() == '-')) text.erase(zero, 1);
    }
    return text;
}

std::string decimalText(double value, int places, int suppression)
{
    return suppressZeros(fixedText(value, places), suppression);
}

std::string scientificText(double value, int places, int suppression)
{
    char buffer[40];
    const char* end =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific).ptr;
    const char* mark = std::find<const char*>(buffer, end, 'e');
    double mantissa = 0.0;
    std::from_chars(buffer, mark, mantissa);
    int exponent = 0;
    std::from_chars(mark[1] == '+' ? mark + 2 : mark + 1, end, exponent);

    std::string text = fixedText(mantissa, places);
    if (text.starts_with("10") || text.starts_with("-10")) { // rounded up
        text = fixedText(mantissa / 10.0, places);
        ++exponent;
    }
    std::string power = std::to_string(std::abs(exponent));
    if (power.size() < 2) power.insert(0, "0");
    return suppressZeros(text, suppression & kDropTrailingZeros) + (exponent < 0 ? "E-" : "E+") +
           power;
}

// feet'-inches" from the two parts; `inches` is empty when there are none.
std::string feetText(double feet, const std::string& inches, const UnitSettings& settings)
{
    const int suppression = settings.zeroSuppression;
    std::string text;
    const bool showFeet = feet > 0.0 || showsZeroFeet(suppression);
    if (showFeet) text = fixedText(feet, 0) + "'";
    if (inches.empty()) return showFeet ? text : "0\"";
    if (showFeet && settings.unitMode == 0) text += "-";
    return text + inches + "\"";
}

std::string engineeringText(double value, int places, const UnitSettings& settings)
{
    const double scale = std::pow(10.0, places);
    const double units = std::floor(value * scale + 0.5);
    const double feet = std::floor(units / (12.0 * scale));
    const double inches = (units - feet * 12.0 * scale) / scale;
    const bool hide = inches == 0.0 && !showsZeroInches(settings.zeroSuppression) &&
                      (feet > 0.0 || showsZeroFeet(settings.zeroSuppression));
    return feetText(feet, hide ? "" : decimalText(inches, places, settings.zeroSuppression),
                    settings);
}

// num/den in lowest terms, "" for zero; `units` counts the smallest fraction.
std::string fractionText(double units, double denominator)
{
    if (units == 0.0) return {};
    while (std::fmod(units, 2.0) == 0.0 && denominator > 1.0) {
        units /= 2.0;
        denominator /= 2.0;
    }
    return fixedText(units, 0) + "/" + fixedText(denominator, 0);
}

// Whole number and fraction; a zero whole number is shown only on request or alone.
std::string mixedText(double whole, const std::string& fraction, bool showZero,
                      const UnitSettings& settings)
{
    if (fraction.empty()) return fixedText(whole, 0);
    if (whole == 0.0 && !showZero) return fraction;
    return fixedText(whole, 0) + (settings.unitMode == 0 ? " " : "-") + fraction;
}

std::string architecturalText(double value, int places, const UnitSettings& settings)
{
    const double denominator = std::pow(2.0, places);
    const double units = std::floor(value * denominator + 0.5);
    const double feet = std::floor(units / (12.0 * denominator));
    const double rest = units - feet * 12.0 * denominator;
    const double whole = std::floor(rest / denominator);
    const std::string fraction = fractionText(rest - whole * denominator, denominator);
    const bool showFeet = feet > 0.0 || showsZeroFeet(settings.zeroSuppression);
    if (rest == 0.0 && showFeet && !showsZeroInches(settings.zeroSuppression)) {
        return feetText(feet, {}, settings);
    }
    const bool showZero = showFeet || showsZeroInches(settings.zeroSuppression);
    return feetText(feet, mixedText(whole, fraction, showZero, settings), settings);
}

std::string fractionalText(double value, int places, const UnitSettings& settings)
{
    const double denominator = std::pow(2.0, places);
    const double units = std::floor(value * denominator + 0.5);
    const double whole = std::floor(units / denominator);
    return mixedText(whole, fractionText(units - whole * denominator, denominator), false,
                     settings);
}

// -- angles

// Degrees as d/m/s. `precision` 0 shows degrees, 1 and 2 minutes, 3 and 4 seconds, more adds places
// to the seconds. `full`: where the count begins anew, 0 for never.
std::string sexagesimalText(double degrees, int precision, double full)
{
    const int places = std::max(precision - 4, 0);
    const double scale = std::pow(10.0, places);
    const double perDegree = precision == 0 ? 1.0 : precision <= 2 ? 60.0 : 3600.0 * scale;
    double units = std::floor(degrees * perDegree + 0.5);
    if (full > 0.0 && units >= full * perDegree) units = 0.0;
    const double whole = std::floor(units / perDegree);
    double rest = units - whole * perDegree;
    std::string text = fixedText(whole, 0) + "d";
    if (precision == 0) return text;
    const double perMinute = perDegree / 60.0;
    const double minutes = std::floor(rest / perMinute);
    rest -= minutes * perMinute;
    text += fixedText(minutes, 0) + "'";
    if (precision > 2) text += fixedText(rest / scale, places) + "\"";
    return text;
}

std::string surveyorText(double degrees, int precision, const UnitSettings& settings)
{
    // An angle that rounds to an axis is named by the axis alone.
    const std::string upright = sexagesimalText(90.0, precision, 0.0);
    const std::string none = sexagesimalText(0.0, precision, 0.0);
    const bool north = degrees <= 180.0;
    const bool east = degrees <= 90.0 || degrees >= 270.0;
    const double fromPole = std::fabs(north ? 90.0 - degrees : 270.0 - degrees);
    const std::string angle = sexagesimalText(fromPole, precision, 0.0);
    if (angle == upright) return east ? "E" : "W";
    if (angle == none) return north ? "N" : "S";
    const char* blank = settings.unitMode == 0 ? " " : "";
    return std::string(north ? "N" : "S") + blank + angle + blank + (east ? "E" : "W");
}

// A part of a turn in units of which the `full` turn is a whole number.
std::string turnText(double value, double full, int precision, int suppression, const char* suffix)
{
    if (fixedText(value, precision) == fixedText(full, precision)) value = 0.0;
    return decimalText(value, precision, suppression) + suffix;
}

std::u16string widened(const std::string& text) { return {text.begin(), text.end()}; }

} // namespace

std::u16string distanceText(double value, int mode, int precision, const UnitSettings& settings)
{
    if (!std::isfinite(value)) return realText(value);
    const int places = std::clamp(precision, 0, kMostPlaces);
    if (mode == 1) return widened(scientificText(value, places, settings.zeroSuppression));
    if (mode < 3 || mode > 5) {
        return widened(decimalText(value, places, settings.zeroSuppression));
    }
    const double size = std::fabs(value);
    const std::string text = mode == 3   ? engineeringText(size, places, settings)
                             : mode == 4 ? architecturalText(size, places, settings)
                                         : fractionalText(size, places, settings);
    const bool zero = text.find_first_of("123456789") == std::string::npos;
    return widened(value < 0.0 && !zero ? "-" + text : text);
}

std::u16string angleText(double radians, int mode, int precision, const UnitSettings& settings)
{
    if (!std::isfinite(radians)) return realText(radians);
    const int places = std::clamp(precision, 0, kMostPlaces);
    double turned = std::fmod(radians, 2.0 * kPi);
    if (turned < 0.0) turned += 2.0 * kPi;
    const double degrees = turned / kPi * 180.0;
    switch (mode) {
    case 1: return widened(sexagesimalText(degrees, places, 360.0));
    case 2:
        return widened(
            turnText(turned / kPi * 200.0, 400.0, places, settings.zeroSuppression, "g"));
    case 3: return widened(decimalText(turned, places, settings.zeroSuppression) + "r");
    case 4: return widened(surveyorText(degrees, places, settings));
    default: return widened(turnText(degrees, 360.0, places, settings.zeroSuppression, ""));
    }
}

} // namespace orvald::lisp
