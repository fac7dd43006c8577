// SPDX-License-Identifier: LicenseRef-ORVALD
// The binary form and the configuration store: every damage is noticed, nothing good is lost.
#include "files.h"
#include "kex_values.h"
#include "random_tree.h"
#include "test_host.h"

#include "kex/files.h"
#include "kexdata/bin_file.h"
#include "kexdata/configuration.h"
#include "kexos/files.h"

#include <chrono>
#include <sys/wait.h>

namespace {

namespace fs = std::filesystem;
using kextest::Random;
using kextest::TempFolder;

CKexDataItem sampleTree()
{
    CKexDataItem tree = CKexDataItem::directory();
    tree.put(KT("_RNDL"), CKexDataItem(0.0001));
    tree.put(KT("_COUNTRY"), CKexDataItem(KT("49")));
    tree.put(KT("FORMATS\\A4"), CKexDataItem(CKexPoint3d(210, 297)));
    tree.put(KT("FORMATS\\list"),
             CKexDataItem::list({CKexDataItem(1), CKexDataItem(KT("x")), CKexDataItem()}));
    tree.put(7, CKexDataItem(true));
    return tree;
}

TEST(BinaryForm, IsThatOfTheFormat)
{
    CKexDataItem tree = CKexDataItem::directory();
    tree.put(KT("a"), CKexDataItem(-2));
    tree.put(
        1, CKexDataItem::list({CKexDataItem(CKexString::fromUtf8("ä")), CKexDataItem(true)}, true));
    const unsigned char expected[] = {
        'K', 'E', 'X', 'B',  1,    0,   0, 0,    34,   0,    0,    0, // header
        9,   2,   0,   0,    0,                                       // directory of two
        'S', 1,   0,   0,    0,    'a', 2, 0xFE, 0xFF, 0xFF, 0xFF,    // "a" . -2
        'I', 1,   0,   0,    0,    8,   2, 0,    0,    0,    4,    2,
        0,   0,   0,   0xC3, 0xA4, 1}; // 1 . ("ä" . T)
    const std::string bytes = KEX::binEncode(tree);
    EXPECT_EQ(bytes.substr(0, bytes.size() - 4),
              std::string(reinterpret_cast<const char*>(expected), sizeof expected));
    EXPECT_EQ(KEX::crc32("123456789"), 0xCBF43926u); // the check value of the standard
    EXPECT_EQ(KEX::crc32(""), 0u);
    EXPECT_EQ(KEX::binDecode(bytes), tree);
}

TEST(BinaryForm, RandomTreesComeBack)
{
    Random random(21);
    for (int round = 0; round < 200; ++round) {
        const CKexDataItem tree = kextest::randomTree(random, kextest::Values::all);
        for (const bool sorted : {false, true}) {
            const std::string bytes = KEX::binEncode(tree, {sorted, nullptr});
            const std::optional<CKexDataItem> back = KEX::binDecode(bytes);
            ASSERT_TRUE(back.has_value());
            ASSERT_EQ(*back, tree);
            ASSERT_EQ(KEX::binEncode(*back), bytes); // order included
        }
    }
}

TEST(BinaryForm, EntitiesAreKeptByHandle)
{
    testHost().entities = {0xAB};
    const std::int32_t name[2] = {0xAB, 0};
    CKexDataItem tree = CKexDataItem::directory();
    tree.put(KT("e"), CKexDataItem(KEX::CAdsName(name)));
    const std::string bytes = KEX::binEncode(tree);
    EXPECT_EQ(KEX::binDecode(bytes), tree);
    testHost().entities.clear();
    EXPECT_TRUE(KEX::binDecode(bytes)->find(KT("e"))->isNil()); // another drawing
}

TEST(BinaryForm, EveryTruncationFlipAndAdditionIsNoticed)
{
    const std::string bytes = KEX::binEncode(sampleTree(), {true, nullptr});
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        ASSERT_FALSE(KEX::binDecode(std::string_view(bytes).substr(0, size)).has_value()) << size;
    }
    for (std::size_t bit = 0; bit < bytes.size() * 8; ++bit) {
        std::string flipped = bytes;
        flipped[bit / 8] = static_cast<char>(flipped[bit / 8] ^ (1 << bit % 8));
        ASSERT_FALSE(KEX::binDecode(flipped).has_value()) << "bit " << bit;
    }
    EXPECT_FALSE(KEX::binDecode(bytes + '\0').has_value());
}

