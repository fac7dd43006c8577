// SPDX-License-Identifier: LicenseRef-ORVALD
// Sessions for tests of the whole system: one at a time, none with the user's own home folder.
#pragma once

#include "files.h"
#include "session/session.h"

#include <gtest/gtest.h>
#include <string>

namespace kextest {

#if defined(__SANITIZE_ADDRESS__)
/// The sanitizer owns the fault signals, and keeps memory that was given back.
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif

constexpr const char* kMain = KEX_BIN_DIR "/Kex_2015_18_32_Main.arx";

/// A session with the kernel and a new drawing; its home is a new folder unless the options name
/// one.
struct Running
{
    explicit Running(const orvald::SessionOptions& options = {}) : session(withHome(options))
    {
        EXPECT_EQ(session.problem(), "");
        std::string problem;
        EXPECT_TRUE(session.newDrawing(problem)) << problem;
    }
    /// The value of an expression, "! message" for an error.
    std::string value(std::string_view expression)
    {
        const orvald::Evaluation result = session.eval(expression);
        return result.ok ? result.value : "! " + result.error;
    }

    /// What an expression prints.
    std::string printed(std::string_view expression)
    {
        testing::internal::CaptureStdout();
        value(expression);
        session.finishOutput();
        return testing::internal::GetCapturedStdout();
    }

    TempFolder home;
    orvald::Session session;

private:
    orvald::SessionOptions withHome(orvald::SessionOptions options) const
    {
        if (options.home.empty()) options.home = home.path();
        options.quiet = true;
        return options;
    }
};

} // namespace kextest
