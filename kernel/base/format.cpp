// SPDX-License-Identifier: LicenseRef-ORVALD
// The pattern reader behind KEX::format. Numbers come from to_chars.
#include "kex/format.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <limits>

namespace KEX {
namespace {

struct Field
{
    char align = 0; // '<', '>' or 0: by the kind of value
    bool zeros = false;
    int width = 0;
    int digits = -1; // -1: as many as are needed
    char kind = 0;   // 'x', 'X', 'f', 'e' or 0
};

/// Widths and digits beyond this are cut, so that a pattern cannot ask for any amount of memory.
constexpr int kMostUnits = 400;

int readNumber(TextView text, std::size_t& at)
{
    int value = 0;
    for (; at < text.size() && text[at] >= KT('0') && text[at] <= KT('9'); ++at) {
        value = value * 10 + (text[at] - KT('0'));
        if (value > kMostUnits) value = kMostUnits;
    }
    return value;
}

/// Reads what stands between the braces; false when it is no field.
bool readField(TextView text, Field& field)
{
    if (text.empty()) return true;
    if (text[0] != KT(':')) return false;
    std::size_t at = 1;
    const auto next = [&] { return at < text.size() ? text[at] : ACHAR(0); };
    if (next() == KT('<') || next() == KT('>')) field.align = static_cast<char>(text[at++]);
    if (next() == KT('0')) {
        field.zeros = true;
        ++at;
    }
    field.width = readNumber(text, at);
    if (next() == KT('.')) {
        ++at;
        field.digits = readNumber(text, at);
    }
    if (next() == KT('x') || next() == KT('X') || next() == KT('f') || next() == KT('e')) {
        field.kind = static_cast<char>(text[at++]);
    }
    return at == text.size();
}

using Buffer = std::array<char, 1024>; // holds 309 digits before and kMostUnits behind the point

TextView widen(const char* first, const char* last, std::array<ACHAR, 1024>& units)
{
    std::size_t count = 0;
    for (; first != last; ++first) units[count++] = static_cast<ACHAR>(*first);
    return TextView(units.data(), count);
}

std::to_chars_result realText(char* first, char* last, double value, const Field& field)
{
    if (field.kind == 'e') {
        return std::to_chars(first, last, value, std::chars_format::scientific,
                             field.digits < 0 ? 6 : field.digits);
    }
    if (field.digits >= 0) {
        return std::to_chars(first, last, value, std::chars_format::fixed, field.digits);
    }
    if (field.kind == 'f') return std::to_chars(first, last, value, std::chars_format::fixed);
    return std::to_chars(first, last, value);
}

std::to_chars_result wholeText(char* first, char* last, const FormatArg& value, const Field& field)
{
    if (field.kind == 'x' || field.kind == 'X') {
        unsigned long long bits = value.whole;
        if (value.kind == FormatArg::Kind::integer) {
            bits = static_cast<unsigned long long>(value.integer);
            if (value.integer < 0 && value.integer >= std::numeric_limits<std::int32_t>::min()) {
                bits = static_cast<std::uint32_t>(bits);
            }
        }
        const std::to_chars_result end = std::to_chars(first, last, bits, 16);
        if (field.kind == 'X') {
            for (char* digit = first; digit != end.ptr; ++digit) {
                if (*digit >= 'a') *digit = static_cast<char>(*digit - 'a' + 'A');
            }
        }
        return end;
    }
    if (value.kind == FormatArg::Kind::integer) return std::to_chars(first, last, value.integer);
    return std::to_chars(first, last, value.whole);
}

void appendPadded(CKexString& to, TextView text, const Field& field, bool number)
{
    const int missing = field.width - static_cast<int>(text.size());
    const bool right = field.align != 0 ? field.align == '>' : number;
    if (missing > 0 && right) {
        if (number && field.zeros) {
            const bool sign = !text.empty() && text[0] == KT('-');
            if (sign) to += KT('-');
            text.remove_prefix(sign ? 1 : 0);
            to += CKexString(KT('0'), missing);
        } else {
            to += CKexString(KT(' '), missing);
        }
    }
    to += text;
    if (missing > 0 && !right) to += CKexString(KT(' '), missing);
}

void appendValue(CKexString& to, const FormatArg& value, const Field& field)
{
    if (value.kind == FormatArg::Kind::text) return appendPadded(to, value.text, field, false);
    if (value.kind == FormatArg::Kind::unit) {
        return appendPadded(to, TextView(&value.unit, 1), field, false);
    }
    Buffer bytes;
    std::array<ACHAR, 1024> units;
    char* const first = bytes.data();
    char* const last = first + bytes.size();
    const std::to_chars_result end = value.kind == FormatArg::Kind::real
                                         ? realText(first, last, value.real, field)
                                         : wholeText(first, last, value, field);
    appendPadded(to, widen(first, end.ptr, units), field, true);
}

} // namespace

CKexString formatArgs(TextView pattern, const FormatArg* values, std::size_t count)
{
    CKexString result;
    std::size_t used = 0;
    for (std::size_t at = 0; at < pattern.size();) {
        const ACHAR unit = pattern[at];
        const bool brace = unit == KT('{') || unit == KT('}');
        if (brace && at + 1 < pattern.size() && pattern[at + 1] == unit) {
            result += unit;
            at += 2;
            continue;
        }
        const std::size_t close = unit == KT('{') ? pattern.find(KT('}'), at) : TextView::npos;
        Field field;
        if (close == TextView::npos || !readField(pattern.substr(at + 1, close - at - 1), field)) {
            result += unit;
            ++at;
            continue;
        }
        if (used < count) appendValue(result, values[used++], field);
        at = close + 1;
    }
    return result;
}

} // namespace KEX