/// A data file with this payload, its length and check right.
std::string fileOf(const std::string& payload)
{
    std::string bytes("KEXB\1\0\0\0", 8);
    const auto number = [&](std::uint32_t value) {
        for (int i = 0; i < 4; ++i) bytes += static_cast<char>(value >> (8 * i));
    };
    number(static_cast<std::uint32_t>(payload.size()));
    bytes += payload;
    number(KEX::crc32(payload));
    return bytes;
}

TEST(BinaryForm, WrongContentUnderARightCheckIsRefused)
{
    using namespace std::string_literals;
    EXPECT_TRUE(KEX::binDecode(fileOf("\0"s)).has_value());
    for (const std::string& payload :
         {""s, "\x0B"s, "\0\0"s, "\2\0\0\0"s, "\4\xFF\xFF\xFF\xFF"s, "\4\1\0\0\0\xFF"s,
          "\7\xFF\xFF\xFF\x7F"s, "\7\1\0\0\0"s, "\7\1\0\0\0\x09\0\0\0\0"s, // a directory in a list
          "\x08\1\0\0\0\0"s,                                               // only a tail
          "\x09\xFF\xFF\xFF\x7F"s, "\x09\1\0\0\0X\1\0\0\0\0"s, "\x09\1\0\0\0S\5\0\0\0a"s,
          "\x09\2\0\0\0S\1\0\0\0a\0S\1\0\0\0A\0"s}) { // a key twice
        EXPECT_FALSE(KEX::binDecode(fileOf(payload)).has_value())
            << testing::PrintToString(payload);
    }
    Random random(22);
    const std::string good = KEX::binEncode(sampleTree());
    const std::string payload = good.substr(12, good.size() - 16);
    const int size = static_cast<int>(payload.size());
    for (int round = 0; round < 20000; ++round) {
        std::string damaged = payload;
        for (int i = random.below(4); i >= 0; --i) {
            damaged[static_cast<std::size_t>(random.below(size))] =
                static_cast<char>(random.below(256));
        }
        KEX::binDecode(fileOf(damaged)); // must end, and leave nothing behind
    }
}

TEST(BinaryForm, NestsToAnyDepth)
{
    constexpr int kDepth = 200000;
    CKexDataItem tree;
    CKexDataItem* at = &tree;
    for (int i = 0; i < kDepth; ++i) at = &at->mkDir().makeChild(i);
    EXPECT_EQ(KEX::binDecode(KEX::binEncode(tree)), tree);
    std::string lists;
    for (int i = 0; i < kDepth; ++i) lists += std::string("\7\2\0\0\0\1", 6);
    EXPECT_TRUE(KEX::binDecode(fileOf(lists + '\1')).has_value());
}

/// The store of a test: its own file, and an empty tree before and after.
class Configuration : public testing::Test
{
protected:
    Configuration() : file(CKexString::fromUtf8(folder / "Kex_Main.cfg"))
    {
        testHost().alerts.clear();
        KEX::cfg_load(file);
    }
    ~Configuration() override { KEX::cfg_root().clear(); }
    std::string bytes(const char* name) const { return kextest::readFile(folder / name); }

    TempFolder folder;
    CKexString file;
};

TEST_F(Configuration, IsSavedSortedAndWithoutRunTimeKeys)
{
    KEX::cfg_set(KT("zeta\\b"), CKexDataItem(2));
    KEX::cfg_set(KT("zeta\\A"), CKexDataItem(1));
    EXPECT_TRUE(KEX::cfg_modified());
    KEX::cfg_modifiedSet(false);
    for (const ACHAR* key :
         {KT("*CVPORT*"), KT(".x\\y"), KT("CurVer"), KT("__*KEX_MAT*"), KT("_curver")}) {
        ASSERT_TRUE(KEX::cfg_set(key, CKexDataItem(3)));
        EXPECT_FALSE(KEX::cfg_modified()) << KEX::toUtf8(key);
    }
    KEX::cfg_set(KT("alpha\\*run"), CKexDataItem(3));
    KEX::cfg_set(KT("alpha\\kept"), CKexDataItem(4));
    KEX::cfg_set(KT("x*"), CKexDataItem(5)); // only the beginning counts
    ASSERT_TRUE(KEX::cfg_save(file));
    EXPECT_FALSE(KEX::cfg_modified());
    EXPECT_EQ(KEX::cfg_get(KT("*CVPORT*"))->kind(), CKexDataItem::Kind::integer); // still there
    ASSERT_TRUE(KEX::cfg_saveCopy(file + KT(".copy")));
    EXPECT_EQ(bytes("Kex_Main.cfg.copy"), bytes("Kex_Main.cfg"));

    ASSERT_EQ(KEX::cfg_load(file), KEX::CfgLoad::loaded);
    std::string keys;
    for (const CKexDataKey& key : KEX::cfg_root().keys()) keys += key[0].text().toUtf8() + " ";
    EXPECT_EQ(keys, "alpha x* zeta ");
    EXPECT_EQ(KEX::cfg_get(KT("alpha"))->getDir()->length(), 1);
    EXPECT_TRUE(testHost().alerts.empty());
}

