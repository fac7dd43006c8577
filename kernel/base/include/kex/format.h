// SPDX-License-Identifier: LicenseRef-ORVALD
// Text from a pattern and values: format(KT("{}({})x"), n, m). Never depends on a locale, never
// fails: a field without a value is left out, a field that cannot be read stands as it is.
#pragma once

#include "kex/string.h"

#include <concepts>

namespace KEX {

/// One value of a pattern; borrows text.
class FormatArg
{
public:
    enum class Kind
    {
        integer,
        whole,
        real,
        text,
        unit
    };

    template <std::signed_integral T>
    FormatArg(T value) : kind(Kind::integer), integer(value)
    {
    }
    template <std::unsigned_integral T>
    FormatArg(T value) : kind(Kind::whole), whole(value)
    {
    }
    FormatArg(double value) : kind(Kind::real), real(value) {}
    FormatArg(ACHAR value) : kind(Kind::unit), unit(value) {}
    FormatArg(bool) = delete;
    FormatArg(TextView value) : kind(Kind::text), text(value) {}
    FormatArg(const ACHAR* value) : kind(Kind::text), text(value) {}
    FormatArg(const CKexString& value) : kind(Kind::text), text(value) {}

    Kind kind;
    union {
        long long integer;
        unsigned long long whole;
        double real;
        ACHAR unit;
    };
    TextView text;
};

KEX_BASE_API CKexString formatArgs(TextView pattern, const FormatArg* values, std::size_t count);

/// A field is `{[:[<|>][0][width][.digits][x|X|f|e]]}` and takes the next value; `{{` and `}}` are
/// braces. Numbers stand right in their width, texts left, `<` and `>` say otherwise; 0 fills
/// numbers with zeros after the sign. `x` `X`: hexadecimal, a negative number as 32 bits when it
/// fits them. A real without digits is the shortest text that reads back to the same number; `.3`
/// and `.3f` are three decimals, `.3e` three decimals and an exponent.
template <class... Values>
CKexString format(TextView pattern, const Values&... values)
{
    if constexpr (sizeof...(Values) == 0) {
        return formatArgs(pattern, nullptr, 0);
    } else {
        const FormatArg list[] = {FormatArg(values)...};
        return formatArgs(pattern, list, sizeof...(Values));
    }
}

} // namespace KEX
