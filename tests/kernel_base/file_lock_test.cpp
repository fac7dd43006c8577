// SPDX-License-Identifier: LicenseRef-ORVALD
// Lock files: their names, the process's own memory of them, and other processes.
#include "files.h"
#include "test_host.h"

#include "kex/files.h"
#include "kex/lock_files.h"
#include "kexos/paths.h"

#include <chrono>
#include <fcntl.h>
#include <sys/wait.h>

namespace {

namespace fs = std::filesystem;
using kextest::TempFolder;

TEST(LockNames, FollowTheExtension)
{
    struct Case
    {
        const char *file, *lock;
    };
    for (const auto& [file, lock] : {Case{"C:\\Work\\Plan.DWG", "c:\\work\\plan.dwk"},
                                     {"C:\\Work\\Plan", "c:\\work\\plan.dwk"},
                                     {"C:\\Work\\Data.xyz", "c:\\work\\data.xyz.lck"},
                                     {"a.txt", "a.txk"},
                                     {"A.B.Lst", "a.b.ltk"},
                                     {"C:\\A.dwg\\B", "c:\\a.dwg\\b.dwk"},
                                     {"ÄÖ.dwgx", "äö.dwgx.lck"},
                                     {".cfg", ".cfg.dwk"}}) {
        EXPECT_EQ(KEX::lockFileName(CKexString::fromUtf8(file)).toUtf8(), lock);
    }
}

class LockFiles : public testing::Test
{
protected:
    LockFiles()
    {
        kextest::writeFile(native_, "drawing");
        testHost().alerts.clear();
    }
    ~LockFiles() override
    {
        KEX::fileUnlockAll();
        testHost().alerts.clear();
    }
    bool lockFileThere() const { return fs::exists(lock_); }

    const TempFolder folder_;
    const std::string native_ = folder_ / "Plan.DWG";
    const std::string lock_ = folder_ / "plan.dwk";
    const CKexString file_ = CKexString::fromUtf8(kexos::kernelPath(native_));
};

TEST_F(LockFiles, HoldTheBannerAndCountForTheProcessItself)
{
    EXPECT_FALSE(KEX::fileLocked(file_));
    EXPECT_TRUE(KEX::fileLock(file_, 0));
    EXPECT_EQ(kextest::readFile(lock_), "TARNOVEX Lock File");
    EXPECT_TRUE(KEX::fileLocked(file_));
    const CKexString other = file_.mid(0, 3) + file_.mid(3).makeLower();
    EXPECT_FALSE(KEX::fileLock(other, -3));
    ASSERT_EQ(testHost().alerts.size(), 1u);
    EXPECT_EQ(testHost().alerts[0], "Datei " + other.toUtf8() + "\nist in Benutzung!");
    fs::permissions(lock_, fs::perms(0444));
    KEX::fileUnlock(file_);
    EXPECT_FALSE(lockFileThere());
    EXPECT_FALSE(KEX::fileLocked(file_));
    EXPECT_TRUE(KEX::fileLock(file_, 0));
    EXPECT_TRUE(lockFileThere());
}

TEST_F(LockFiles, WhatTheProcessRemembersWins)
{
    kextest::writeFile(lock_, "of another process");
    EXPECT_TRUE(KEX::fileLocked(file_));
    EXPECT_FALSE(KEX::fileLock(file_, 0));
    KEX::fileUnlock(file_); // it never held this lock
    EXPECT_TRUE(lockFileThere());
    fs::remove(lock_);

    EXPECT_TRUE(KEX::fileLock(file_, 0));
    KEX::fileUnlock(file_);
    kextest::writeFile(lock_, "of another process");
    EXPECT_FALSE(KEX::fileLocked(file_)); // it remembers to have given the lock up
    KEX::fileUnlock(file_);
    EXPECT_TRUE(lockFileThere());
    EXPECT_TRUE(KEX::fileLock(file_, 0));
    EXPECT_EQ(kextest::readFile(lock_), "TARNOVEX Lock File");

    KEX::fileUnlockAll();
    EXPECT_FALSE(lockFileThere());
    kextest::writeFile(lock_, "of another process");
    KEX::fileUnlockAll();
    EXPECT_TRUE(lockFileThere());
    EXPECT_TRUE(KEX::fileLocked(file_)); // and nothing is remembered any more
}

TEST_F(LockFiles, AMissingFileIsNotInUseButANewLockNeedsAFreeName)
{
    fs::remove(native_);
    kextest::writeFile(lock_, "of another process");
    EXPECT_FALSE(KEX::fileLocked(file_));
    EXPECT_FALSE(KEX::fileLock(file_, 0));
    fs::remove(lock_);
    EXPECT_TRUE(KEX::fileLock(file_, 0));
    EXPECT_FALSE(KEX::fileLocked(file_));
    // Where no lock file can be made the file counts as locked all the same.
    EXPECT_TRUE(KEX::fileLock(KT("Q:\\no\\drive.dwg"), 0));
}

TEST_F(LockFiles, OtherProgramsCountWhetherTheyKnowLocksOrNot)
{
    const int reader = ::open(native_.c_str(), O_RDONLY);
    EXPECT_TRUE(KEX::fileLocked(file_));
    EXPECT_FALSE(KEX::fileLock(file_, 0));
    EXPECT_FALSE(lockFileThere());
    ::close(reader);
    EXPECT_FALSE(KEX::fileLocked(file_));
    EXPECT_TRUE(KEX::fileLocked(KEX::curDir())); // a folder cannot be opened
}

TEST_F(LockFiles, OfManyProcessesAtOnceOneHolds)
{
    constexpr int kProcesses = 6, kRounds = 40;
    // Each holder notes itself in a file that no two may have open for making at once.
    const std::string inside = folder_ / "inside";
    std::vector<pid_t> children;
    for (int i = 0; i < kProcesses; ++i) {
        const pid_t child = ::fork();
        if (child == 0) {
            int held = 0, doubles = 0;
            for (int round = 0; round < kRounds; ++round) {
                if (!KEX::fileLock(file_, 0)) {
                    KEX::fileUnlockAll();
                    continue;
                }
                ++held;
                const int mark = ::open(inside.c_str(), O_CREAT | O_EXCL | O_WRONLY, 0600);
                if (mark < 0) ++doubles;
                ::usleep(300);
                if (mark >= 0) {
                    ::close(mark);
                    ::unlink(inside.c_str());
                }
                KEX::fileUnlockAll(); // a process of its own in the next round
            }
            ::_exit(doubles > 0 ? 1 : held > 0 ? 0 : 2);
        }
        children.push_back(child);
    }
    int winners = 0;
    for (const pid_t child : children) {
        int status = 1;
        ::waitpid(child, &status, 0);
        EXPECT_NE(WEXITSTATUS(status), 1) << "two held the lock";
        winners += WEXITSTATUS(status) == 0 ? 1 : 0;
    }
    EXPECT_GE(winners, 1);
    EXPECT_FALSE(lockFileThere());
}

} // namespace
