// SPDX-License-Identifier: LicenseRef-ORVALD
// Listing folders: real trees, every order against a sort of its own, names of every kind.
#include "files.h"

#include "kex/file_list.h"
#include "kex/files.h"
#include "kexos/paths.h"

#include <algorithm>
#include <fcntl.h>
#include <numeric>
#include <random>
#include <set>
#include <sys/stat.h>
#include <tuple>

namespace {

namespace fs = std::filesystem;
using kextest::TempFolder;

CKexString kernelName(const std::string& path)
{
    return CKexString::fromUtf8(kexos::kernelPath(path));
}

/// What fileDir gives, in UTF-8.
std::vector<std::string> listed(const std::string& folder, const char* pattern, int mask)
{
    std::vector<std::string> names;
    const CKexString path = kernelName(folder) + KT("\\") + CKexString::fromUtf8(pattern);
    for (const CKexString& name : KEX::fileDir(path, mask)) names.push_back(name.toUtf8());
    return names;
}

using Names = std::vector<std::string>;

struct Made
{
    std::u16string name, upper;
    unsigned size;
    long written; // seconds

    std::u16string extension() const
    {
        const std::size_t dot = upper.rfind(u'.');
        return dot == upper.npos ? u"" : upper.substr(dot);
    }
    /// The name as the order by name sees it.
    std::u16string dotted() const
    {
        std::u16string key = upper;
        std::ranges::replace(key, u'.', u'\0');
        while (!key.empty() && key.back() == u'\0') key.pop_back();
        return key;
    }
};

std::u16string unitsOf(const CKexString& text)
{
    return {text.c_str(), static_cast<std::size_t>(text.len())};
}

/// Files of random names, sizes and times, with many ties in each.
std::vector<Made> makeFiles(const std::string& folder, int count)
{
    std::mt19937 random(3);
    const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    const char* const kPieces[] = {"a", "B", "plan", "Träger", "ß", "Ö", " ", ".", "dwg", "_", "7"};
    std::vector<Made> files;
    std::set<std::u16string> taken;
    while (static_cast<int>(files.size()) < count) {
        std::string name = kPieces[below(6)] + std::to_string(below(count));
        for (int i = below(4); i > 0; --i) name += kPieces[below(11)];
        const CKexString text = CKexString::fromUtf8(name);
        const std::u16string upper = unitsOf(CKexString(text).makeUpper());
        // Names that differ in case alone would be one file for the kernel.
        if (!taken.insert(upper).second) continue;
        const Made made = {unitsOf(text), upper, static_cast<unsigned>(below(40)),
                           1'700'000'000L + below(300)};
        const int file = ::open((folder + "/" + name).c_str(), O_CREAT | O_WRONLY, 0644);
        const timespec times[2] = {{made.written, 0}, {made.written, 999'999'999}};
        const bool good = ::ftruncate(file, made.size) == 0 && ::futimens(file, times) == 0;
        ::close(file);
        if (!good) return {};
        files.push_back(made);
    }
    return files;
}

TEST(FileList, TwentyThousandFilesStandInEveryOrder)
{
    const TempFolder folder;
    std::vector<Made> files = makeFiles(folder.path(), 20000);
    ASSERT_EQ(files.size(), 20000u);
    std::ranges::sort(files, {}, &Made::upper);

    for (int key = 0; key <= 5; ++key) {
        for (const int direction : {0, 1, -7}) {
            SCOPED_TRACE("key " + std::to_string(key) + " direction " + std::to_string(direction));
            // An order of its own: each key as a tuple; descending is ascending read backwards.
            const auto rank = [&](const Made& one) {
                using Rank = std::tuple<unsigned long, std::u16string, std::u16string>;
                switch (key) {
                case 1: return Rank(0, one.dotted(), u"");
                case 2: return Rank(0, one.extension(), one.upper);
                case 3: return Rank(one.size, one.upper, u"");
                case 4: return Rank(one.written, one.dotted(), u"");
                default: return Rank();
                }
            };
            const bool down = key == 2 ? direction == 0 : direction != 0;
            std::vector<Made> expected = files;
            std::ranges::stable_sort(expected, [&](const Made& a, const Made& b) {
                return down ? rank(b) < rank(a) : rank(a) < rank(b);
            });
            KEX::dirModeSet(key, direction);
            const CKexArrayTempl<CKexString> names =
                KEX::fileDir(kernelName(folder.path()) + KT("\\*.*"), 0);
            ASSERT_EQ(names.length(), 20000);
            for (int i = 0; i < names.length(); ++i) {
                ASSERT_EQ(unitsOf(names[i]), expected[static_cast<std::size_t>(i)].name) << i;
            }
        }
    }
    KEX::dirModeSet(0, 0);
}

KEX::DirEntry entry(KEX::TextView name, std::uint32_t size = 0, std::int64_t written = 0)
{
    KEX::DirEntry made = {};
    made.size = size;
    made.written = written;
    std::ranges::copy(name.substr(0, KEX::DirEntry::kNameRoom), made.name);
    return made;
}

TEST(DirCmp, GivesOneStepAndTurnsWithTheDirection)
{
    const KEX::DirEntry plan = entry(KT("plan"), 4'000'000'000u, 5);
    const KEX::DirEntry planDwg = entry(KT("PLAN.dwg"), 7, 0x1'0000'0005);
    const KEX::DirEntry plan2 = entry(KT("plan2"), 7, 6);
    struct Case
    {
        int key;
        const KEX::DirEntry &a, &b;
        int up; // with direction 0
    };
    for (const auto& [key, a, b, up] :
         {Case{1, plan, planDwg, -1},
          {1, planDwg, plan2, -1},
          {1, plan, plan, 0},
          {2, plan, planDwg, 1}, // by extension the direction is the other one
          {2, plan, plan2, 1},
          {3, plan, planDwg, 1},
          {3, planDwg, plan2, -1},
          {4, plan, planDwg, -1}, // times equal in their low 32 bits, so by name
          {4, planDwg, plan2, -1},
          {0, plan, plan2, 0},
          {9, plan, plan2, 0}}) {
        KEX::dirModeSet(key, 0);
        EXPECT_EQ(dir_cmp(&a, &b), up) << key;
        EXPECT_EQ(dir_cmp(&b, &a), -up) << key;
        KEX::dirModeSet(key, 1);
        EXPECT_EQ(dir_cmp(&a, &b), -up) << key;
        KEX::dirModeSet(key, std::nullopt); // the direction stays
        EXPECT_EQ(dir_cmp(&a, &b), -up) << key;
    }
    // A name that fills its room has no end mark.
    const CKexString longest(KT('x'), 300);
    const KEX::DirEntry full = entry(longest);
    KEX::dirModeSet(1, 0);
    EXPECT_EQ(dir_cmp(&full, &full), 0);
    EXPECT_EQ(dir_cmp(&full, &plan), 1);
    KEX::dirModeSet(0, 0);
}

TEST(FileList, MaskAndPatternChoose)
{
    const TempFolder folder;
    for (const char* name : {"a.dwg", "B.DWG", "cd", ".hidden", "ä.dwg", "x.y.z"}) {
        kextest::writeFile(folder / name, "1");
    }
    fs::permissions(folder / "a.dwg", fs::perms(0444));
    fs::create_directory(folder / "Sub");
    fs::create_directory(folder / ".git");
    fs::create_symlink("Sub", folder / "link");
    fs::create_symlink("nowhere", folder / "dangling");
    struct Case
    {
        const char* pattern;
        int mask;
        Names names;
    };
    const std::vector<Case> cases = {
        {"*.*", 0, {"a.dwg", "B.DWG", "cd", "x.y.z", "ä.dwg"}},
        {"", 1 | 4 | 32, {"a.dwg", "B.DWG", "cd", "x.y.z", "ä.dwg"}},
        {"*", 2, {".hidden", "a.dwg", "B.DWG", "cd", "x.y.z", "ä.dwg"}},
        {"*", 16, {"a.dwg", "B.DWG", "cd", "link", "Sub", "x.y.z", "ä.dwg"}},
        {"*", 0x8000 | 16, {"link", "Sub"}},
        {"*", 0x8000 | 16 | 2, {".git"}},
        {"*", 0x8000 | 1, {"a.dwg"}},
        {"*", 0x8000 | 32, {"a.dwg", "B.DWG", "cd", "x.y.z", "ä.dwg"}},
        {"*", 0x8000 | 4, {}},
        {"*.Dwg", 0, {"a.dwg", "B.DWG", "ä.dwg"}},
        {"Ä.*", 0, {"ä.dwg"}},
        {"?.dwg", 0, {"a.dwg", "B.DWG", "ä.dwg"}},
        {"??", 0, {"cd"}},
        {"?", 0, {}},
        {"*.*.*", 0, {"x.y.z"}},
        {"**?.***g", 0, {"a.dwg", "B.DWG", "ä.dwg"}},
        {"cd", 0, {"cd"}},
        {"nothing\\*", 0, {}},
        {"cd\\*", 0, {}}, // a file is no folder
    };
    for (const auto& [pattern, mask, names] : cases) {
        EXPECT_EQ(listed(folder.path(), pattern, mask), names) << pattern << " " << mask;
    }
    EXPECT_EQ(KEX::fileDir(KT("Q:\\*"), 0).length(), 0);
}

TEST(FileList, WhatIsListedCanBeOpenedWhateverItsName)
{
    const TempFolder folder;
    const Names made = {"with blank",    " blanks at the ends ",
                        "Träger",        std::string(255, 'n'),
                        "no\xFFutf\xC3", "\xED\xA0\x80",
                        "back\\slash",   "\xF0\x9F\x94\xA9",
                        "\xC3\xA4\xC3",  std::string(127, '\xE4') + std::string(128, '\\')};
    for (const std::string& name : made) kextest::writeFile(folder / name, name);
    Names read;
    const CKexString prefix = kernelName(folder.path()) + KT("\\");
    for (const CKexString& name : KEX::fileDir(prefix, 0)) {
        read.push_back(KEX::fileRead(prefix + name).value_or("(unreadable)"));
        EXPECT_LE(name.len(), 255);
        EXPECT_TRUE(KEX::fileRename(prefix + name, prefix + KT("moved")));
        EXPECT_TRUE(KEX::fileCopy(prefix + KT("moved"), prefix + name));
        EXPECT_TRUE(KEX::fileSave(prefix + name, "saved"));
        EXPECT_TRUE(KEX::fileRemove(prefix + name));
        EXPECT_TRUE(KEX::fileRemove(prefix + KT("moved")));
    }
    std::ranges::sort(read);
    Names expected = made;
    std::ranges::sort(expected);
    EXPECT_EQ(read, expected);
    EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST(FolderSums, CountFilesInThirtyTwoBits)
{
    const TempFolder folder;
    fs::create_directory(folder / "sub.dwg");
    for (const char* name : {"a.dwg", "b.dwg", "c.txt"}) kextest::writeFile(folder / name, "");
    const CKexString path = kernelName(folder.path());
    KEX::FolderSums sums = KEX::folderSums(path, KT("*.dwg"));
    EXPECT_EQ(sums.count, 2);
    EXPECT_EQ(sums.size, 0);
    fs::resize_file(folder / "a.dwg", 0x1'0000'0007ull); // the high part of a size counts not
    fs::resize_file(folder / "b.dwg", 0x8000'0000ull);
    sums = KEX::folderSums(path + KT("\\"), KT(""));
    EXPECT_EQ(sums.count, 3);
    EXPECT_EQ(sums.size, -0x7FFF'FFF9);
    EXPECT_EQ(sums.total, static_cast<std::uint32_t>(fs::space("/").capacity));
    sums = KEX::folderSums(KT("sub"), KT("*")); // "s:\" is no drive
    EXPECT_EQ(sums.total + sums.free, 0u);
}

TEST(ClearReadOnly, LeavesHiddenFoldersAndLinksAlone)
{
    const TempFolder folder;
    const auto isWritable = [&](const char* name) {
        return (fs::status(folder / name).permissions() & fs::perms::owner_write) !=
               fs::perms::none;
    };
    const Names names = {"a", ".b", "sub/deep/c", ".sub/d"};
    for (const std::string& name : names) {
        fs::create_directories(fs::path(folder / name).parent_path());
        kextest::writeFile(folder / name, "");
        fs::permissions(folder / name, fs::perms(0444));
    }
    const TempFolder other;
    kextest::writeFile(other / "e", "");
    fs::permissions(other / "e", fs::perms(0444));
    fs::create_symlink(other.path(), folder / "sub/other");
    fs::create_symlink(folder.path(), folder / "sub/round");
    KEX::clearReadOnly(kernelName(folder.path()));
    EXPECT_TRUE(isWritable("a"));
    EXPECT_TRUE(isWritable(".b")); // only folders are left out
    EXPECT_TRUE(isWritable("sub/deep/c"));
    EXPECT_FALSE(isWritable(".sub/d"));
    EXPECT_FALSE(isWritable("sub/other/e"));
}

} // namespace
