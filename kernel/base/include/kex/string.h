// SPDX-License-Identifier: LicenseRef-ORVALD
// CKexString, the kernel's text: UTF-16, a value, short texts without an allocation, always
// followed by an end mark. Positions count from 0, in code units; a position outside the text is
// harmless.
#pragma once

#include "kex/text.h"

#include <compare>
#include <optional>

class KEX_BASE_API CKexString
{
public:
    /// The most units that replacing makes and that the callers of lfill() and rfill() may ask for:
    /// a slip in LISP must not take the machine's memory.
    static constexpr int kMostUnits = 1 << 26;

    CKexString() = default;
    /// A null pointer gives the empty text.
    CKexString(const ACHAR* text) : text_(KEX::TextView(text)) {}
    CKexString(KEX::TextView text) : text_(text) {}
    /// `count` times the same unit; none when `count` is negative.
    CKexString(ACHAR unit, int count);

    /// Each byte that is no part of a well-formed sequence becomes U+FFFD. A byte order mark is
    /// kept.
    static CKexString fromUtf8(std::string_view bytes);
    /// Nothing when the bytes are not what toUtf8 gives for some text.
    static std::optional<CKexString> fromUtf8Strict(std::string_view bytes);
    std::string toUtf8() const { return KEX::toUtf8(*this); }

    /// Units up to, not counting, the end mark.
    int len() const { return static_cast<int>(text_.size()); }
    bool isNull() const { return text_.empty(); }
    const ACHAR* c_str() const { return text_.c_str(); }
    KEX::TextView view() const { return KEX::TextView(text_.data(), text_.size()); }
    /// 0 outside the text.
    ACHAR operator[](int position) const
    {
        return isInside(position) ? text_[index(position)] : ACHAR(0);
    }
    /// False, and no change, outside the text.
    bool setAt(int position, ACHAR unit);

    int compare(KEX::TextView other) const { return text_.compare(other); }
    int compareNoCase(KEX::TextView other) const { return KEX::compareNoCase(*this, other); }
    friend bool operator==(const CKexString& a, const CKexString& b) { return a.text_ == b.text_; }
    friend bool operator==(const CKexString& a, const ACHAR* b)
    {
        return a.view() == KEX::TextView(b);
    }
    friend std::strong_ordering operator<=>(const CKexString& a, const CKexString& b)
    {
        return a.text_.compare(b.text_) <=> 0;
    }

    /// Position of the first occurrence at or after `from`, -1 when there is none; the empty text
    /// occurs nowhere.
    int find(KEX::TextView part, int from = 0) const;
    int find(ACHAR unit, int from = 0) const;
    int rfind(ACHAR unit) const;
    /// Position of the first unit that stands in `set`, -1 when none does.
    int findOneOf(KEX::TextView set) const;
    /// Length of the leading run of units that all stand in `set`.
    int span(KEX::TextView set) const;
    bool startsWith(KEX::TextView part) const { return text_.starts_with(part); }
    bool endsWith(KEX::TextView part) const { return text_.ends_with(part); }

    // Changes in place; each gives the text itself.
    CKexString& makeUpper();
    CKexString& makeLower();
    /// Drops units 1 to 32 (blanks, tabs, line ends) at both ends; U+00A0 stays.
    CKexString& trim();
    /// The units in reverse order; the units of a surrogate pair keep theirs.
    CKexString& revert();
    /// As KEX::replaced.
    CKexString& replace(KEX::TextView old, KEX::TextView fresh);
    /// Padded at the left, at the right end to n units; a longer text is not cut.
    CKexString& lfill(int n, ACHAR fill = KT(' '));
    CKexString& rfill(int n, ACHAR fill = KT(' '));
    /// & < > " ' as entities; with `all` every unit above 126 as well, as a decimal reference, a
    /// surrogate pair as one.
    CKexString& escapeHtml(bool all = false);
    /// Entities of escapeHtml, &apos; &nbsp; &deg; &euro;, the German letters, decimal and
    /// hexadecimal references; what is none of these stays as it is.
    CKexString& unEscapeHtml();
    CKexString& operator+=(KEX::TextView other);
    CKexString& operator+=(ACHAR unit);
    void clear() { text_.clear(); }
    void reserve(int units);

    /// The units in reverse order, as a new text.
    CKexString reverse() const { return CKexString(*this).revert(); }
    /// Up to `count` units from `start` on; count -1: up to the end. A start before the text counts
    /// as 0, behind it gives the empty text.
    CKexString mid(int start, int count = -1) const;

private:
    bool isInside(int position) const { return position >= 0 && index(position) < text_.size(); }
    static std::size_t index(int position) { return static_cast<std::size_t>(position); }

    std::basic_string<ACHAR> text_;
};

inline CKexString operator+(CKexString a, KEX::TextView b) { return std::move(a += b); }
inline CKexString operator+(CKexString a, ACHAR b) { return std::move(a += b); }
inline CKexString operator+(const ACHAR* a, const CKexString& b) { return CKexString(a) += b; }

inline KEX::TextView::TextView(const CKexString& text) : TextView(text.view()) {}
