// SPDX-License-Identifier: LicenseRef-ORVALD
// Two real programs on one file: lock files, and the configuration that all of a user's sessions
// share.
#include "session_support.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <sys/wait.h>
#include <thread>

namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

/// A running orvald that is told what to do by its standard input: it reads expressions and prints
/// their values until it is closed.
class Program
{
public:
    /// `home` holds the user's settings, what it prints goes to `out`.
    Program(const std::string& home, const std::string& out, const std::string& options = {})
        : out_(out)
    {
        kextest::writeFile(out, ""); // a reader may be there before the program
        const std::string line = "cd " + home + " && " KEX_BIN_DIR "/orvald --home " + home +
                                 "/home run " + options +
                                 " -e '(while (/= (setq line (getstring T)) \"end\")"
                                 " (print (eval (read line))))' >>" +
                                 out + " 2>&1";
        input_ = ::popen(line.c_str(), "w");
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program()
    {
        if (input_ != nullptr) end();
    }

    void say(const std::string& expression)
    {
        std::fputs((expression + "\n").c_str(), input_);
        std::fflush(input_);
    }
    std::string printed() const { return kextest::readFile(out_); }
    /// Its exit status.
    int end()
    {
        say("end");
        const int status = ::pclose(std::exchange(input_, nullptr));
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    std::string out_;
    std::FILE* input_;
};

bool becomesTrue(const std::function<bool()>& condition)
{
    const auto deadline = Clock::now() + std::chrono::seconds(30);
    while (!condition()) {
        if (Clock::now() > deadline) return false;
        std::this_thread::sleep_for(milliseconds(20));
    }
    return true;
}

TEST(TwoProcesses, OneHoldsAFileTheOtherWaitsAndGetsIt)
{
    const kextest::TempFolder folder;
    kextest::writeFile(folder / "Plan.DWG", "drawing");
    kextest::writeFile(folder / "other.dwg", "drawing");
    kextest::writeFile(folder / "other.dwk", "of somebody else");
    const auto lockThere = [&] { return fs::exists(folder / "plan.dwk"); };
    Program holder(folder.path(), folder / "holder.out");
    Program waiter(folder.path(), folder / "waiter.out");
    holder.say("(kex_file_lock \"Plan.DWG\")");
    ASSERT_TRUE(becomesTrue([&] { return holder.printed().find("T") != std::string::npos; }));
    EXPECT_TRUE(lockThere());

    waiter.say("(list (kex_file_locked \"plan.dwg\") (kex_file_lock \"plan.dwg\"))");
    ASSERT_TRUE(becomesTrue([&] { return waiter.printed().find("(T nil)") != std::string::npos; }))
        << waiter.printed();
    EXPECT_NE(waiter.printed().find("ist in Benutzung!"), std::string::npos);
    waiter.say("(kex_file_unlock \"plan.dwg\")"); // not its own
    waiter.say("(list 'got (kex_file_lock \"plan.dwg\" 20.9))");
    std::this_thread::sleep_for(milliseconds(300));
    EXPECT_TRUE(lockThere());
    EXPECT_EQ(waiter.printed().find("(GOT"), std::string::npos);
    EXPECT_EQ(holder.end(), 0); // its end gives the lock up
    EXPECT_TRUE(becomesTrue([&] { return waiter.printed().find("(GOT T)") != std::string::npos; }))
        << waiter.printed();
    EXPECT_EQ(kextest::readFile(folder / "plan.dwk"), "TARNOVEX Lock File");
    EXPECT_EQ(waiter.end(), 0);
    EXPECT_FALSE(lockThere());
    EXPECT_EQ(kextest::readFile(folder / "other.dwk"), "of somebody else");
}

TEST(TwoProcesses, ThatSaveTheConfigurationAtOnceBothEndWell)
{
    const kextest::TempFolder folder;
    constexpr int kRounds = 5;
    for (int round = 0; round < kRounds; ++round) {
        std::vector<std::unique_ptr<Program>> programs;
        for (int i = 0; i < 3; ++i) {
            programs.push_back(std::make_unique<Program>(folder.path(), folder / std::to_string(i),
                                                         "--load probe.arx"));
            programs.back()->say("(probe_cfg_set \"_RNDF\" " + std::to_string(round) + ".5)");
        }
        for (const auto& program : programs) {
            EXPECT_TRUE(becomesTrue([&] { return program->printed().ends_with(" "); }));
        }
        std::vector<std::thread> ends;
        for (const auto& program : programs) {
            ends.emplace_back([&program] { EXPECT_EQ(program->end(), 0) << program->printed(); });
        }
        for (std::thread& one : ends) one.join();
        Program reader(folder.path(), folder / "reader");
        reader.say("(kex_cfg_get \"_RNDF\")");
        EXPECT_EQ(reader.end(), 0);
        EXPECT_NE(reader.printed().find(std::to_string(round) + ".5"), std::string::npos)
            << reader.printed();
    }
    std::vector<std::string> left;
    for (const auto& entry : fs::directory_iterator(folder / "home")) {
        left.push_back(entry.path().filename().string());
    }
    std::ranges::sort(left);
    EXPECT_EQ(left, (std::vector<std::string>{"Kex_Main.cfg", "Kex_Main.cfg.lk", "registry.txt",
                                              "registry.txt.lk"}));
}

} // namespace
