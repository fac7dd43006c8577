// SPDX-License-Identifier: LicenseRef-ORVALD
// Reading distances and angles, in every form that is written and in the forms that users type.
#include "lisp/units.h"

#include "characters.h"
#include "number_text.h"

#include <cmath>
#include <utility>

namespace orvald::lisp {

namespace {

constexpr double kPi = 3.14159265358979323846;

// A text that is used up from the front.
class Scanner
{
public:
    explicit Scanner(std::u16string_view text) : rest_(text) {}

    void skipBlanks()
    {
        while (!rest_.empty() && isBlank(rest_.front())) rest_.remove_prefix(1);
    }
    bool take(char16_t unit)
    {
        if (rest_.empty() || text::upperUnit(rest_.front()) != unit) return false;
        rest_.remove_prefix(1);
        return true;
    }
    bool atEnd() const { return rest_.empty(); }
    bool startsNumber() const
    {
        return !rest_.empty() && (text::isDigit(rest_.front()) || rest_.front() == u'.');
    }
    /// An unsigned number; nothing (and nothing used up) when there is none.
    std::optional<double> number(bool allowExponent)
    {
        std::size_t length = 0;
        while (length < rest_.size() && (text::isDigit(rest_[length]) || rest_[length] == u'.'))
            ++length;
        if (allowExponent && length > 0 && length < rest_.size() &&
            text::upperUnit(rest_[length]) == u'E') {
            std::size_t end = length + 1;
            if (end < rest_.size() && (rest_[end] == u'+' || rest_[end] == u'-')) ++end;
            const std::size_t digits = end;
            while (end < rest_.size() && text::isDigit(rest_[end])) ++end;
            if (end > digits) length = end;
        }
        const auto value = readNumber(rest_.substr(0, length));
        if (!value) return std::nullopt;
        rest_.remove_prefix(length);
        return value->asNumber();
    }

private:
    std::u16string_view rest_;
};

// Inches or units: 5, 5.5, 5 1/2, 5-1/2, 1/2.
std::optional<double> readMixed(Scanner& in)
{
    const auto first = in.number(true);
    if (!first) return std::nullopt;
    const auto quotient = [](double top, std::optional<double> bottom) -> std::optional<double> {
        if (!bottom || *bottom == 0.0) return std::nullopt;
        return top / *bottom;
    };
    if (in.take(u'/')) return quotient(*first, in.number(false));
    Scanner after = in;
    if (!after.take(u'-')) after.skipBlanks();
    if (!after.startsNumber()) return first;
    const auto top = after.number(false);
    if (!top || !after.take(u'/')) return std::nullopt;
    const auto fraction = quotient(*top, after.number(false));
    if (!fraction) return std::nullopt;
    in = after;
    return *first + *fraction;
}

std::optional<double> readFeetAndInches(Scanner& in)
{
    const auto first = readMixed(in);
    if (!first) return std::nullopt;
    if (!in.take(u'\'')) {
        in.take(u'"');
        return first;
    }
    in.skipBlanks();
    if (in.take(u'-')) in.skipBlanks();
    if (!in.startsNumber()) return *first * 12.0;
    const auto inches = readMixed(in);
    if (!inches) return std::nullopt;
    in.take(u'"');
    return *first * 12.0 + *inches;
}

// Degrees, minutes and seconds, or a plain number of degrees.
std::optional<double> readSexagesimal(Scanner& in)
{
    const auto degrees = in.number(false);
    if (!degrees) return std::nullopt;
    double value = *degrees;
    if (!in.take(u'D')) return value;
    for (const auto& [mark, divisor] : {std::pair{u'\'', 60.0}, std::pair{u'"', 3600.0}}) {
        if (!in.startsNumber()) break;
        Scanner before = in;
        const auto part = in.number(false);
        if (!part) return std::nullopt;
        if (!in.take(mark)) {
            in = before;
            continue;
        }
        value += *part / divisor;
    }
    return value;
}

// N 45d E and the like, in degrees from the X axis.
std::optional<double> readSurveyor(Scanner& in)
{
    if (in.take(u'E')) return 0.0;
    if (in.take(u'W')) return 180.0;
    const bool north = in.take(u'N');
    if (!north && !in.take(u'S')) return std::nullopt;
    in.skipBlanks();
    if (in.atEnd()) return north ? 90.0 : 270.0;
    const auto angle = readSexagesimal(in);
    in.skipBlanks();
    if (!angle) return std::nullopt;
    if (in.take(u'E')) return north ? 90.0 - *angle : 270.0 + *angle;
    if (in.take(u'W')) return north ? 90.0 + *angle : 270.0 - *angle;
    return std::nullopt;
}

} // namespace

std::optional<double> readDistance(std::u16string_view text, int mode)
{
    Scanner in(text);
    in.skipBlanks();
    const bool negative = in.take(u'-');
    if (!negative) in.take(u'+');
    const auto size = mode >= 3 && mode <= 5 ? readFeetAndInches(in) : in.number(true);
    in.skipBlanks();
    if (!size || !in.atEnd()) return std::nullopt;
    return negative ? -*size : *size;
}

std::optional<double> readAngle(std::u16string_view text, int mode)
{
    Scanner in(text);
    in.skipBlanks();
    std::optional<double> degrees;
    if (Scanner surveyor = in; (degrees = readSurveyor(surveyor))) {
        in = surveyor;
    } else {
        const bool negative = in.take(u'-');
        if (!negative) in.take(u'+');
        degrees = readSexagesimal(in);
        if (!degrees) return std::nullopt;
        if (in.take(u'R') || (mode == 3 && in.atEnd())) {
            *degrees *= 180.0 / kPi;
        } else if (in.take(u'G') || (mode == 2 && in.atEnd())) {
            *degrees *= 0.9;
        }
        if (negative) degrees = -*degrees;
    }
    in.skipBlanks();
    if (!in.atEnd()) return std::nullopt;
    double radians = std::fmod(*degrees * (kPi / 180.0), 2.0 * kPi);
    if (radians < 0.0) radians += 2.0 * kPi;
    return radians;
}

} // namespace orvald::lisp
