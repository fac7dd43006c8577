// SPDX-License-Identifier: LicenseRef-ORVALD
// The reader on damaged text: every beginning of a program is a value or a clear error, and what
// was read prints as text that reads back equal.
#include "bare_world.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using namespace orvald::lisp;

constexpr char kProgram[] = R"((defun c:test (a / b) ; comment
  (setq b '(1 . "x\"\\\101 ä€😀") c -2.5e-3)
  ;| block
     comment |;
  (list 'a "two
lines" (quote (nil t)) 42. .5 (8 . nil)))
(princ))";

TEST(Reader, EveryCutOfAProgramIsAValueOrAClearError)
{
    const std::string program = kProgram;
    for (std::size_t length = 0; length <= program.size(); ++length) {
        BareHost host;
        World world(host);
        const Outcome outcome = world.evalText(toUtf16(program.substr(0, length)), "cut.lsp");
        if (outcome.ok()) continue;
        const std::u16string& message = outcome.error->message;
        EXPECT_TRUE(message == u"malformed list on input" ||
                    message == u"malformed string on input")
            << length << ": " << toUtf8(message);
        ASSERT_FALSE(outcome.error->calls.empty());
        EXPECT_EQ(outcome.error->calls.front().file, "cut.lsp");
        EXPECT_GE(outcome.error->calls.front().line, 1);
    }
}

TEST(Reader, WhatIsReadPrintsAsTextThatReadsBackEqual)
{
    BareHost host;
    World world(host);
    std::mt19937 random(20150903);
    const std::u16string alphabet = u"()().'\";|\\ab12-+e/ \n\täU\u0001";
    int values = 0;
    for (int round = 0; round < 20000; ++round) {
        std::u16string text = u"(";
        for (std::size_t i = random() % 24; i > 0; --i) {
            text.push_back(alphabet[random() % alphabet.size()]);
        }
        text.push_back(u')');
        Value value;
        try {
            value = world.read(text);
        } catch (const LispError&) {
            continue;
        }
        ++values;
        const std::u16string printed = world.prin1(value);
        EXPECT_EQ(printed, world.prin1(world.read(printed))) << toUtf8(text);
    }
    EXPECT_GT(values, 1000);
}

TEST(Reader, FilesAreUtf8OrAnsi)
{
    BareHost host;
    World world(host);
    const std::string path = testing::TempDir() + "encoding.lsp";
    const auto valueOf = [&](const std::string& octets) {
        std::FILE* file = std::fopen(path.c_str(), "wb");
        std::fwrite(octets.data(), 1, octets.size(), file);
        std::fclose(file);
        const Outcome outcome = world.loadFile(path);
        return outcome.ok() ? toUtf8(world.princ(outcome.value)) : "error";
    };
    EXPECT_EQ(valueOf("\"Größe €\""), "Größe €");
    EXPECT_EQ(valueOf("\xEF\xBB\xBF\"Größe\""), "Größe");
    EXPECT_EQ(valueOf("\"Gr\xF6\xDF"
                      "e \x80\""),
              "Größe €");
    EXPECT_EQ(valueOf("(list 1)\r\n; end\r\n\x1A"), "(1)");
    std::remove(path.c_str());
}

TEST(Reader, LoneSurrogatesAndBrokenUtf8BecomeTheReplacementCharacter)
{
    EXPECT_EQ(toUtf8(std::u16string(1, char16_t{0xD800})), "\xEF\xBF\xBD");
    EXPECT_EQ(toUtf16("a\xC0\xAF"
                      "b\xED\xA0\x80"),
              (std::u16string{u'a', 0xFFFD, 0xFFFD, u'b', 0xFFFD, 0xFFFD, 0xFFFD}));
    for (char32_t code = 0; code < 0x110000; code += 61) {
        if (code >= 0xD800 && code < 0xE000) continue;
        std::u16string text;
        if (code < 0x10000) {
            text.push_back(static_cast<char16_t>(code));
        } else {
            text.push_back(static_cast<char16_t>(0xD7C0 + (code >> 10)));
            text.push_back(static_cast<char16_t>(0xDC00 + (code & 0x3FF)));
        }
        ASSERT_EQ(toUtf16(toUtf8(text)), text);
    }
}

} // namespace
