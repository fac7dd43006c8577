// SPDX-License-Identifier: LicenseRef-ORVALD
// Where the host speaks: the text window on stdout, messages and boxes on stderr, always UTF-8. A
// box never waits: its answer comes from the policy and is shown with the question.
#pragma once

#include "progress_meter.h"

#include <string>
#include <string_view>
#include <utility>

namespace orvald {

class Console
{
public:
    Console();
    enum class Level
    {
        quiet,
        normal,
        verbose
    };

    void setLevel(Level level) { level_ = level; }
    bool quiet() const { return level_ == Level::quiet; }
    bool verbose() const { return level_ == Level::verbose; }
    void setBoxAnswer(bool ok) { boxAnswer_ = ok; }

    /// Text that the program prints.
    void print(std::u16string_view text);
    /// One line of the host about the run, left out when quiet.
    void message(std::string_view line);
    /// A line that must be seen: errors and alerts.
    void warning(std::string_view line);
    /// What an application says about a call of it that fails; kept as well.
    void failure(std::string_view application, std::u16string_view text);
    /// The last such text, taken away.
    std::u16string takeFailure() { return std::exchange(failure_, {}); }
    /// A question to the user, without a line end of its own.
    void prompt(std::u16string_view text);
    /// A box with OK; counted, so that a run can tell its caller.
    void alert(std::u16string_view text);
    /// A box with OK and Cancel, answered by the policy.
    bool askOkCancel(std::u16string_view caption, std::u16string_view text);
    int alerts() const { return alerts_; }
    /// The status bar's meter, on stderr.
    ProgressMeter& meter() { return meter_; }

    /// Ends an unfinished line of the text window and hands everything to the system.
    void finish();
    void flush();

private:
    void writeLine(std::string_view line);

    Level level_ = Level::normal;
    bool boxAnswer_ = false;
    bool atLineStart_ = true;
    int alerts_ = 0;
    std::u16string failure_;
    ProgressMeter meter_;
};

} // namespace orvald
