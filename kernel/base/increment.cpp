// SPDX-License-Identifier: LicenseRef-ORVALD
// Counters are moved by arithmetic on their digits, so that any number of steps costs the same.
#include "kex/increment.h"

#include <algorithm>
#include <cstdint>

namespace KEX {
namespace {

constexpr std::size_t kLongestLetterCounter = 2;
constexpr std::int64_t kLetters = 26;

enum class Run
{
    digits,
    letters,
    delimiter
};

Run runOf(ACHAR unit)
{
    ACHAR type = 0;
    if (str_incr_type(type, unit)) return type == KT('0') ? Run::digits : Run::letters;
    return str_incr_delimit(unit) ? Run::delimiter : Run::letters;
}

/// Units of the part that starts the text.
std::size_t partLength(TextView text)
{
    const Run run = runOf(text[0]);
    std::size_t length = 1;
    while (run != Run::delimiter && length < text.size() && runOf(text[length]) == run) ++length;
    return length;
}

/// '0', 'A' or 'a', or 0 for a word.
ACHAR counterType(TextView part)
{
    ACHAR type = 0, other = 0;
    if (!str_incr_type(type, part[0])) return 0;
    if (type == KT('0')) return type;
    if (part.size() > kLongestLetterCounter) return 0;
    return str_incr_type(other, part.back()) && other == type ? type : ACHAR(0);
}

/// Decimal digits plus `steps`, not below zero; without leading zeros beyond the width.
CKexString movedDigits(CKexString digits, std::int64_t steps)
{
    const int width = digits[0] == KT('0') ? digits.len() : 1;
    std::int64_t carry = steps;
    for (int i = digits.len(); i > 0 && carry != 0; --i) {
        const std::int64_t sum = (digits[i - 1] - KT('0')) + carry;
        const std::int64_t digit = ((sum % 10) + 10) % 10;
        digits.setAt(i - 1, static_cast<ACHAR>(KT('0') + digit));
        carry = (sum - digit) / 10;
    }
    if (carry < 0) return CKexString(KT('0'), width);
    CKexString head;
    for (; carry > 0; carry /= 10) head += static_cast<ACHAR>(KT('0') + carry % 10);
    digits = head.reverse() + digits;
    const int zeros = digits.span(KT("0"));
    return digits.mid(std::min(zeros, std::max(digits.len() - width, 0)));
}

/// One or two letters moved by `steps`, not below A. They count without a zero: A is 1, AA is 27.
CKexString movedLetters(TextView letters, ACHAR first, std::int64_t steps)
{
    std::int64_t value = 0;
    for (const ACHAR letter : letters) value = value * kLetters + (letter - first) + 1;
    value = std::max<std::int64_t>(value + steps, 1);
    CKexString result;
    for (; value > 0; value = (value - 1) / kLetters) {
        result += static_cast<ACHAR>(first + (value - 1) % kLetters);
    }
    return result.revert();
}

} // namespace

bool str_incr_delimit(ACHAR unit)
{
    ACHAR type = 0;
    return unit >= 32 && unit <= 126 && !str_incr_type(type, unit);
}

bool str_incr_type(ACHAR& type, ACHAR unit)
{
    if (unit >= KT('0') && unit <= KT('9')) type = KT('0');
    else if (unit >= KT('A') && unit <= KT('Z')) type = KT('A');
    else if (unit >= KT('a') && unit <= KT('z')) type = KT('a');
    else return false;
    return true;
}

bool str_incr_parse(CKexArrayTempl<CKexString>& parts, TextView text)
{
    if (text.empty()) return false;
    while (!text.empty()) {
        const std::size_t length = partLength(text);
        parts.append(CKexString(TextView(text.substr(0, length))));
        text.remove_prefix(length);
    }
    return true;
}

CKexString& str_increment(CKexString& text, int n)
{
    // The last part that is no delimiter, from `start` up to `end`.
    int start = 0, end = 0;
    const TextView whole = text.view();
    for (std::size_t at = 0; at < whole.size();) {
        const std::size_t length = partLength(whole.substr(at));
        if (runOf(whole[at]) != Run::delimiter) {
            start = static_cast<int>(at);
            end = static_cast<int>(at + length);
        }
        at += length;
    }
    const CKexString part = text.mid(start, end - start);
    const ACHAR type = part.isNull() ? ACHAR(0) : counterType(part);
    if (type == 0) return text += KT('1');
    const std::int64_t steps = n == 0 ? 1 : n;
    const CKexString moved =
        type == KT('0') ? movedDigits(part, steps) : movedLetters(part, type, steps);
    return text = text.mid(0, start) + moved + text.mid(end);
}

} // namespace KEX
