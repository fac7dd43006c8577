// SPDX-License-Identifier: LicenseRef-ORVALD
#include "number_in.h"

#include <charconv>
#include <cmath>

namespace orvald::dxf {
namespace {

/// True when the text is a number too small for a double, which counts as 0.
bool isTiny(std::string_view s)
{
    const std::size_t exponent = s.find_first_of("eE");
    return exponent != std::string_view::npos && exponent + 1 < s.size() && s[exponent + 1] == '-';
}

template <class Number, class... Form>
Reading read(std::string_view s, Number& number, Form... form)
{
    const auto [end, error] = std::from_chars(s.data(), s.data() + s.size(), number, form...);
    if (s.empty() || error == std::errc::invalid_argument || end != s.data() + s.size())
        return Reading::none;
    return error == std::errc() ? Reading::good : Reading::outside;
}

std::string_view withoutPlus(std::string_view s)
{
    s = trimmed(s);
    if (s.starts_with('+')) s.remove_prefix(1);
    return s;
}

} // namespace

std::string_view trimmed(std::string_view s)
{
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t')) s.remove_suffix(1);
    return s;
}

Reading readWhole(std::string_view value, std::int64_t& number)
{
    return read(withoutPlus(value), number);
}

Reading readReal(std::string_view value, double& number)
{
    const std::string_view s = withoutPlus(value);
    const Reading reading = read(s, number);
    if (reading == Reading::outside && isTiny(s)) {
        number = 0.0;
        return Reading::good;
    }
    return reading == Reading::good && !std::isfinite(number) ? Reading::outside : reading;
}

Reading readHandle(std::string_view value, drawing::Handle& handle)
{
    const Reading reading = read(trimmed(value), handle, 16);
    // The top bit stays free: the next handle must always be one that exists.
    return reading == Reading::good && handle >> 63 != 0 ? Reading::outside : reading;
}

} // namespace orvald::dxf
