// SPDX-License-Identifier: LicenseRef-ORVALD
// The code pages of drawings before UTF-8, of one byte a character and of one or two.
#pragma once

#include <string_view>

namespace orvald::text {

class CodePage
{
public:
    /// The page of that name in any case ("ANSI_1252", "dos850", "iso8859-2", "big5"); null when
    /// there is none.
    static const CodePage* named(std::string_view name);
    static const CodePage& ansi1252();
    /// The page of the old form \M+nXXXX: 1 Japanese, 2 traditional Chinese, 3 Korean, 5 simplified
    /// Chinese; null for others.
    static const CodePage* ofMultiByte(int number);

    /// The character at `at`, which is within the text, and moves behind it. A byte below 0x80 is
    /// itself; U+FFFD, for one byte, where there is no character.
    char32_t decode(std::string_view text, std::size_t& at) const;

    /// Of the tables: characters of the bytes from 0x80 on, or rows of characters of two bytes.
    constexpr CodePage(std::u16string_view upperHalf, const std::u16string_view* rows)
        : upperHalf_(upperHalf), rows_(rows)
    {
    }

private:
    std::u16string_view upperHalf_;
    const std::u16string_view* rows_;
};

} // namespace orvald::text
