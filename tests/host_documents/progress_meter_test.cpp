// SPDX-License-Identifier: LicenseRef-ORVALD
// The progress meter on a terminal of the test's own.
#include "progress_meter.h"

#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

using orvald::ProgressMeter;

/// Both ends of a terminal, so many columns wide.
class Terminal
{
public:
    explicit Terminal(unsigned short columns)
    {
        user_ = ::posix_openpt(O_RDWR | O_NOCTTY);
        if (user_ < 0 || ::grantpt(user_) != 0 || ::unlockpt(user_) != 0) return;
        program_ = ::open(::ptsname(user_), O_RDWR | O_NOCTTY);
        const winsize size = {24, columns, 0, 0};
        ::ioctl(program_, TIOCSWINSZ, &size);
    }
    ~Terminal()
    {
        ::close(program_);
        ::close(user_);
    }
    bool isGood() const { return program_ >= 0; }
    int program() const { return program_; }
    /// What the program has written since the last reading.
    std::string shown() const
    {
        // The kernel hands terminal output over in order: the mark comes last.
        if (::write(program_, "$", 1) != 1) return {};
        std::string text;
        char bytes[512];
        while (text.empty() || text.back() != '$') {
            const ssize_t count = ::read(user_, bytes, sizeof bytes);
            if (count <= 0) break;
            text.append(bytes, static_cast<std::size_t>(count));
        }
        if (!text.empty()) text.pop_back();
        return text;
    }

private:
    int user_ = -1, program_ = -1;
};

TEST(ProgressMeter, IsOneLineOnATerminal)
{
    const Terminal terminal(80);
    ASSERT_TRUE(terminal.isGood());
    ProgressMeter meter(terminal.program());
    EXPECT_FALSE(meter.move(1));
    EXPECT_EQ(terminal.shown(), "");
    meter.show("Maße prüfen", 0, 200);
    EXPECT_EQ(terminal.shown(), "\rMaße prüfen [" + std::string(30, '.') + "]   0 %\033[K");
    meter.move(100);
    EXPECT_EQ(terminal.shown(),
              "\rMaße prüfen [" + std::string(15, '#') + std::string(15, '.') + "]  50 %\033[K");
    meter.move(100); // nothing to draw again
    EXPECT_EQ(terminal.shown(), "");
    meter.move(1000000);
    EXPECT_EQ(terminal.shown(), "\rMaße prüfen [" + std::string(30, '#') + "] 100 %\033[K");
    meter.stepAside();
    EXPECT_EQ(terminal.shown(), "\r\033[K");
    meter.restore();
    meter.restore();
    EXPECT_EQ(terminal.shown(), "");
}

TEST(ProgressMeter, StaysOnItsLineWhateverItIsGiven)
{
    const Terminal terminal(44);
    ASSERT_TRUE(terminal.isGood());
    ProgressMeter meter(terminal.program());
    meter.show("eine\nsehr lange Beschriftung", INT32_MAX, INT32_MIN);
    EXPECT_EQ(terminal.shown(), "\reine [" + std::string(30, '.') + "]   0 %\033[K");
    meter.move(INT32_MAX);
    EXPECT_EQ(terminal.shown(), "\reine [" + std::string(30, '#') + "] 100 %\033[K");
    meter.show("", 5, 5);
    EXPECT_EQ(terminal.shown(), "\r[" + std::string(30, '.') + "]   0 %\033[K");
}

TEST(ProgressMeter, WritesNothingWhereThereIsNoTerminal)
{
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    {
        ProgressMeter meter(ends[1]);
        meter.show("x", 0, 10);
        EXPECT_TRUE(meter.move(3));
        EXPECT_EQ(meter.state().position, 3);
    }
    ::close(ends[1]);
    char byte;
    EXPECT_EQ(::read(ends[0], &byte, 1), 0);
    ::close(ends[0]);
}

} // namespace
