// SPDX-License-Identifier: LicenseRef-ORVALD
// Reading and printing of numbers by the standard library's locale-free conversions.
#include "number_text.h"

#include "text/letters.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace orvald::lisp {

namespace {

// Beyond every text's length, so that a digit's place cannot outweigh it.
constexpr long kHugePower = 1L << 30;

// Shape of a number at the start of a text; `length` 0 when there is none.
struct NumberShape
{
    std::size_t length = 0;
    bool real = false;
};

NumberShape numberShape(std::u16string_view text)
{
    std::size_t i = 0;
    if (i < text.size() && (text[i] == u'+' || text[i] == u'-')) ++i;
    const std::size_t first = i;
    while (i < text.size() && text::isDigit(text[i])) ++i;
    std::size_t digits = i - first;
    NumberShape shape;
    if (i < text.size() && text[i] == u'.') {
        const std::size_t fraction = i + 1;
        std::size_t end = fraction;
        while (end < text.size() && text::isDigit(text[end])) ++end;
        digits += end - fraction;
        if (digits > 0) {
            shape.real = true;
            i = end;
        }
    }
    if (digits == 0) return {};
    if (i < text.size() && (text[i] == u'e' || text[i] == u'E')) {
        std::size_t end = i + 1;
        if (end < text.size() && (text[end] == u'+' || text[end] == u'-')) ++end;
        const std::size_t exponent = end;
        while (end < text.size() && text::isDigit(text[end])) ++end;
        if (end > exponent) {
            shape.real = true;
            i = end;
        }
    }
    shape.length = i;
    return shape;
}

double convertReal(std::u16string_view digits)
{
    std::string narrow;
    narrow.reserve(digits.size());
    for (const char16_t unit : digits) narrow.push_back(static_cast<char>(unit));
    const char* begin = narrow.data();
    if (*begin == '+') ++begin;
    double value = 0.0;
    const auto result = std::from_chars(begin, narrow.data() + narrow.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        // Too large or too small? The place of the first digit that counts tells.
        const std::size_t mark = std::min(narrow.find_first_of("eE"), narrow.size());
        const auto point = static_cast<long>(std::min(narrow.find('.'), mark));
        const auto first = static_cast<long>(narrow.find_first_of("123456789"));
        long power = 0;
        if (mark < narrow.size()) {
            const char* digitsAt = narrow.data() + mark + 1;
            if (*digitsAt == '+') ++digitsAt;
            const auto read = std::from_chars(digitsAt, narrow.data() + narrow.size(), power);
            if (read.ec != std::errc()) power = *digitsAt == '-' ? -kHugePower : kHugePower;
        }
        value = point - first + power > 0 ? std::numeric_limits<double>::infinity() : 0.0;
        if (*begin == '-') value = -value;
    }
    return value;
}

} // namespace

std::optional<Value> readNumber(std::u16string_view token)
{
    const NumberShape shape = numberShape(token);
    if (shape.length == 0 || shape.length != token.size()) return std::nullopt;
    if (shape.real) return Value::real(convertReal(token));
    const bool negative = token.front() == u'-';
    std::int64_t value = 0;
    for (const char16_t unit : token.substr(text::isDigit(token.front()) ? 0 : 1)) {
        value = value * 10 + (unit - u'0');
        if (value > std::numeric_limits<std::int32_t>::max()) {
            return Value::real(convertReal(token));
        }
    }
    return Value::integer(static_cast<std::int32_t>(negative ? -value : value));
}

double leadingReal(std::u16string_view text)
{
    while (!text.empty() && (text.front() == u' ' || text.front() == u'\t')) text.remove_prefix(1);
    const NumberShape shape = numberShape(text);
    return shape.length == 0 ? 0.0 : convertReal(text.substr(0, shape.length));
}

std::u16string realText(double value)
{
    if (std::isnan(value)) return u"nan";
    if (std::isinf(value)) return value > 0 ? u"inf" : u"-inf";
    char buffer[40];
    const auto end =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 6).ptr;
    std::string_view digits(buffer, static_cast<std::size_t>(end - buffer));
    const std::size_t exponent = digits.find('e');
    std::u16string text(digits.begin(), digits.begin() + static_cast<std::ptrdiff_t>(
                                                             std::min(exponent, digits.size())));
    if (text.find(u'.') == std::u16string::npos) text += u".0";
    if (exponent != std::string_view::npos) {
        text += u'e';
        text += static_cast<char16_t>(digits[exponent + 1]);
        const std::string_view power = digits.substr(exponent + 2);
        text.append(3 - std::min<std::size_t>(power.size(), 3), u'0');
        text.append(power.begin(), power.end());
    }
    return text;
}

std::u16string integerText(std::int64_t value)
{
    char buffer[24];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
    return std::u16string(buffer, end);
}

std::string fixedText(double value, int places)
{
    // The shortest decimal form is what the user sees as the value: 2.675 is halfway between 2.67
    // and 2.68 although its binary form lies a little below.
    char buffer[400];
    const auto end =
        std::to_chars(buffer, buffer + sizeof buffer, std::fabs(value), std::chars_format::fixed)
            .ptr;
    std::string digits(buffer, end);
    std::size_t point = digits.find('.');
    if (point == std::string::npos) {
        point = digits.size();
        digits += '.';
    }
    const std::size_t wanted = point + 1 + static_cast<std::size_t>(places);
    if (digits.size() > wanted) {
        bool carry = digits[wanted] >= '5';
        digits.resize(wanted);
        for (std::size_t i = digits.size(); carry && i-- > 0;) {
            if (digits[i] == '.') continue;
            carry = digits[i] == '9';
            digits[i] = carry ? '0' : static_cast<char>(digits[i] + 1);
        }
        if (carry) digits.insert(digits.begin(), '1');
    } else {
        digits.append(wanted - digits.size(), '0');
    }
    if (places == 0) digits.pop_back();
    const bool zero = digits.find_first_not_of("0.") == std::string::npos;
    return std::signbit(value) && !zero ? "-" + digits : digits;
}

} // namespace orvald::lisp
