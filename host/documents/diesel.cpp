// SPDX-License-Identifier: LicenseRef-ORVALD
// Arguments are texts. They are evaluated before the call, but for those of `if`, of which only the
// chosen branch is; a number is what its text begins with.
#include "diesel.h"

#include "document.h"
#include "lisp/units.h"
#include "text/letters.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <vector>

namespace orvald {
namespace {

using Text = std::u16string;
using Texts = std::vector<Text>;

constexpr int kDeepest = 100;             // calls within calls
constexpr std::size_t kLongest = 1 << 16; // units of all that comes out
constexpr int kDigits = 8;                // of a number that is no whole one

constexpr char16_t kWrong[] = u",?"
                              u"?)"; // apart, or it would be a trigraph

/// The arguments do not fit the function.
struct WrongArguments
{
};
/// Deeper or longer than anything sensible.
struct TooMuch
{
};

double numberOf(const Text& text)
{
    const std::string octets = lisp::toUtf8(text);
    const char* first = octets.data();
    const char* const last = first + octets.size();
    while (first != last && *first == ' ') ++first;
    if (first != last && *first == '+') ++first;
    double value = 0.0;
    std::from_chars(first, last, value);
    return value;
}

int wholeOf(const Text& text)
{
    constexpr double kMost = 2147483647.0;
    return static_cast<int>(std::clamp(std::trunc(numberOf(text)), -kMost, kMost));
}

Text textOf(double value)
{
    char digits[64];
    const auto [end, error] = std::to_chars(std::begin(digits), std::end(digits), value,
                                            std::chars_format::general, kDigits);
    return error == std::errc() ? lisp::toUtf16({digits, end}) : Text();
}

Text truth(bool value) { return value ? u"1" : u"0"; }

// -- time

struct Moment
{
    int year, month, day, weekday, hour, minute, second, millisecond; // weekday: 0 is Sunday
};

/// Of a Julian day with its fraction.
Moment momentOf(double julian)
{
    using namespace std::chrono;
    constexpr double kDayOf1970 = 2440588.0, kMillisecondsOfDay = 86400000.0, kMost = 1e7;
    const double day = std::clamp(std::floor(julian), 0.0, kMost);
    auto left = static_cast<int>(
        std::clamp((julian - day) * kMillisecondsOfDay + 0.5, 0.0, kMillisecondsOfDay - 1.0));
    const sys_days date{days{static_cast<int>(day - kDayOf1970)}};
    const year_month_day civil{date};
    Moment moment{};
    moment.year = int(civil.year());
    moment.month = static_cast<int>(unsigned(civil.month()));
    moment.day = static_cast<int>(unsigned(civil.day()));
    moment.weekday = static_cast<int>(weekday{date}.c_encoding());
    moment.millisecond = left % 1000;
    left /= 1000;
    moment.second = left % 60;
    moment.minute = left / 60 % 60;
    moment.hour = left / 3600;
    return moment;
}

Text padded(int value, std::size_t width)
{
    Text text = lisp::toUtf16(std::to_string(value));
    if (text.size() < width) text.insert(0, width - text.size(), u'0');
    return text;
}

constexpr std::u16string_view kMonths[] = {u"January",   u"February", u"March",    u"April",
                                           u"May",       u"June",     u"July",     u"August",
                                           u"September", u"October",  u"November", u"December"};
constexpr std::u16string_view kDays[] = {u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                         u"Thursday", u"Friday", u"Saturday"};

/// A picture of a moment: DD, MONTH, YYYY, HH ... stand for its parts, longest first; with AM/PM in
/// it the hours run to 12.
Text pictureOf(const Moment& m, std::u16string_view picture)
{
    const Text upper = text::upperText(picture);
    const bool halves = upper.find(u"AM/PM") != Text::npos || upper.find(u"A/P") != Text::npos;
    const int hour = halves ? (m.hour + 11) % 12 + 1 : m.hour;
    const bool late = m.hour >= 12;
    const Text month(kMonths[m.month - 1]), day(kDays[m.weekday]);
    struct Part
    {
        std::u16string_view name;
        Text value;
    };
    const bool small =
        picture.find(u"am/pm") != picture.npos || picture.find(u"a/p") != picture.npos;
    const Part parts[] = {
        {u"AM/PM", late ? (small ? u"pm" : u"PM") : (small ? u"am" : u"AM")},
        {u"A/P", late ? (small ? u"p" : u"P") : (small ? u"a" : u"A")},
        {u"MONTH", month},
        {u"MSEC", padded(m.millisecond, 3)},
        {u"YYYY", padded(m.year, 4)},
        {u"DDDD", day},
        {u"MON", month.substr(0, 3)},
        {u"DDD", day.substr(0, 3)},
        {u"DD", padded(m.day, 2)},
        {u"MO", padded(m.month, 2)},
        {u"YY", padded(m.year % 100, 2)},
        {u"HH", padded(hour, 2)},
        {u"MM", padded(m.minute, 2)},
        {u"SS", padded(m.second, 2)},
        {u"D", padded(m.day, 1)},
        {u"M", padded(m.month, 1)},
        {u"H", padded(hour, 1)},
    };
    Text out;
    for (std::size_t at = 0; at < picture.size();) {
        const auto part = std::ranges::find_if(parts, [&](const Part& one) {
            return upper.compare(at, one.name.size(), one.name) == 0;
        });
        if (part == std::end(parts)) {
            out += picture[at++];
        } else {
            out += part->value;
            at += part->name.size();
        }
    }
    return out;
}

// -- functions

/// One running evaluation.
class Macro
{
public:
    explicit Macro(lisp::World& world) : world_(world) {}

