// SPDX-License-Identifier: LicenseRef-ORVALD
// Searching and splitting texts. Whatever is searched for, the time grows with the sum of the
// lengths, never with their product.
#pragma once

#include "kex/array.h"
#include "kex/string.h"

#include <array>
#include <cstdint>
#include <vector>

namespace KEX {

/// Position of the first such unit at or after `from`, TextView::npos when there is none.
KEX_BASE_API std::size_t findUnit(TextView text, ACHAR unit, std::size_t from = 0);
/// Position of the first occurrence at or after `from`, TextView::npos when there is none; the
/// empty text occurs nowhere.
KEX_BASE_API std::size_t findText(TextView text, TextView part, std::size_t from = 0);

/// The text with every occurrence of `old`, from the left and without overlap, become `fresh`; what
/// was put in is not searched. An empty `old` changes nothing. Throws std::length_error when the
/// result would be longer than CKexString::kMostUnits.
KEX_BASE_API CKexString replaced(TextView text, TextView old, TextView fresh);

/// The units of a text as a set.
class KEX_BASE_API UnitSet
{
public:
    explicit UnitSet(TextView units);
    bool contains(ACHAR unit) const
    {
        if (unit < kLow) return isIn(low_.data(), unit);
        return !all_.empty() && isIn(all_.data(), unit);
    }

private:
    static constexpr unsigned kLow = 256;
    static bool isIn(const std::uint64_t* bits, unsigned unit)
    {
        return (bits[unit / 64] >> (unit % 64) & 1) != 0;
    }

    std::array<std::uint64_t, kLow / 64> low_ = {};
    std::vector<std::uint64_t> all_; // of all units; empty when the set has none from kLow on
};

/// Calls `use` with each part of `text` between units of `delimiters`, as a view into it. With
/// `keepEmpty` also with the empty parts, so that "a;;b" has three and ";" two; "" has none.
template <class Use>
void forEachPart(TextView text, TextView delimiters, bool keepEmpty, Use&& use)
{
    if (text.empty()) return;
    const UnitSet set(delimiters);
    for (std::size_t start = 0, at = 0;; ++at) {
        if (at < text.size() && !set.contains(text[at])) continue;
        if (keepEmpty || at > start) use(TextView(text.substr(start, at - start)));
        if (at == text.size()) return;
        start = at + 1;
    }
}

/// The parts of forEachPart, appended to `parts`.
KEX_BASE_API void strTok(TextView text, TextView delimiters, CKexArrayTempl<CKexString>& parts,
                         bool keepEmpty);

} // namespace KEX
