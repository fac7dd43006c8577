// SPDX-License-Identifier: LicenseRef-ORVALD
// Matching of one pattern by the greedy method: after a failure only the last * is tried again, one
// unit further on, so that the time stays within the product of the lengths.
#include "lisp/wildcard.h"

#include "characters.h"

namespace orvald::lisp {

namespace {

using View = std::u16string_view;

// One element of a pattern other than *: how many units of the pattern it takes and whether `unit`
// satisfies it.
struct Element
{
    std::size_t length;
    bool matches;
};

Element bracketElement(View pattern, std::size_t at, std::size_t close, char16_t unit)
{
    std::size_t i = at + 1;
    const bool inverted = pattern[i] == u'~' && i + 1 < close;
    i += inverted;
    bool found = false;
    while (i < close) {
        if (pattern[i] == u'`' && i + 1 < close) ++i;
        const char16_t low = pattern[i++];
        char16_t high = low;
        if (i + 1 < close && pattern[i] == u'-') {
            high = pattern[i + 1];
            i += 2;
        }
        found = found || (unit >= low && unit <= high);
    }
    return {close - at + 1, found != inverted};
}

Element elementAt(View pattern, std::size_t at, char16_t unit)
{
    switch (pattern[at]) {
    case u'#': return {1, isDigit(unit)};
    case u'@': return {1, isLetter(unit)};
    case u'.': return {1, !isDigit(unit) && !isLetter(unit)};
    case u'?': return {1, true};
    case u'`':
        if (at + 1 < pattern.size()) return {2, pattern[at + 1] == unit};
        return {1, unit == u'`'};
    case u'[': {
        const std::size_t close = pattern.find(u']', at + 2);
        if (close != View::npos) return bracketElement(pattern, at, close, unit);
        return {1, unit == u'['};
    }
    default: return {1, pattern[at] == unit};
    }
}

bool matchesPlain(View text, View pattern)
{
    std::size_t t = 0;
    std::size_t p = 0;
    std::size_t star = View::npos; // place behind the last * seen
    std::size_t resume = 0;        // where its next try begins
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == u'*') {
            star = ++p;
            resume = t;
            continue;
        }
        if (p < pattern.size()) {
            const Element element = elementAt(pattern, p, text[t]);
            if (element.matches) {
                p += element.length;
                ++t;
                continue;
            }
        }
        if (star == View::npos) return false;
        p = star;
        t = ++resume;
    }
    while (p < pattern.size() && pattern[p] == u'*') ++p;
    return p == pattern.size();
}

bool matchesOne(View text, View pattern)
{
    const bool inverted = !pattern.empty() && pattern.front() == u'~';
    return matchesPlain(text, pattern.substr(inverted ? 1 : 0)) != inverted;
}

// Length of the first pattern of a list: up to a comma that is neither escaped nor in brackets.
std::size_t firstLength(View patterns)
{
    for (std::size_t i = 0; i < patterns.size(); ++i) {
        if (patterns[i] == u',') return i;
        if (patterns[i] == u'`') {
            ++i;
        } else if (patterns[i] == u'[') {
            const std::size_t close = patterns.find(u']', i + 2);
            if (close != View::npos) i = close;
        }
    }
    return patterns.size();
}

} // namespace

bool matchesWildcard(std::u16string_view text, std::u16string_view pattern)
{
    for (;;) {
        const std::size_t length = firstLength(pattern);
        if (matchesOne(text, pattern.substr(0, length))) return true;
        if (length >= pattern.size()) return false;
        pattern.remove_prefix(length + 1);
    }
}

} // namespace orvald::lisp
