// SPDX-License-Identifier: LicenseRef-ORVALD
// Text literals, views of text, and the one-to-one case tables. Text is UTF-16; every length and
// position counts code units. Nothing here depends on a locale.
#pragma once

#include "hostapi/types.h"
#include "kex/export.h"

#include <string>
#include <string_view>

/// A text literal: KT("Abwicklung").
#define KT(text) ACRX_T(text)

class CKexString;

namespace KEX {

/// Units before the end mark. Four a turn: half the time of std::char_traits, which looks at one.
constexpr std::size_t unitsOf(const ACHAR* text)
{
    for (const ACHAR* at = text;; at += 4) {
        if (at[0] == 0) return static_cast<std::size_t>(at - text);
        if (at[1] == 0) return static_cast<std::size_t>(at - text) + 1;
        if (at[2] == 0) return static_cast<std::size_t>(at - text) + 2;
        if (at[3] == 0) return static_cast<std::size_t>(at - text) + 3;
    }
}

/// Text that somebody else owns; not necessarily followed by an end mark. A null pointer is no
/// text.
class TextView : public std::basic_string_view<ACHAR>
{
public:
    using Base = std::basic_string_view<ACHAR>;
    constexpr TextView() = default;
    constexpr TextView(Base text) : Base(text) {}
    constexpr TextView(const ACHAR* text)
        : Base(text == nullptr ? Base() : Base(text, unitsOf(text)))
    {
    }
    constexpr TextView(const ACHAR* text, std::size_t units) : Base(text, units) {}
    inline TextView(const CKexString& text); // in kex/string.h
};

/// The first and the second unit of a character beyond U+FFFF; a lone one is a unit like any other.
constexpr bool isHighSurrogate(ACHAR unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
constexpr bool isLowSurrogate(ACHAR unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

/// The capital of a unit, the unit itself when it has none. Covers Latin-1, Latin Extended-A and
/// -B, Greek, Cyrillic, Armenian, Latin Extended Additional, Roman numerals, circled and full-width
/// letters. One unit stays one unit: U+00DF and the like have no capital here, nor has U+00B5, so
/// that "µm" survives a change of case.
KEX_BASE_API ACHAR upperUnit(ACHAR unit);
/// The small letter of a unit; lowerUnit(upperUnit(u)) == u for every small letter but the final
/// sigma, which shares its capital with sigma.
KEX_BASE_API ACHAR lowerUnit(ACHAR unit);

/// Below 0, 0 or above 0, by the capitals' code units. This is the order of keys in the kernel.
KEX_BASE_API int compareNoCase(TextView a, TextView b);
inline bool equalNoCase(TextView a, TextView b)
{
    return a.size() == b.size() && compareNoCase(a, b) == 0;
}

/// UTF-8 of a text. A lone surrogate gets the three bytes that its value would have, so that every
/// text comes back from its bytes.
KEX_BASE_API std::string toUtf8(TextView text);

} // namespace KEX
