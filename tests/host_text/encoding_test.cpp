// SPDX-License-Identifier: LicenseRef-ORVALD
// Encodings and letters.
#include "text/encoding.h"
#include "text/letters.h"

#include <gtest/gtest.h>

#include <random>

using namespace orvald::text;

TEST(Encoding, EveryUtf16TextComesBackAndEveryCodePointIsWalkedOnce)
{
    constexpr char16_t units[] = {u'a',   0,      0x7F,   0x80,   0x7FF,  0x800, 0xD7FF,
                                  0xD800, 0xDBFF, 0xDC00, 0xDFFF, 0xE000, 0xFFFF};
    std::mt19937 random(1);
    for (int round = 0; round < 20000; ++round) {
        std::u16string text;
        for (std::size_t n = random() % 10; n != 0; --n) text += units[random() % std::size(units)];
        const std::string bytes = utf8(text);
        ASSERT_EQ(utf16(bytes), text);
        std::u16string again;
        for (const char32_t c : codePoints(text)) appendUtf16(again, c);
        ASSERT_EQ(again, text);
        // Without lone surrogates it is valid UTF-8, and the same where there were none.
        const std::string clean = utf8(text, Lone::replaced);
        ASSERT_TRUE(isUtf8(clean));
        ASSERT_EQ(isUtf8(bytes), clean == bytes);
    }
}

TEST(Encoding, TheAsciiBeginningEndsAtTheFirstOtherCharacterWhereverItStands)
{
    for (std::size_t length = 0; length < 40; ++length) {
        const std::u16string plain(length, u'x');
        ASSERT_EQ(asciiLength(plain), length);
        ASSERT_EQ(asciiLength(utf8(plain)), length);
        for (std::size_t at = 0; at < length; ++at) {
            for (const char16_t unit : {u'\x80', u'\xFF', u'\x100', u'\xFFFF'}) {
                std::u16string text = plain;
                text[at] = unit;
                ASSERT_EQ(asciiLength(text), at);
                ASSERT_EQ(asciiLength(utf8(text)), at);
                ASSERT_EQ(utf16(utf8(text)), text);
            }
        }
    }
}

TEST(Encoding, BytesThatAreNoUtf8AreReplacedOneByOne)
{
    struct Case
    {
        std::string_view bytes;
        std::u16string_view text;
    };
    constexpr Case cases[] = {{"a\xFFz", u"a\xFFFDz"},
                              {"\xC3", u"\xFFFD"},
                              {"\xC0\xAF", u"\xFFFD\xFFFD"}, // longer than need be
                              {"\xE2\x82", u"\xFFFD\xFFFD"},
                              {"\xF4\x90\x80\x80", u"\xFFFD\xFFFD\xFFFD\xFFFD"},
                              {"\xF0\x9F\x98\x80", u"\xD83D\xDE00"}};
    for (const Case& c : cases) EXPECT_EQ(utf16(c.bytes), c.text);
    EXPECT_EQ(utf16("\xED\xA0\x80", Lone::replaced), u"\xFFFD\xFFFD\xFFFD");
}

TEST(Letters, CaseGoesThereAndBack)
{
    int pairs = 0;
    for (int c = 0; c < 0x10000; ++c) {
        const auto unit = static_cast<char16_t>(c);
        const char16_t upper = upperUnit(unit), lower = lowerUnit(unit);
        ASSERT_EQ(upperUnit(upper), upper) << c;
        ASSERT_EQ(lowerUnit(lower), lower) << c;
        if (lower == unit) continue;
        ++pairs;
        ASSERT_EQ(upperUnit(lower), unit) << c;
        ASSERT_TRUE(isLetter(unit) && isLetter(lower)) << c;
    }
    EXPECT_GT(pairs, 400);
    EXPECT_EQ(upperText(u"straße äöüÿ éàœ žščř ωά я"), u"STRAßE ÄÖÜŸ ÉÀŒ ŽŠČŘ ΩΆ Я");
}
