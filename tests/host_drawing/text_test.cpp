// SPDX-License-Identifier: LicenseRef-ORVALD
// File form of text, and names.
#include "drawing/text.h"

#include <gtest/gtest.h>

#include <random>

using namespace orvald::drawing;

TEST(FileForm, EveryUtf16TextReadsBackAsItWas)
{
    // Units that meet all rules: controls, carets, escapes, halves of pairs, plain text.
    constexpr char16_t units[] = {u'a', u'^', u' ', u'\\',  u'U',   u'M',  u'u',
                                  u'+', u'0', u'D', u'8',   u'\n',  u'\t', 0,
                                  0x1F, 0x7F, 0xE4, 0x20AC, 0xD83D, 0xDE00};
    std::mt19937 random(1);
    for (int round = 0; round < 20000; ++round) {
        std::u16string text;
        for (std::size_t n = random() % 12; n != 0; --n) text += units[random() % std::size(units)];
        const std::string form = fileForm(text);
        ASSERT_EQ(text16(form), text) << form;
        ASSERT_EQ(utf16(text8(form)), text) << form;
        for (const char c : form) ASSERT_GE(static_cast<unsigned char>(c), 0x20u) << form;
    }
}

TEST(FileForm, SpecialCharactersAreWrittenAsFilesHaveThem)
{
    EXPECT_EQ(fileForm(u"a\nb^c\t"), "a^Jb^ c^I");
    EXPECT_EQ(fileForm(std::u16string{u'x', 0xD800}), "x\\U+D800");
    EXPECT_EQ(fileForm(u"\\U+0041"), "\\U+005CU+0041"); // text that only looks like an escape
    EXPECT_EQ(text8("90\\U+00B0"), "90°");
    EXPECT_EQ(text16("\\U+D83D\\U+DE00"), u"\U0001F600"); // two forms of one character
    EXPECT_EQ(text8("100^"), "100^");                     // a caret without a letter stays
}

TEST(FileForm, BytesThatAreNoUtf8AreReplacedOneByOne)
{
    EXPECT_EQ(fileForm(std::string_view("a\xFF\xC3")), "a\uFFFD\uFFFD");
    EXPECT_EQ(fileForm(std::string_view("\xED\xA0\x80")), "\\U+D800");
}

TEST(Names, CompareWithoutRegardToCaseAndOrderAsTheirKeys)
{
    EXPECT_TRUE(sameName("Wände_Ost", "WÄNDE_OST"));
    EXPECT_TRUE(sameName("a\\U+00E4", "AÄ"));
    EXPECT_FALSE(sameName("Ä", "A"));
    constexpr std::string_view names[] = {"",  "*A1", "0",    "A",  "b",       "_x",
                                          "ä", "Öl",  "a^Jb", "zz", "\\U+0041"};
    for (const auto a : names)
        for (const auto b : names)
            EXPECT_EQ(compareNames(a, b), nameKey(a) <=> nameKey(b)) << a << " " << b;
}

TEST(Names, SymbolNamesRefuseWhatFilesCannotHold)
{
    EXPECT_TRUE(isSymbolName("Außenwand 1-2"));
    EXPECT_TRUE(isSymbolName("*U1", true));
    for (const std::string_view bad : {"", "*U1", "a*", "a|b", "a,b", "a^Jb", "a=b", "a`"})
        EXPECT_FALSE(isSymbolName(bad)) << bad;
    EXPECT_TRUE(isSymbolName(std::string(255, 'x')));
    EXPECT_FALSE(isSymbolName(std::string(256, 'x')));
}
