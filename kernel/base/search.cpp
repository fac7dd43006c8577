// SPDX-License-Identifier: LicenseRef-ORVALD
// A search goes from one occurrence of the first unit to the next and compares there. Where that
// does too much work for nothing (a text of one letter, a pattern of the same letter with another
// one at its end), it goes on by the borders of the pattern, after Knuth, Morris and Pratt, which
// reads every unit of the text once.
#include "kex/search.h"

#include <cstring>
#include <stdexcept>

namespace KEX {
namespace {

/// Units compared in vain, for each unit passed, before the search changes over.
constexpr std::size_t kPatience = 4;

/// Search by borders: next[i] is the length of the longest text that part[0..i] both begins and
/// ends with, itself not counted.
std::size_t findByBorders(TextView text, TextView part, std::size_t from)
{
    std::vector<std::size_t> next(part.size(), 0);
    std::size_t held = 0;
    for (std::size_t i = 1; i < part.size(); ++i) {
        while (held > 0 && part[i] != part[held]) held = next[held - 1];
        if (part[i] == part[held]) ++held;
        next[i] = held;
    }
    held = 0;
    for (std::size_t at = from; at < text.size(); ++at) {
        while (held > 0 && text[at] != part[held]) held = next[held - 1];
        if (text[at] == part[held]) ++held;
        if (held == part.size()) return at + 1 - held;
    }
    return TextView::npos;
}

/// findUnit, where the compiler can see it.
inline std::size_t unitAt(TextView text, ACHAR unit, std::size_t from)
{
    // Four units at a time: a lane of `differ` is 0 where the unit stands, and taking 1 from each
    // lane lets the lowest such lane borrow into its top bit. Lanes above it may show falsely,
    // those below cannot.
    constexpr std::uint64_t kOnes = 0x0001000100010001, kTops = kOnes << 15;
    constexpr std::size_t kLanes = 4;
    const std::uint64_t wanted = kOnes * unit;
    std::size_t at = from;
    for (; at + kLanes <= text.size(); at += kLanes) {
        std::uint64_t differ = 0;
        std::memcpy(&differ, text.data() + at, sizeof differ);
        differ ^= wanted;
        if (((differ - kOnes) & ~differ & kTops) != 0) break;
    }
    for (; at < text.size(); ++at) {
        if (text[at] == unit) return at;
    }
    return TextView::npos;
}

} // namespace

std::size_t findUnit(TextView text, ACHAR unit, std::size_t from)
{
    return unitAt(text, unit, from);
}

std::size_t findText(TextView text, TextView part, std::size_t from)
{
    if (part.empty() || from > text.size() || part.size() > text.size() - from) {
        return TextView::npos;
    }
    const TextView starts = text.substr(0, text.size() - part.size() + 1); // where it may begin
    std::size_t wasted = 0;
    for (std::size_t at = from;; ++at) {
        at = unitAt(starts, part[0], at);
        if (at == TextView::npos) return TextView::npos;
        std::size_t equal = 1;
        while (equal < part.size() && text[at + equal] == part[equal]) ++equal;
        if (equal == part.size()) return at;
        wasted += equal;
        if (wasted > kPatience * (at - from) + part.size()) {
            return findByBorders(text, part, at + 1);
        }
    }
}

CKexString replaced(TextView text, TextView old, TextView fresh)
{
    CKexString result;
    result.reserve(static_cast<int>(text.size()));
    std::size_t done = 0;
    for (;;) {
        const std::size_t hit = findText(text, old, done);
        result += TextView(text.substr(done, hit - done));
        if (hit == TextView::npos) return result;
        result += fresh;
        if (result.len() > CKexString::kMostUnits) throw std::length_error("text too long");
        done = hit + old.size();
    }
}

UnitSet::UnitSet(TextView units)
{
    for (const ACHAR unit : units) {
        if (unit < kLow) {
            low_[unit / 64] |= std::uint64_t(1) << (unit % 64);
            continue;
        }
        if (all_.empty()) all_.resize(0x10000 / 64);
        all_[unit / 64] |= std::uint64_t(1) << (unit % 64);
    }
}

void strTok(TextView text, TextView delimiters, CKexArrayTempl<CKexString>& parts, bool keepEmpty)
{
    forEachPart(text, delimiters, keepEmpty,
                [&](TextView part) { parts.append(CKexString(part)); });
}

} // namespace KEX
