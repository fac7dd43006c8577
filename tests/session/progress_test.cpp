// SPDX-License-Identifier: LicenseRef-ORVALD
// Keyword prompts as the user answers them, and the status bar's meter as programs move it.
#include "session_support.h"

#include <array>
#include <chrono>
#include <cmath>
#include <thread>

namespace {

using kextest::Running;

orvald::SessionOptions answering(const std::vector<std::string>& answers)
{
    orvald::SessionOptions options;
    options.answers = answers;
    return options;
}

TEST(KeywordPrompt, SetsTheRulesOfTheNextInput)
{
    Running running(answering({"n", "neuer---punkt", "", "Ja"}));
    testing::internal::CaptureStderr(); // the questions
    running.value("(kex_dl_initget \"\" '(\"Ja\" \"Nein\"))");
    EXPECT_EQ(running.value("(getkword \"? \")"), "\"Nein\"");
    running.value("(kex_dl_initget \"\" '(\"Neuer Punkt\"))");
    EXPECT_EQ(running.value("(getkword \"? \")"), "\"Neuer---Punkt\"");
    // Bit 1 refuses the empty answer and asks again.
    running.value("(kex_dl_initget \"\" '(\"Ja\" \"Nein\") T 1)");
    EXPECT_EQ(running.value("(getkword \"? \")"), "\"Ja\"");
    testing::internal::GetCapturedStderr();
}

struct Move
{
    const char* fraction;
    int position;
};
constexpr std::array kMoves = {
    Move{"0.555", 55},    Move{"1", 100},    Move{"1.5", 100},   Move{"-0.2", 0},
    Move{"0.999", 99},    Move{"-0.001", 0}, Move{"1e300", 100}, Move{"-1e300", 0},
    Move{"1000000", 100}, Move{"0.29", 28}, // 0.29 * 100 lies below 29
};

TEST(StatusBar, MovesThePresentMeter)
{
    Running running;
    running.value("(kex_dl_StatusBarSet 0.5)");
    EXPECT_FALSE(running.session.meter().isShown);
    running.value("(kex_dl_StatusBar \"Kanten\")");
    const orvald::MeterState shown = running.session.meter();
    EXPECT_TRUE(shown.isShown);
    EXPECT_EQ(shown.label, "Kanten");
    EXPECT_EQ(shown.low, 0);
    EXPECT_EQ(shown.high, 100);
    for (const Move& move : kMoves) {
        SCOPED_TRACE(move.fraction);
        running.value(std::string("(kex_dl_StatusBarSet ") + move.fraction + ")");
        EXPECT_EQ(running.session.meter().position, move.position);
    }
    running.value("(kex_dl_StatusBarSet \"x\")");
    running.value("(kex_dl_StatusBarSet nil)");
    EXPECT_EQ(running.session.meter().position, kMoves.back().position);
}

TEST(StatusBar, ANewMeterOutlivesTheOneThatItReplaces)
{
    Running running;
    running.value("(kex_dl_StatusBar \"a\")");
    running.value("(kex_dl_StatusBar 5)"); // no text
    EXPECT_TRUE(running.session.meter().isShown);
    EXPECT_EQ(running.session.meter().label, "");
    running.value("(kex_dl_StatusBarRestore)");
    EXPECT_FALSE(running.session.meter().isShown);
    running.value("(kex_dl_StatusBarSet 0.5)");
    EXPECT_EQ(running.session.meter().movements, 0);
}

/// Runs the animation until it has moved a few times; the steps that were seen.
std::vector<int> positionsOf(Running& running, const std::string& call, std::size_t count)
{
    using std::chrono::steady_clock;
    running.value(call);
    std::vector<int> positions;
    const auto deadline = steady_clock::now() + std::chrono::seconds(20);
    while (positions.size() < count && steady_clock::now() < deadline) {
        const orvald::MeterState state = running.session.meter();
        if (state.movements > 0 && (positions.empty() || positions.back() != state.position)) {
            positions.push_back(state.position);
        }
        std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
    running.value("(kex_dl_StatusBarStop)");
    return positions;
}

TEST(StatusBar, RunsByItselfInStepsOfItsInterval)
{
    Running running;
    struct Run
    {
        const char* call;
        int step;
    };
    // The interval counts behind a text or in its place; anything else keeps the one before.
    for (const Run& run :
         {Run{"(kex_dl_StatusBarRun \"x\" 0)", 5}, Run{"(kex_dl_StatusBarRun 7)", 2},
          Run{"(kex_dl_StatusBarRun \"x\" 8.5)", 2}, Run{"(kex_dl_StatusBarRun \"x\" 12)", 1},
          Run{"(kex_dl_StatusBarRun nil 1)", 1}}) {
        SCOPED_TRACE(run.call);
        const std::vector<int> positions = positionsOf(running, run.call, 4);
        ASSERT_EQ(positions.size(), 4u);
        for (const int position : positions) {
            EXPECT_EQ(position % run.step, 0);
            EXPECT_LT(position, 100);
        }
        EXPECT_FALSE(running.session.meter().isShown);
    }
}

TEST(StatusBar, StopEndsTheAnimationAtOnce)
{
    Running running;
    const auto start = std::chrono::steady_clock::now();
    running.value("(kex_dl_StatusBarRun \"lang\" 50000)"); // cut to half a minute
    // A second one is ignored while the first runs.
    running.value("(kex_dl_StatusBarRun \"zweiter\" 1)");
    EXPECT_EQ(running.session.meter().label, "lang");
    running.value("(kex_dl_StatusBarStop)");
    const int movements = running.session.meter().movements;
    EXPECT_LE(movements, 1);
    EXPECT_FALSE(running.session.meter().isShown);
    // A meter of the program ends an animation as well.
    running.value("(kex_dl_StatusBarRun \"lang\")");
    running.value("(kex_dl_StatusBar \"eigener\")");
    EXPECT_EQ(running.session.meter().label, "eigener");
    EXPECT_TRUE(running.session.meter().isShown);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(15));
}

TEST(StatusBar, UnloadingWhileTheAnimationRunsEndsIt)
{
    Running running;
    std::string reason;
    running.value("(kex_dl_StatusBarRun \"x\" 1)");
    ASSERT_TRUE(running.session.unloadModule(kextest::kMain, reason)) << reason;
    EXPECT_FALSE(running.session.meter().isShown);
    const int movements = running.session.meter().movements;
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_EQ(running.session.meter().movements, movements);
}

} // namespace
