// SPDX-License-Identifier: LicenseRef-ORVALD
// The host's pattern language for names. A star costs one remembered place, not a recursion, so
// matching takes at most length of text times length of pattern.
#include "drawing/text.h"

namespace orvald::drawing {
namespace {

char32_t fold(char16_t c, bool foldCase) { return foldCase ? upperCase(c) : c; }

bool isLetter(char16_t c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
           (c >= 0xC0 && c != 0xD7 && c != 0xF7);
}
bool isDigit(char16_t c) { return c >= '0' && c <= '9'; }

/// Length of the element at the front of a pattern: a bracket set, an escaped character, one unit.
std::size_t elementLength(std::u16string_view pattern)
{
    if (pattern[0] == '`' && pattern.size() > 1) return 2;
    if (pattern[0] != '[') return 1;
    for (std::size_t i = 2; i < pattern.size(); ++i) { // a ] right behind [ stands for itself
        if (pattern[i] == '`') ++i;
        else if (pattern[i] == ']') return i + 1;
    }
    return 1; // never closed: a plain [
}

bool inSet(char16_t c, std::u16string_view set, bool foldCase)
{
    const bool negated = !set.empty() && set[0] == '~';
    if (negated) set.remove_prefix(1);
    const char32_t x = fold(c, foldCase);
    bool found = false;
    for (std::size_t i = 0; i < set.size(); ++i) {
        if (set[i] == '`' && i + 1 < set.size()) ++i;
        const char32_t first = fold(set[i], foldCase);
        char32_t last = first;
        if (i + 2 < set.size() && set[i + 1] == '-') {
            i += 2;
            last = fold(set[i], foldCase);
        }
        found = found || (x >= first && x <= last);
    }
    return found != negated;
}

bool matchesOne(char16_t c, std::u16string_view element, bool foldCase)
{
    if (element.size() > 1) {
        return element[0] == '`' ? fold(c, foldCase) == fold(element[1], foldCase)
                                 : inSet(c, element.substr(1, element.size() - 2), foldCase);
    }
    switch (element[0]) {
    case '#': return isDigit(c);
    case '@': return isLetter(c);
    case '.': return !isLetter(c) && !isDigit(c);
    case '?': return true;
    default: return fold(c, foldCase) == fold(element[0], foldCase);
    }
}

bool matchesAlternative(std::u16string_view text, std::u16string_view pattern, bool foldCase)
{
    const bool negated = !pattern.empty() && pattern[0] == '~';
    if (negated) pattern.remove_prefix(1);
    constexpr std::size_t none = static_cast<std::size_t>(-1);
    std::size_t t = 0, p = 0, star = none, starText = 0;
    bool matched = true;
    while (matched && (t < text.size() || p < pattern.size())) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            starText = t;
            continue;
        }
        if (p < pattern.size() && t < text.size()) {
            const std::size_t size = elementLength(pattern.substr(p));
            if (matchesOne(text[t], pattern.substr(p, size), foldCase)) {
                ++t;
                p += size;
                continue;
            }
        }
        if (star != none && starText < text.size()) {
            t = ++starText;
            p = star + 1;
        } else {
            matched = false;
        }
    }
    return matched != negated;
}

} // namespace

bool matchesPattern(std::u16string_view text, std::u16string_view pattern, bool foldCase)
{
    for (;;) {
        std::size_t end = 0; // of the alternative at the front
        while (end < pattern.size() && pattern[end] != ',')
            end += elementLength(pattern.substr(end));
        if (matchesAlternative(text, pattern.substr(0, end), foldCase)) return true;
        if (end >= pattern.size()) return false;
        pattern.remove_prefix(end + 1);
    }
}

} // namespace orvald::drawing