    /// Up to the end of the text, or, in an argument, to the comma or bracket behind it.
    Text evaluate(std::u16string_view& rest, bool argument)
    {
        Text out;
        while (!rest.empty()) {
            if (rest.starts_with(u"$(")) {
                out += call(rest);
                if ((length_ += out.size()) > kLongest) throw TooMuch();
                continue;
            }
            const char16_t unit = rest.front();
            if (argument && (unit == u',' || unit == u')')) break;
            rest.remove_prefix(1);
            if (unit == u'"' && argument) {
                out += quoted(rest);
            } else {
                out += unit;
            }
        }
        return out;
    }

private:
    using Function = Text (Macro::*)(const Texts&);
    struct Row
    {
        std::u16string_view name;
        Function function;
        std::size_t least, most;
    };
    static const Row kRows[];

    /// A text in quotes, which stands as it is; two quotes are one.
    static Text quoted(std::u16string_view& rest)
    {
        Text out;
        while (!rest.empty()) {
            const char16_t unit = rest.front();
            rest.remove_prefix(1);
            if (unit == u'"') {
                if (!rest.starts_with(u'"')) break;
                rest.remove_prefix(1);
            }
            out += unit;
        }
        return out;
    }

    /// What an argument is without evaluating it: moves behind it.
    static std::u16string_view skipped(std::u16string_view& rest)
    {
        const std::u16string_view from = rest;
        int depth = 0;
        bool inQuotes = false;
        while (!rest.empty()) {
            const char16_t unit = rest.front();
            if (unit == u'"') inQuotes = !inQuotes;
            if (!inQuotes) {
                if (depth == 0 && (unit == u',' || unit == u')')) break;
                depth += unit == u'(' ? 1 : unit == u')' ? -1 : 0;
            }
            rest.remove_prefix(1);
        }
        return from.substr(0, from.size() - rest.size());
    }

    Text call(std::u16string_view& rest)
    {
        if (++depth_ > kDeepest) throw TooMuch();
        rest.remove_prefix(2);
        std::u16string_view nameText = skipped(rest);
        const Text name = text::upperText(nameText);
        Texts arguments;
        const bool chooses = name == u"IF";
        std::vector<std::u16string_view> branches;
        while (rest.starts_with(u',')) {
            rest.remove_prefix(1);
            if (chooses && !arguments.empty()) branches.push_back(skipped(rest));
            else arguments.push_back(evaluate(rest, true));
        }
        --depth_;
        if (!rest.starts_with(u')')) return u"$?";
        rest.remove_prefix(1);
        if (chooses) {
            if (branches.empty() || branches.size() > 2) return u"$(IF" + Text(kWrong);
            const std::size_t chosen = numberOf(arguments.front()) != 0.0 ? 0 : 1;
            return chosen < branches.size() ? evaluate(branches[chosen], true) : Text();
        }
        return apply(name, arguments);
    }