TEST_F(Configuration, GetsSetsAndDefaults)
{
    int whole = 9;
    double real = 9;
    CKexString text = KT("kept");
    EXPECT_FALSE(KEX::cfg_get(KT("DEBUG"), whole));
    EXPECT_EQ(whole, 9);
    const CKexDataItem* stored = KEX::cfg_default(KT("_RNDL"), CKexDataItem(0.0001));
    EXPECT_NE(stored, nullptr);
    EXPECT_EQ(stored, KEX::cfg_get(KT("_rndl")));
    EXPECT_TRUE(KEX::cfg_modified());
    KEX::cfg_modifiedSet(false);
    KEX::cfg_default(KT("_RNDL"), CKexDataItem(5.0));
    EXPECT_FALSE(KEX::cfg_modified()); // it was there
    EXPECT_TRUE(KEX::cfg_get(KT("_RNDL"), real));
    EXPECT_EQ(real, 0.0001);
    EXPECT_FALSE(KEX::cfg_get(KT("_RNDL"), text));
    EXPECT_FALSE(KEX::cfg_set(CKexDataKey(), CKexDataItem(1)));
    EXPECT_FALSE(KEX::cfg_set(KT("_RNDL\\x"), CKexDataItem(1)));
    EXPECT_EQ(KEX::cfg_mkdir(KT("_RNDL")), nullptr);
    ASSERT_NE(KEX::cfg_mkdir(KT("*KEX_OUTLINE*")), nullptr);
    EXPECT_EQ(KEX::cfg_mkdir(KT("*KEX_OUTLINE*")), KEX::cfg_get(KT("*KEX_OUTLINE*"))->getDir());
    EXPECT_EQ(KEX::cfg_dir().length(), 2);
    EXPECT_EQ(KEX::cfg_dir(KT("_RNDL")).length(), 0);
    EXPECT_TRUE(KEX::cfg_set(KT("_RNDL"), CKexDataItem())); // nil removes
    EXPECT_FALSE(KEX::cfg_rem(KT("_RNDL")));
}

TEST_F(Configuration, DamagedFileIsReportedAndKeptAside)
{
    KEX::cfg_set(KT("a"), CKexDataItem(1));
    ASSERT_TRUE(KEX::cfg_save(file));
    std::string damaged = bytes("Kex_Main.cfg");
    damaged[damaged.size() / 2] ^= 1;
    kextest::writeFile(folder / "Kex_Main.cfg", damaged);

    EXPECT_EQ(KEX::cfg_load(file), KEX::CfgLoad::damaged);
    EXPECT_TRUE(KEX::cfg_root().isEmpty());
    EXPECT_FALSE(KEX::cfg_modified());
    ASSERT_EQ(testHost().alerts.size(), 1u);
    EXPECT_EQ(bytes("Kex_Main.cfg.bad"), damaged);
    KEX::cfg_set(KT("b"), CKexDataItem(2));
    EXPECT_TRUE(KEX::cfg_save(file));
    EXPECT_EQ(KEX::cfg_load(file), KEX::CfgLoad::loaded);
    EXPECT_EQ(bytes("Kex_Main.cfg.bad"), damaged);
}

TEST_F(Configuration, DamagedFileIsNotReplacedBeforeItsCopyExists)
{
    kextest::writeFile(folder / "Kex_Main.cfg", "damaged");
    fs::create_directory(folder / "Kex_Main.cfg.bad"); // no copy can be made here
    EXPECT_EQ(KEX::cfg_load(file), KEX::CfgLoad::damaged);
    KEX::cfg_set(KT("b"), CKexDataItem(2));
    EXPECT_FALSE(KEX::cfg_save(file));
    EXPECT_EQ(bytes("Kex_Main.cfg"), "damaged");
    fs::remove(folder / "Kex_Main.cfg.bad");
    KEX::cfg_modifiedSet(true);
    EXPECT_TRUE(KEX::cfg_save(file));
    EXPECT_EQ(bytes("Kex_Main.cfg.bad"), "damaged");
}

