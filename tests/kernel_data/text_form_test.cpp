// SPDX-License-Identifier: LicenseRef-ORVALD
// Data files as text: the same bytes come back from every file, and every wrong text is told.
#include "kexdata/bin_file.h"
#include "kexdata/text_form.h"
#include "random_tree.h"

#include <bit>

namespace {

using kextest::Random;

std::string textOf(std::string_view bytes)
{
    std::string text, problem;
    EXPECT_TRUE(KEX::dataToText(bytes, text, problem)) << problem;
    EXPECT_EQ(problem, "");
    return text;
}

std::string bytesOf(std::string_view text)
{
    std::string bytes, problem;
    EXPECT_TRUE(KEX::dataFromText(text, bytes, problem)) << problem << "\n" << text;
    return bytes;
}

std::string problemOf(std::string_view text)
{
    std::string bytes = "kept", problem;
    EXPECT_FALSE(KEX::dataFromText(text, bytes, problem)) << text;
    EXPECT_EQ(bytes, "kept");
    return problem;
}

CKexDataItem sample()
{
    CKexDataItem item;
    item.put(KT("Name"),
             CKexDataItem(KT("3 \" \\ mm\n\t\u0001 Gr\u00F6\u00DFe \U0001D11E \xD834")));
    item.put(KT("PARM\\TYPE"), CKexDataItem(-2147483647 - 1));
    item.put(KT("PARM\\EMPTY"), CKexDataItem::directory());
    item.put(7, CKexDataItem(true));
    item.put(KT("P"), CKexDataItem(CKexPoint3d(1.0, -0.0, 1e300)));
    item.put(KT("Q"), CKexDataItem::point2d(0.1, 5e-324));
    item.put(KT("NIL"), CKexDataItem());
    item.put(KT("INF"), CKexDataItem(-HUGE_VAL));
    item.put(KT("NAN"), CKexDataItem(std::bit_cast<double>(0x7FF8000000000123ull)));
    CKexDataItem::Values inner;
    inner.emplace_back();
    inner.emplace_back(2);
    CKexDataItem::Values values;
    values.emplace_back(1);
    values.push_back(CKexDataItem::list(std::move(inner), true));
    values.push_back(CKexDataItem(CKexPoint3d(1.0, 2.0, 3.0)));
    item.put(KT("L"), CKexDataItem::list(std::move(values)));
    return item;
}

TEST(TextForm, IsOneForPeople)
{
    EXPECT_EQ(textOf(KEX::binEncode(sample())), R"({
  "Name" "3 \" \\ mm\n\t\u0001 Größe 𝄞 \uD834"
  "PARM" {
    "TYPE" -2147483648
    "EMPTY" {}
  }
  7 T
  "P" (1.0 -0.0 1e+300)
  "Q" (0.1 5e-324)
  "NIL" nil
  "INF" #FFF0000000000000
  "NAN" #7FF8000000000123
  "L" (1 (nil . 2) (1.0 2.0 3.0))
}
)");
}

TEST(TextForm, GivesTheSameBytesBack)
{
    Random random(5);
    for (int i = 0; i < 300; ++i) {
        const std::string bytes = KEX::binEncode(kextest::randomTree(random, kextest::Values::all));
        ASSERT_EQ(bytesOf(textOf(bytes)), bytes) << textOf(bytes);
    }
    EXPECT_EQ(bytesOf(textOf(KEX::binEncode(sample()))), KEX::binEncode(sample()));
    EXPECT_EQ(bytesOf(textOf(KEX::binEncode(CKexDataItem()))), KEX::binEncode(CKexDataItem()));
    // A handle stands for itself, though no drawing is open: tag 10 and its text.
    const std::string handle = bytesOf("{ \"E\" #\"2F\" }");
    EXPECT_NE(handle.find(std::string("\x0A\x02\0\0\0", 5) + "2F"), std::string::npos);
    EXPECT_EQ(bytesOf(textOf(handle)), handle);
}