    Text apply(const Text& name, const Texts& arguments)
    {
        const auto row =
            std::find_if(rowsBegin(), rowsEnd(), [&](const Row& one) { return one.name == name; });
        if (row == rowsEnd()) return u"$(" + name + u")??";
        const bool counts = arguments.size() >= row->least && arguments.size() <= row->most;
        try {
            if (counts) return (this->*row->function)(arguments);
        } catch (const WrongArguments&) {
        }
        return u"$(" + name + kWrong;
    }
    static const Row* rowsBegin();
    static const Row* rowsEnd();

    template <typename Operation>
    static Text folded(const Texts& a, Operation operation)
    {
        double value = numberOf(a.front());
        for (std::size_t i = 1; i < a.size(); ++i) value = operation(value, numberOf(a[i]));
        return textOf(value);
    }
    template <typename Operation>
    static Text foldedBits(const Texts& a, Operation operation)
    {
        int value = wholeOf(a.front());
        for (std::size_t i = 1; i < a.size(); ++i) value = operation(value, wholeOf(a[i]));
        return textOf(value);
    }

    Text add(const Texts& a) { return folded(a, std::plus<>()); }
    Text subtract(const Texts& a) { return folded(a, std::minus<>()); }
    Text multiply(const Texts& a) { return folded(a, std::multiplies<>()); }
    Text divide(const Texts& a)
    {
        return folded(a, [](double x, double y) {
            if (y == 0.0) throw WrongArguments();
            return x / y;
        });
    }
    Text equal(const Texts& a) { return truth(numberOf(a[0]) == numberOf(a[1])); }
    Text less(const Texts& a) { return truth(numberOf(a[0]) < numberOf(a[1])); }
    Text greater(const Texts& a) { return truth(numberOf(a[0]) > numberOf(a[1])); }
    Text different(const Texts& a) { return truth(numberOf(a[0]) != numberOf(a[1])); }
    Text lessEqual(const Texts& a) { return truth(numberOf(a[0]) <= numberOf(a[1])); }
    Text greaterEqual(const Texts& a) { return truth(numberOf(a[0]) >= numberOf(a[1])); }
    Text andBits(const Texts& a) { return foldedBits(a, std::bit_and<>()); }
    Text orBits(const Texts& a) { return foldedBits(a, std::bit_or<>()); }
    Text xorBits(const Texts& a) { return foldedBits(a, std::bit_xor<>()); }
    Text sameText(const Texts& a) { return truth(a[0] == a[1]); }
    Text fix(const Texts& a) { return textOf(std::trunc(numberOf(a[0]))); }
    Text upper(const Texts& a) { return text::upperText(a[0]); }
    Text strlen(const Texts& a) { return textOf(static_cast<double>(a[0].size())); }
    Text linelen(const Texts&) { return u"240"; }

    Text evaluated(const Texts& a)
    {
        if (++depth_ > kDeepest) throw TooMuch();
        std::u16string_view rest = a[0];
        Text value = evaluate(rest, false);
        --depth_;
        return value;
    }

    Text substr(const Texts& a)
    {
        const int start = wholeOf(a[1]);
        if (start < 1) throw WrongArguments();
        const auto from = std::min(static_cast<std::size_t>(start) - 1, a[0].size());
        const int count = a.size() > 2 ? wholeOf(a[2]) : static_cast<int>(kLongest);
        return a[0].substr(from, static_cast<std::size_t>(std::max(count, 0)));
    }

    /// The member of a list apart by commas, from 0.
    Text index(const Texts& a)
    {
        std::size_t at = 0;
        for (int left = wholeOf(a[0]); left > 0; --left) {
            const std::size_t comma = a[1].find(u',', at);
            if (comma == Text::npos) return {};
            at = comma + 1;
        }
        return a[1].substr(at, a[1].find(u',', at) - at);
    }

    Text nth(const Texts& a)
    {
        const int which = wholeOf(a[0]);
        if (which < 0 || static_cast<std::size_t>(which) + 1 >= a.size()) throw WrongArguments();
        return a[static_cast<std::size_t>(which) + 1];
    }