TEST_F(Configuration, FailedSaveIsReportedOnceAndKeepsTheOldFile)
{
    KEX::cfg_set(KT("a"), CKexDataItem(1));
    ASSERT_TRUE(KEX::cfg_save(file));
    const std::string old = bytes("Kex_Main.cfg");
    KEX::cfg_set(KT("a"), CKexDataItem(2));
    kexos::failFileCall(3, kexos::FileFault::error);
    EXPECT_FALSE(KEX::cfg_save(file));
    kexos::failFileCall(0, kexos::FileFault::error);
    EXPECT_EQ(bytes("Kex_Main.cfg"), old);
    ASSERT_EQ(testHost().alerts.size(), 1u);
    EXPECT_EQ(testHost().alerts[0], "kann Konfiguration nicht sichern!");
    EXPECT_FALSE(KEX::cfg_modified()); // and so nothing is tried again
    EXPECT_TRUE(KEX::cfg_save(file));
    EXPECT_EQ(bytes("Kex_Main.cfg"), old);
    fs::permissions(folder / "Kex_Main.cfg", fs::perms(0444));
    KEX::cfg_modifiedSet(true);
    EXPECT_TRUE(KEX::cfg_save(file)); // made writable first
}

TEST_F(Configuration, DataFilesAreReadIntoAndWrittenFromDirectories)
{
    const CKexString data = CKexString::fromUtf8(folder / "kex_mat.dex");
    EXPECT_FALSE(KEX::cfg_bread(KT("*KEX_MAT*"), data));
    EXPECT_EQ(KEX::cfg_get(KT("*KEX_MAT*")), nullptr);
    ASSERT_TRUE(sampleTree().getDir()->saveToFile(data));
    ASSERT_TRUE(KEX::cfg_bread(KT("*KEX_MAT*"), data));
    EXPECT_TRUE(*KEX::cfg_get(KT("*KEX_MAT*")) == sampleTree());
    ASSERT_TRUE(KEX::cfg_bwrite(KT("*KEX_MAT*"), data + KT("2")));
    EXPECT_EQ(bytes("kex_mat.dex2"), bytes("kex_mat.dex"));
    EXPECT_FALSE(KEX::cfg_bwrite(KT("none"), data));
    kextest::writeFile(folder / "kex_mat.dex", "damaged");
    EXPECT_FALSE(KEX::cfg_bread(KT("*KEX_MAT*"), data));
    EXPECT_TRUE(*KEX::cfg_get(KT("*KEX_MAT*")) == sampleTree());
}

TEST_F(Configuration, TwoProcessesThatSaveAtOnceBothEndWell)
{
    constexpr int kRounds = 60;
    const pid_t child = ::fork();
    const ACHAR* const who = child == 0 ? KT("child") : KT("parent");
    bool good = true;
    for (int i = 0; i < kRounds; ++i) {
        KEX::cfg_set(KT("who"), CKexDataItem(who));
        KEX::cfg_set(KT("filler"), CKexDataItem(CKexString(KT('x'), 3000 + i)));
        good &= KEX::cfg_save(file);
        good &= KEX::cfg_load(file) == KEX::CfgLoad::loaded;
    }
    if (child == 0) ::_exit(good ? 0 : 1);
    int status = 1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(good);
    EXPECT_TRUE(testHost().alerts.empty());
}

TEST(BinFile, ReadsInPiecesAndLeavesNothingUnlessClosed)
{
    TempFolder folder;
    const CKexString name = CKexString::fromUtf8(folder / "f");
    {
        KEX::CBinFile file;
        ASSERT_TRUE(file.open(name, KT("w")));
        EXPECT_TRUE(file.write("lost"));
        EXPECT_EQ(file.read(4), "");
    }
    EXPECT_FALSE(KEX::fileExists(name));
    KEX::CBinFile file;
    EXPECT_FALSE(file.open(name, KT("r")));
    EXPECT_FALSE(file.close());
    ASSERT_TRUE(file.open(name, KT("w")));
    EXPECT_TRUE(file.write(std::string(700, 'a')));
    EXPECT_TRUE(file.close());
    ASSERT_TRUE(file.open(name, KT("r")));
    EXPECT_EQ(file.read(512).size(), 512u);
    EXPECT_EQ(file.read(512).size(), 188u);
    EXPECT_EQ(file.read(512).size(), 0u);
    EXPECT_FALSE(file.write("x"));
    EXPECT_TRUE(file.close());
}

} // namespace
