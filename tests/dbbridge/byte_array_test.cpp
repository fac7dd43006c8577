// SPDX-License-Identifier: LicenseRef-ORVALD
// Base64, byte arrays and files in data items.
#include "dbbridge/byte_array.h"
#include "files.h"
#include "kex/base64.h"
#include "kex_values.h"

#include "kexdata/data_dir.h"

namespace {

using kextest::Random;
using Bytes = CKexArrayTempl<std::uint8_t>;

std::string randomBytes(Random& random, int count)
{
    std::string bytes;
    for (int i = 0; i < count; ++i) bytes += static_cast<char>(random.below(256));
    return bytes;
}

Bytes arrayOf(std::string_view bytes)
{
    Bytes array;
    for (const char byte : bytes) array.append(static_cast<std::uint8_t>(byte));
    return array;
}

TEST(Base64, HasTheTextsOfTheStandard)
{
    const std::pair<const char*, const ACHAR*> cases[] = {
        {"", KT("")},
        {"f", KT("Zg==")},
        {"fo", KT("Zm8=")},
        {"foo", KT("Zm9v")},
        {"foob", KT("Zm9vYg==")},
        {"foobar", KT("Zm9vYmFy")},
        {"\xFB\xFF", KT("+/8=")},
    };
    for (const auto& [bytes, text] : cases) {
        EXPECT_EQ(KEX::base64Encode(bytes), text);
        std::string decoded = "before ";
        EXPECT_TRUE(KEX::base64Decode(text, decoded));
        EXPECT_EQ(decoded, std::string("before ") + bytes);
    }
}

TEST(Base64, ComesBackAtEveryLength)
{
    Random random(1);
    for (int length = 0; length < 2000; length += length < 20 ? 1 : 97) {
        const std::string bytes = randomBytes(random, length);
        std::string decoded;
        ASSERT_TRUE(KEX::base64Decode(KEX::base64Encode(bytes), decoded));
        EXPECT_EQ(decoded, bytes);
    }
}

TEST(Base64, TakesNothingButItsOwnTexts)
{
    for (const ACHAR* text :
         {KT("Z"), KT("Zg"), KT("Zg="), KT("Zg== "), KT(" Zg="), KT("Zm9v\n"), KT("Zh=="),
          KT("Zm9="), KT("===="), KT("Z==="), KT("Zg==Zg=="), KT("Zm-v"), KT("Zm_v"), KT("Zm=v"),
          KT("Zm\u0139v"), KT("Zm9vZ\u0000m8")}) {
        std::string decoded = "kept";
        EXPECT_FALSE(KEX::base64Decode(text, decoded)) << KEX::toUtf8(text);
        EXPECT_EQ(decoded, "kept");
    }
    // A wrong unit anywhere in a long text.
    Random random(2);
    const CKexString text = KEX::base64Encode(randomBytes(random, 3000));
    for (int at = 0; at < text.len(); at += 13) {
        CKexString wrong = text;
        wrong.setAt(at, at % 2 == 0 ? KT('=') : static_cast<ACHAR>(text[at] + 0x100));
        std::string decoded;
        EXPECT_FALSE(KEX::base64Decode(wrong, decoded)) << at;
    }
}

TEST(ByteArray, IsCutIntoChunksOf512)
{
    struct Case
    {
        int bytes, chunks, unitsOfLast;
    };
    Random random(3);
    for (const Case& one : {Case{0, 0, 0}, Case{1, 1, 4}, Case{512, 1, 684}, Case{513, 2, 4},
                            Case{1024, 2, 684}, Case{1500, 3, 636}}) {
        SCOPED_TRACE(one.bytes);
        const Bytes bytes = arrayOf(randomBytes(random, one.bytes));
        CKexDataItem item(5); // what it was before does not matter
        ASSERT_TRUE(kexBinToDataItem(&item, bytes));
        int encoding = 0;
        EXPECT_TRUE(item.get(encoding, KT("ENCODING")));
        EXPECT_EQ(encoding, 1);
        EXPECT_EQ(item.getDir()->length(), 1 + one.chunks);
        if (one.chunks > 0) {
            EXPECT_EQ(item.find(one.chunks - 1)->text().size(), one.unitsOfLast);
        }
        Bytes back = {1, 2, 3};
        EXPECT_TRUE(kexBinFromDataItem(&item, back));
        EXPECT_EQ(back, bytes);
    }
}

CKexDataItem withChunks(std::optional<int> encoding, std::initializer_list<const ACHAR*> chunks)
{
    CKexDataItem item = CKexDataItem::directory();
    if (encoding.has_value()) item.put(KT("ENCODING"), CKexDataItem(*encoding));
    int index = 0;
    for (const ACHAR* chunk : chunks) {
        if (chunk != nullptr) item.put(index, CKexDataItem(chunk));
        ++index;
    }
    return item;
}

TEST(ByteArray, IsReadInEveryEncodingUpToTheFirstBadOrMissingChunk)
{
    struct Case
    {
        const char* name;
        CKexDataItem item;
        bool good;
        std::string_view bytes;
    };
    const Case cases[] = {
        {"hexadecimal without encoding", withChunks({}, {KT("4a6B"), KT("FF")}), true, "Jk\xFF"},
        {"pairs that are not digits",
         withChunks(0, {KT("4G"), KT("zz4")}),
         true,
         {"\x04\x00\x04", 3}},
        {"an empty chunk", withChunks(0, {KT(""), KT("41")}), true, "A"},
        {"base64", withChunks(1, {KT("Zm9v"), KT("YmFy")}), true, "foobar"},
        {"packed", withChunks(2, {KT("\u6D5A\u7639")}), true, "foo"}, // "Zm" "9v", low byte first
        {"a gap", withChunks(1, {KT("Zm9v"), KT("YmFy"), nullptr, KT("Zm9v")}), true, "foobar"},
        {"a bad chunk", withChunks(1, {KT("Zm9v"), KT("Zm9"), KT("Zm9v")}), false, "foo"},
        {"bad packed", withChunks(2, {KT("\u6D5A")}), false, ""},
        {"no such encoding", withChunks(3, {KT("Zm9v")}), false, ""},
        {"no such encoding, no chunk", withChunks(3, {}), true, ""},
        {"a chunk that is no text",
         [] {
             CKexDataItem item = withChunks(1, {KT("Zm9v")});
             item.put(1, CKexDataItem(7));
             return item;
         }(),
         true, "foo"},
        {"no directory", CKexDataItem(KT("text")), true, ""},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        Bytes bytes = {9};
        EXPECT_EQ(kexBinFromDataItem(&one.item, bytes), one.good);
        EXPECT_EQ(bytes, arrayOf(one.bytes));
    }
    Bytes bytes = {9};
    EXPECT_FALSE(kexBinFromDataItem(nullptr, bytes));
    EXPECT_FALSE(kexBinToDataItem(nullptr, bytes));
    EXPECT_FALSE(kexFileFromDataItem(nullptr, KT("x")));
}

TEST(ByteArray, FilesGoInAndComeOutWhole)
{
    const kextest::TempFolder folder;
    Random random(4);
    const std::string content = randomBytes(random, 2000);
    kextest::writeFile(folder / "in", content);
    const CKexString in = CKexString::fromUtf8(folder / "in");
    const CKexString out = CKexString::fromUtf8(folder / "out");
    CKexDataItem item;
    ASSERT_TRUE(kexFileToDataItem(&item, in.c_str()));
    CKexDataItem expected;
    kexBinToDataItem(&expected, arrayOf(content));
    EXPECT_EQ(item, expected);
    kextest::writeFile(folder / "out", "an old file");
    ASSERT_TRUE(kexFileFromDataItem(&item, out.c_str()));
    EXPECT_EQ(kextest::readFile(folder / "out"), content);

    // A shorter file leaves the chunks of the longer one behind, and other children too.
    item.put(KT("NAME"), CKexDataItem(true));
    kextest::writeFile(folder / "in", content.substr(0, 600));
    ASSERT_TRUE(kexFileToDataItem(&item, in.c_str()));
    EXPECT_EQ(item.getDir()->length(), 1 + 4 + 1);
    Bytes bytes;
    EXPECT_TRUE(kexBinFromDataItem(&item, bytes));
    EXPECT_EQ(bytes, arrayOf(content.substr(0, 600) + content.substr(1024)));

    // What fails changes nothing.
    const CKexDataItem before = item;
    EXPECT_FALSE(kexFileToDataItem(&item, (in + KT(".none")).c_str()));
    EXPECT_EQ(item, before);
    EXPECT_FALSE(kexFileFromDataItem(&item, CKexString::fromUtf8(folder / "no/out").c_str()));
    item.put(1, CKexDataItem(KT("damaged")));
    EXPECT_FALSE(kexFileFromDataItem(&item, out.c_str()));
    EXPECT_EQ(kextest::readFile(folder / "out"), content);
}

} // namespace