    Text getvar(const Texts& a)
    {
        const auto value = world_.host().systemVariable(a[0]);
        if (!value) throw WrongArguments();
        if (!value->isCons())
            return value->isReal() ? textOf(value->asReal()) : world_.princ(*value);
        Text list; // a point
        for (lisp::Value rest = *value; rest.isCons(); rest = lisp::cdr(rest))
            list += (list.empty() ? u"" : u",") + textOf(lisp::car(rest).asNumber());
        return list;
    }

    Text getenv(const Texts& a)
    {
        const char* value = std::getenv(lisp::toUtf8(a[0]).c_str());
        return value == nullptr ? Text() : lisp::toUtf16(value);
    }

    lisp::UnitSettings units() const
    {
        const SystemVariables& variables = Document::of(world_).variables();
        return {variables.integer(u"LUNITS"),   variables.integer(u"LUPREC"),
                variables.integer(u"AUNITS"),   variables.integer(u"AUPREC"),
                variables.integer(u"UNITMODE"), variables.integer(u"DIMZIN")};
    }

    Text rtos(const Texts& a)
    {
        const lisp::UnitSettings settings = units();
        return lisp::distanceText(
            numberOf(a[0]), a.size() > 1 ? wholeOf(a[1]) : settings.linearUnits,
            a.size() > 2 ? wholeOf(a[2]) : settings.linearPrecision, settings);
    }

    Text angtos(const Texts& a)
    {
        const lisp::UnitSettings settings = units();
        return lisp::angleText(numberOf(a[0]), a.size() > 1 ? wholeOf(a[1]) : settings.angularUnits,
                               a.size() > 2 ? wholeOf(a[2]) : settings.angularPrecision, settings);
    }

    Text edtime(const Texts& a)
    {
        // A time of 0 is now.
        const double given = numberOf(a[0]);
        const double time = given == 0.0 ? Document::of(world_).variables().real(u"DATE") : given;
        Text picture = a[1]; // commas are part of it
        for (std::size_t i = 2; i < a.size(); ++i) picture += u"," + a[i];
        return pictureOf(momentOf(time), picture);
    }

    lisp::World& world_;
    int depth_ = 0;
    std::size_t length_ = 0;
};

constexpr std::size_t kMany = 10; // arguments of a call

const Macro::Row Macro::kRows[] = {
    {u"+", &Macro::add, 1, kMany},         {u"-", &Macro::subtract, 1, kMany},
    {u"*", &Macro::multiply, 1, kMany},    {u"/", &Macro::divide, 1, kMany},
    {u"=", &Macro::equal, 2, 2},           {u"<", &Macro::less, 2, 2},
    {u">", &Macro::greater, 2, 2},         {u"!=", &Macro::different, 2, 2},
    {u"<=", &Macro::lessEqual, 2, 2},      {u">=", &Macro::greaterEqual, 2, 2},
    {u"AND", &Macro::andBits, 1, kMany},   {u"ANGTOS", &Macro::angtos, 1, 3},
    {u"EDTIME", &Macro::edtime, 2, kMany}, {u"EQ", &Macro::sameText, 2, 2},
    {u"EVAL", &Macro::evaluated, 1, 1},    {u"FIX", &Macro::fix, 1, 1},
    {u"GETENV", &Macro::getenv, 1, 1},     {u"GETVAR", &Macro::getvar, 1, 1},
    {u"INDEX", &Macro::index, 2, 2},       {u"LINELEN", &Macro::linelen, 0, 0},
    {u"NTH", &Macro::nth, 2, kMany},       {u"OR", &Macro::orBits, 1, kMany},
    {u"RTOS", &Macro::rtos, 1, 3},         {u"STRLEN", &Macro::strlen, 1, 1},
    {u"SUBSTR", &Macro::substr, 2, 3},     {u"UPPER", &Macro::upper, 1, 1},
    {u"XOR", &Macro::xorBits, 1, kMany},
};

const Macro::Row* Macro::rowsBegin() { return std::begin(kRows); }
const Macro::Row* Macro::rowsEnd() { return std::end(kRows); }

} // namespace

std::u16string dieselText(lisp::World& world, std::u16string_view macro)
{
    try {
        return Macro(world).evaluate(macro, false);
    } catch (const TooMuch&) {
        return u"$(++)";
    }
}

} // namespace orvald
