// SPDX-License-Identifier: LicenseRef-ORVALD
// Where answers to prompts come from: a list that was given, else standard input, one answer a
// line. It never waits for input that cannot come.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvald {

class InputSource
{
public:
    /// Answers to give, in order, instead of reading standard input.
    void setAnswers(std::vector<std::string> lines);
    /// The next answer without its line end; nothing at the end of input.
    std::optional<std::string> nextLine();
    /// A line of standard input without its end; nothing at the end of input and after a signal.
    static std::optional<std::string> typedLine();
    /// How many there were.
    static int typedLines();
    /// True when the user sees what is typed, so that nobody needs to repeat it.
    bool showsItself() const;
    /// Answers that were given and not asked for.
    std::size_t unused() const { return answers_.size() - next_; }

    /// A prompt found no input: remembered for the exit status.
    void noteMissing(std::u16string prompt) { missing_ = std::move(prompt); }
    const std::optional<std::u16string>& missing() const { return missing_; }

private:
    bool fromList_ = false;
    std::vector<std::string> answers_;
    std::size_t next_ = 0;
    std::optional<std::u16string> missing_;
};

} // namespace orvald
