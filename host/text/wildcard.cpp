// SPDX-License-Identifier: LicenseRef-ORVALD
// Matching by the greedy method: after a failure only the last * is tried again, one unit further
// on, so there is no recursion.
#include "text/wildcard.h"

#include "text/letters.h"

namespace orvald::text {
namespace {

using View = std::u16string_view;

/// Place of the bracket that closes the set opened at `open`; npos when none does. The first unit
/// of a set stands for itself, a closing bracket too.
std::size_t closing(View pattern, std::size_t open)
{
    std::size_t i = open + 1;
    if (i < pattern.size()) i += pattern[i] == u'`' ? 2 : 1;
    for (; i < pattern.size(); ++i) {
        if (pattern[i] == u']') return i;
        if (pattern[i] == u'`') ++i;
    }
    return View::npos;
}

/// One alternative at work.
class Matcher
{
public:
    Matcher(View pattern, Case letters)
        : pattern_(pattern), lastClose_(pattern.rfind(u']')), fold_(letters == Case::ignored)
    {
    }

    bool matches(View text) const
    {
        std::size_t t = 0, p = 0;
        std::size_t star = View::npos; // place behind the last * seen
        std::size_t resume = 0;        // where its next try begins
        while (t < text.size()) {
            if (p < pattern_.size() && pattern_[p] == u'*') {
                star = ++p;
                resume = t;
                continue;
            }
            const std::size_t length = p < pattern_.size() ? matched(p, folded(text[t])) : 0;
            if (length != 0) {
                p += length;
                ++t;
            } else if (star == View::npos) {
                return false;
            } else {
                p = star;
                t = ++resume;
            }
        }
        while (p < pattern_.size() && pattern_[p] == u'*') ++p;
        return p == pattern_.size();
    }

private:
    char16_t folded(char16_t unit) const { return fold_ ? upperUnit(unit) : unit; }

    /// Length of the element at `p`, other than *, when the unit satisfies it; else 0.
    std::size_t matched(std::size_t p, char16_t unit) const
    {
        const auto one = [](bool fits) { return fits ? std::size_t{1} : std::size_t{0}; };
        switch (pattern_[p]) {
        case u'#': return one(isDigit(unit));
        case u'@': return one(isLetter(unit));
        case u'.': return one(!isDigit(unit) && !isLetter(unit));
        case u'?': return 1;
        case u'`':
            if (p + 1 == pattern_.size()) return one(unit == u'`');
            return folded(pattern_[p + 1]) == unit ? 2 : 0;
        case u'[': {
            // Brackets that nothing can close are not looked for again and again.
            const bool open = lastClose_ == View::npos || p > lastClose_;
            const std::size_t close = open ? View::npos : closing(pattern_, p);
            if (close == View::npos) return one(unit == u'[');
            return inSet(p + 1, close, unit) ? close - p + 1 : 0;
        }
        default: return one(folded(pattern_[p]) == unit);
        }
    }
    bool inSet(std::size_t i, std::size_t close, char16_t unit) const
    {
        const bool inverted = pattern_[i] == u'~' && i + 1 < close;
        if (inverted) ++i;
        bool found = false;
        while (i < close) {
            if (pattern_[i] == u'`' && i + 1 < close) ++i;
            const char16_t low = folded(pattern_[i++]);
            char16_t high = low;
            if (i + 1 < close && pattern_[i] == u'-') {
                high = folded(pattern_[i + 1]);
                i += 2;
            }
            found = found || (unit >= low && unit <= high);
        }
        return found != inverted;
    }

    View pattern_;
    std::size_t lastClose_;
    bool fold_;
};

bool matchesOne(View text, View pattern, Case letters)
{
    const bool inverted = !pattern.empty() && pattern.front() == u'~';
    return Matcher(pattern.substr(inverted ? 1 : 0), letters).matches(text) != inverted;
}

/// Length of the first pattern of a list: up to a comma that is neither escaped nor in brackets.
std::size_t firstLength(View patterns)
{
    for (std::size_t i = 0; i < patterns.size(); ++i) {
        if (patterns[i] == u',') return i;
        if (patterns[i] == u'`') {
            ++i;
        } else if (patterns[i] == u'[') {
            const std::size_t close = closing(patterns, i);
            if (close != View::npos) i = close;
        }
    }
    return patterns.size();
}

} // namespace

bool matchesWildcard(std::u16string_view text, std::u16string_view pattern, Case letters)
{
    for (;;) {
        const std::size_t length = firstLength(pattern);
        if (matchesOne(text, pattern.substr(0, length), letters)) return true;
        if (length >= pattern.size()) return false;
        pattern.remove_prefix(length + 1);
    }
}

} // namespace orvald::text