TEST(TextForm, IsTakenHoweverItIsLaidOut)
{
    const std::string text = "; of a friend\r\n{\"a\"(1 .(2))7{}\"\\u00E4\\uD834\\uDD1E\"+1}; end";
    EXPECT_EQ(problemOf(text), "line 2: a value is expected"); // +1
    std::string right = text;
    right.replace(right.find('+'), 1, "");
    EXPECT_EQ(textOf(bytesOf(right)), "{\n  \"a\" (1 2)\n  7 {}\n  \"ä𝄞\" 1\n}\n");
}

TEST(TextForm, DepthCostsNothing)
{
    constexpr int kDepth = 10000;
    std::string dirs, lists(kDepth, '(');
    for (int i = 0; i < kDepth; ++i) dirs += "{ 1 ";
    lists += '5' + std::string(kDepth, ')');
    dirs += lists + std::string(kDepth, '}');
    const std::string bytes = bytesOf(dirs);
    EXPECT_EQ(bytesOf(textOf(bytes)), bytes);
}

TEST(TextForm, SaysWhereATextIsWrong)
{
    const std::pair<const char*, const char*> cases[] = {
        {"", "line 1: a value is expected"},
        {"{\n\"a\" 1\n", "line 3: the text ends within a directory"},
        {"{ \"a\" }", "line 1: a value is expected"},
        {"{ \"a\" 1\n 2.5 1 }", "line 2: a key is a text or an integer"},
        {"{ \"a\" 1\n \"A\" 1 }", "line 2: the directory has this key already"},
        {"(1 2", "line 1: the text ends within a list"},
        {"(1 . 2 3)", "line 1: one value only stands behind a dot"},
        {"(1 . )", "line 1: no value behind the dot"},
        {"( . 1)", "line 1: a dot out of place"},
        {"(1 . 2 . 3)", "line 1: a dot out of place"},
        {"(1 { 2 3 })", "line 1: a value is expected"},
        {"1 2", "line 1: more follows behind the value"},
        {"}", "line 1: a value is expected"},
        {"2147483648", "line 1: the integer has more than 32 bits"},
        {"1e999", "line 1: no real is that large"},
        {"nan", "line 1: a value is expected"},
        {"12mm", "line 1: a value is expected"},
        {"\"a", "line 1: a text has no end"},
        {"\"a\\", "line 1: no such \\ in a text"},
        {"\"\\x\"", "line 1: no such \\ in a text"},
        {"\"\\u12\"", "line 1: a hexadecimal digit is expected"},
        {"\"\xFF\"", "line 1: the text is not UTF-8"},
        {"#12", "line 1: # is followed by a text or 16 digits"},
        {"#7FF800000000000G", "line 1: a hexadecimal digit is expected"},
    };
    for (const auto& [text, problem] : cases) EXPECT_EQ(problemOf(text), problem) << text;
    std::string bytes, problem;
    EXPECT_FALSE(KEX::dataFromText(std::string_view("1\0", 2), bytes, problem));
    // Cut anywhere it is wrong, and nothing worse.
    const std::string text = textOf(KEX::binEncode(sample()));
    for (std::size_t size = 0; size + 2 < text.size(); ++size) problemOf(text.substr(0, size));
}

TEST(TextForm, ADamagedFileIsToldAndReadAsFarAsItGoes)
{
    const std::string bytes = KEX::binEncode(sample());
    std::string text, problem;
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        EXPECT_FALSE(KEX::dataToText(bytes.substr(0, size), text, problem)) << size;
        EXPECT_EQ(problem, size < 12 ? "it is no data file" : "it is cut short");
        if (!text.empty()) bytesOf(text);
    }
    EXPECT_FALSE(KEX::dataToText(bytes + "x", text, problem));
    EXPECT_EQ(problem, "bytes follow behind its end");
    EXPECT_EQ(bytesOf(text), bytes);
    std::string flipped = bytes;
    flipped[bytes.find("Name")] = 'n';
    EXPECT_FALSE(KEX::dataToText(flipped, text, problem));
    EXPECT_EQ(problem, "its check is wrong");
    EXPECT_NE(text.find("\"name\""), std::string::npos);
    flipped = bytes;
    flipped[4] = 2;
    EXPECT_FALSE(KEX::dataToText(flipped, text, problem));
    EXPECT_EQ(problem, "it is of another version");
    EXPECT_EQ(text, "");
}

} // namespace
