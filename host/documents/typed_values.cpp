// SPDX-License-Identifier: LicenseRef-ORVALD
#include "typed_values.h"

#include "lisp/units.h"
#include "lisp/world.h"
#include "text/letters.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numbers>
#include <string>

namespace orvald {
namespace {

/// Parts of a text between commas; nothing when there are more than `most`.
template <std::size_t most>
std::size_t split(std::u16string_view text, std::u16string_view (&parts)[most])
{
    std::size_t count = 0;
    for (;;) {
        if (count == most) return 0;
        const std::size_t comma = text.find(u',');
        parts[count++] = text.substr(0, comma);
        if (comma == std::u16string_view::npos) return count;
        text.remove_prefix(comma + 1);
    }
}

} // namespace

std::u16string_view trimmed(std::u16string_view text)
{
    constexpr std::u16string_view kBlanks = u" \t\r\n";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::u16string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::optional<int> readInteger(std::u16string_view text)
{
    std::string digits = lisp::toUtf8(text);
    if (digits.starts_with('+')) digits.erase(0, 1);
    short value = 0;
    const char* end = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), end, value);
    if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
    return value;
}

std::optional<int> readColour(std::u16string_view text)
{
    constexpr std::u16string_view kNames[] = {u"BYBLOCK", u"RED",  u"YELLOW",  u"GREEN",
                                              u"CYAN",    u"BLUE", u"MAGENTA", u"WHITE"};
    constexpr int kByLayer = 256;
    std::u16string name = text::upperText(trimmed(text));
    if (name.starts_with(u'_')) name.erase(0, 1);
    if (name == u"BYLAYER") return kByLayer;
    const auto known = std::ranges::find(kNames, name);
    if (known != std::end(kNames)) return static_cast<int>(known - std::begin(kNames));
    const std::optional<int> number = readInteger(name);
    return number && *number >= 0 && *number <= kByLayer ? number : std::nullopt;
}

std::optional<double> readTurn(std::u16string_view text, const TypedUnits& units)
{
    const std::optional<double> angle = lisp::readAngle(trimmed(text), units.angular);
    if (!angle) return std::nullopt;
    return units.clockwise ? -*angle : *angle;
}

std::optional<TypedPoint> readPoint(std::u16string_view text, const TypedUnits& units)
{
    TypedPoint point;
    text = trimmed(text);
    if (text.starts_with(u'@')) {
        point.relative = true;
        text = trimmed(text.substr(1));
        if (text.empty()) return point;
    }
    if (text.starts_with(u'*')) {
        point.world = true;
        text.remove_prefix(1);
    }
    const auto distance = [&](std::u16string_view part) {
        return lisp::readDistance(trimmed(part), units.linear);
    };
    std::u16string_view parts[3];
    std::size_t count = split(text, parts);
    if (count == 0) return std::nullopt;
    std::optional<double> x, y;
    std::size_t z = 2; // the part that is the height
    if (const std::size_t turn = parts[0].find(u'<'); turn != std::u16string_view::npos) {
        const std::optional<double> length = distance(parts[0].substr(0, turn));
        const std::optional<double> angle = readTurn(parts[0].substr(turn + 1), units);
        if (!length || !angle || count > 2) return std::nullopt;
        x = *length * std::cos(*angle + units.angleBase);
        y = *length * std::sin(*angle + units.angleBase);
        z = 1;
    } else {
        if (count < 2) return std::nullopt;
        x = distance(parts[0]);
        y = distance(parts[1]);
    }
    if (!x || !y) return std::nullopt;
    point.value.x = *x;
    point.value.y = *y;
    if (count > z) {
        const std::optional<double> height = distance(parts[z]);
        if (!height) return std::nullopt;
        point.value.z = *height;
        point.hasZ = true;
    }
    return point;
}

} // namespace orvald
