// SPDX-License-Identifier: LicenseRef-ORVALD
// Copying, moving, removing and making files: what the system refuses is refused, and nothing half
// done is left.
#include "files.h"
#include "variable.h"

#include "kex/date.h"
#include "kex/files.h"
#include "kexos/exclusive_file.h"
#include "kexos/files.h"
#include "kexos/paths.h"

#include <fcntl.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>

namespace {

namespace fs = std::filesystem;
using kextest::TempFolder;

class FileChange : public testing::Test
{
protected:
    CKexString at(std::string_view name) const
    {
        return CKexString::fromUtf8(kexos::kernelPath(folder_ / name));
    }
    std::string make(std::string_view name, std::string_view bytes) const
    {
        kextest::writeFile(folder_ / name, bytes);
        return folder_ / name;
    }
    std::string read(std::string_view name) const { return kextest::readFile(folder_ / name); }
    int entries() const
    {
        return static_cast<int>(
            std::distance(fs::directory_iterator(folder_.path()), fs::directory_iterator()));
    }

    const TempFolder folder_;
};

TEST_F(FileChange, CopyKeepsTimeAndModeAndLeavesTargetsAlone)
{
    const std::string bytes(700'001, 'x');
    const std::string source = make("Plan.dwg", bytes);
    const timespec times[2] = {{5, 0}, {1'000'000'000, 0}};
    ::utimensat(AT_FDCWD, source.c_str(), times, 0);
    fs::permissions(source, fs::perms(0440));
    EXPECT_TRUE(KEX::fileCopy(at("PLAN.DWG"), at("copy.dwg")));
    EXPECT_EQ(read("copy.dwg"), bytes);
    EXPECT_EQ(fs::status(folder_ / "copy.dwg").permissions(), fs::perms(0440));
    EXPECT_FALSE(KEX::fileIsOlder(at("plan.dwg"), at("copy.dwg")));
    EXPECT_FALSE(KEX::fileIsOlder(at("copy.dwg"), at("plan.dwg")));

    make("old", "old");
    fs::create_directory(folder_ / "d");
    fs::create_symlink("nowhere", folder_ / "dangling");
    ASSERT_EQ(::mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    const int before = entries();
    for (const auto& [from, to] : {std::pair{"Plan.dwg", "old"},
                                   {"Plan.dwg", "OLD"},
                                   {"Plan.dwg", "plan.dwg"},
                                   {"Plan.dwg", "d"},
                                   {"Plan.dwg", "dangling"},
                                   {"Plan.dwg", "no/copy"},
                                   {"d", "e"},
                                   {"pipe", "e"},
                                   {"missing", "e"}}) {
        EXPECT_FALSE(KEX::fileCopy(at(from), at(to))) << from << " " << to;
    }
    EXPECT_FALSE(KEX::fileCopy(at("old"), KT("Q:\\old")));
    EXPECT_FALSE(KEX::fileCopy(KT(""), at("e")));
    EXPECT_FALSE(KEX::fileCopy(at("old"), KT("")));
    EXPECT_EQ(read("old"), "old");
    EXPECT_EQ(entries(), before);
}

TEST_F(FileChange, FailedCopyLeavesNothing)
{
    make("source", std::string(600'000, 'x'));
    int failures = 0;
    for (int n = 1; n <= 12; ++n) {
        kexos::failFileCall(n, kexos::FileFault::error);
        const bool copied = KEX::fileCopy(at("source"), at("target"));
        const bool fell = kexos::fileCalls() >= n;
        kexos::failFileCall(0, kexos::FileFault::error);
        failures += fell ? 1 : 0;
        EXPECT_EQ(copied, !fell) << n;
        EXPECT_EQ(entries(), copied ? 2 : 1) << n;
        fs::remove(folder_ / "target");
    }
    EXPECT_GE(failures, 6);
}

TEST_F(FileChange, FullDiskIsAFailureAndNoHalfFile)
{
    const std::string disk = folder_ / "disk";
    fs::create_directory(disk);
    if (::mount("none", disk.c_str(), "tmpfs", 0, "size=64k") != 0) {
        GTEST_SKIP() << "no right to mount a small disk";
    }
    make("large", std::string(200'000, 'x'));
    make("small", "small");
    EXPECT_FALSE(KEX::fileCopy(at("large"), at("disk/copy")));
    EXPECT_TRUE(fs::is_empty(disk));
    EXPECT_FALSE(KEX::fileRename(at("large"), at("disk/moved")));
    EXPECT_TRUE(fs::is_empty(disk));
    EXPECT_EQ(read("large").size(), 200'000u);
    EXPECT_TRUE(KEX::fileRename(at("small"), at("disk/small"))); // to another disk
    EXPECT_FALSE(fs::exists(folder_ / "small"));
    EXPECT_FALSE(KEX::fileSave(at("disk/small"), std::string(200'000, 'x')));
    EXPECT_EQ(read("disk/small"), "small");
    EXPECT_EQ(::umount(disk.c_str()), 0);
}

TEST_F(FileChange, RenameTakesFreeNamesAndOtherLettersOfItsOwn)
{
    make("a.txt", "a");
    make("b.txt", "b");
    fs::create_directory(folder_ / "d");
    EXPECT_FALSE(KEX::fileRename(at("a.txt"), at("B.TXT")));
    EXPECT_FALSE(KEX::fileRename(at("a.txt"), at("d")));
    EXPECT_FALSE(KEX::fileRename(at("missing"), at("c")));
    EXPECT_FALSE(KEX::fileRename(at("missing"), at("missing")));
    EXPECT_FALSE(KEX::fileRename(at("a.txt"), KT("Q:\\a.txt")));
    EXPECT_TRUE(KEX::fileRename(at("a.txt"), at("a.txt")));
    EXPECT_TRUE(KEX::fileRename(at("a.txt"), at("A.Txt")));
    EXPECT_EQ(read("A.Txt"), "a");
    EXPECT_FALSE(fs::exists(folder_ / "a.txt"));
    EXPECT_TRUE(KEX::fileRename(at("A.Txt"), at("d/c")));
    EXPECT_TRUE(KEX::fileRename(at("d"), at("e")));
    EXPECT_EQ(read("e/c"), "a");
    EXPECT_EQ(read("b.txt"), "b");
}

TEST_F(FileChange, RemoveSparesFoldersReadOnlyFilesAndFilesInUse)
{
    const std::string file = make("a", "");
    fs::create_directory(folder_ / "d");
    EXPECT_FALSE(KEX::fileRemove(at("d")));
    EXPECT_FALSE(KEX::fileRemove(at("missing")));
    fs::permissions(file, fs::perms(0444));
    EXPECT_FALSE(KEX::fileRemove(at("a"))); // the administrator included
    EXPECT_TRUE(KEX::fileMakeWritable(at("a")));
    {
        kexos::ExclusiveFile held;
        ASSERT_EQ(held.open(file, kexos::OpenMode::read), kexos::OpenResult::opened);
        EXPECT_FALSE(KEX::fileRemove(at("a")));
        EXPECT_FALSE(KEX::fileRename(at("a"), at("b")));
        EXPECT_FALSE(KEX::fileCopy(at("a"), at("b")));
        EXPECT_FALSE(KEX::fileRead(at("a")).has_value());
    }
    EXPECT_TRUE(KEX::fileRemove(at("a")));
    EXPECT_FALSE(fs::exists(file));
    // A link goes without what it leads to.
    make("target", "x");
    fs::create_symlink("target", folder_ / "link");
    EXPECT_TRUE(KEX::fileRemove(at("link")));
    EXPECT_EQ(entries(), 2);
}

TEST_F(FileChange, MkdirGivesTheLastStep)
{
    EXPECT_TRUE(KEX::fileMkdir(at("a/b/c")));
    EXPECT_FALSE(KEX::fileMkdir(at("a/b/c")));
    EXPECT_FALSE(KEX::fileMkdir(at("A/B") + KT("\\")));
    EXPECT_TRUE(KEX::fileMkdir(at("a/b/d") + KT("\\")));
    EXPECT_TRUE(fs::is_directory(folder_ / "a/b/d"));
    make("file", "");
    EXPECT_FALSE(KEX::fileMkdir(at("file/x")));
    EXPECT_FALSE(KEX::fileMkdir(KT("")));
    EXPECT_FALSE(KEX::fileMkdir(KT("C:\\")));
    EXPECT_FALSE(KEX::fileMkdir(KT("Q:\\a\\b")));
    CKexString deep = at("a");
    for (int i = 0; i < 500'000; ++i) deep += KT("\\x");
    EXPECT_FALSE(KEX::fileMkdir(deep));
    EXPECT_EQ(entries(), 2);
}

TEST_F(FileChange, AccessLeavesThingsAsTheyWere)
{
    const std::string file = make("a", "bytes");
    EXPECT_TRUE(KEX::fileAccess(at("a")));
    EXPECT_TRUE(KEX::fileAccess(at("new")));
    EXPECT_FALSE(KEX::fileAccess(at("no/new")));
    EXPECT_FALSE(KEX::fileAccess(KT("")));
    EXPECT_FALSE(KEX::fileAccess(KEX::curDir()));
    const int reader = ::open(file.c_str(), O_RDONLY); // of a program that knows no locks
    EXPECT_FALSE(KEX::fileAccess(at("a")));
    ::close(reader);
    EXPECT_TRUE(KEX::fileAccess(at("a")));
    fs::permissions(file, fs::perms(0444));
    EXPECT_FALSE(KEX::fileAccess(at("a")));
    EXPECT_EQ(read("a"), "bytes");
    EXPECT_EQ(entries(), 1);

    // A process without standard input gets the descriptor 0, which counts as failure.
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(0);
        const bool accessible = KEX::fileAccess(at("new"));
        ::_exit(accessible || fs::exists(folder_ / "new") ? 1 : 0);
    }
    int status = 1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}

TEST_F(FileChange, InfoIsInLocalTime)
{
    const kextest::Variable zone("TZ", "Europe/Berlin");
    const std::string file = make("a", "");
    fs::resize_file(file, 0x1'8000'0001ull);
    const timespec times[2] = {{0, 0}, {1'751'320'805, 0}}; // 2025-07-01 00:00:05 in summer time
    ::utimensat(AT_FDCWD, file.c_str(), times, 0);
    const std::optional<KEX::FileInfo> info = KEX::fileInfo(at("a"));
    ASSERT_TRUE(info.has_value());
    const kextest::Variable utc("TZ", "UTC");
    EXPECT_EQ(info->date.toUtf8() + " " + info->time.toUtf8(), "01.07.2025 00:00");
    EXPECT_EQ(info->size, 0x8000'0001u);
    EXPECT_EQ(KEX::fileInfo(at("a"))->date.toUtf8(), "30.06.2025");
    EXPECT_FALSE(KEX::fileInfo(at("missing")).has_value());
    EXPECT_TRUE(KEX::fileInfo(at("")).has_value()); // a folder has its times
}

TEST_F(FileChange, OlderIsWhatWasWrittenEarlierOrIsMissing)
{
    for (const auto& [name, nanoseconds] : {std::pair{"early", 100L}, {"late", 300L}}) {
        const timespec times[2] = {{0, 0}, {1'000'000'000, nanoseconds}};
        ::utimensat(AT_FDCWD, make(name, "").c_str(), times, 0);
    }
    EXPECT_TRUE(KEX::fileIsOlder(at("early"), at("late")));
    EXPECT_FALSE(KEX::fileIsOlder(at("late"), at("early")));
    EXPECT_FALSE(KEX::fileIsOlder(at("late"), at("late")));
    EXPECT_TRUE(KEX::fileIsOlder(at("missing"), at("late")));
    EXPECT_TRUE(KEX::fileIsOlder(at("missing"), at("missing")));
    EXPECT_FALSE(KEX::fileIsOlder(at("late"), at("missing")));
}

} // namespace
