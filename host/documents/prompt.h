// SPDX-License-Identifier: LicenseRef-ORVALD
// Asking the user: the question goes to stderr, answers come from the host's input, one a line.
// Wrong answers are told and asked for again; input that has ended is a LISP error that names the
// prompt.
#pragma once

#include "drawing/point.h"
#include "input_rules.h"
#include "lisp/world.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace orvald {

/// Notes that a prompt found no input and raises the error that says so.
[[noreturn]] void missingInput(lisp::World& world, std::u16string_view prompt);

/// The optional arguments of an input function, in any order: a base point and the prompt.
struct Prompted
{
    std::optional<drawing::Point> base;
    lisp::Value prompt;
};
Prompted readPrompted(lisp::Args args);
/// The optional prompt, the only argument.
lisp::Value promptOf(lisp::Args args);

/// Asks for one line and gives it as it was typed.
std::u16string askLine(lisp::World& world, std::u16string_view prompt);
/// Tells the user what is wrong with an answer.
void complain(std::u16string_view complaint);

/// One question under the rules of the last initget, which are used up by it.
class Question
{
public:
    /// `prompt`: what the program gave, else the host's own words for this input. Of the rules'
    /// bits only `honoured` count.
    Question(lisp::World& world, lisp::Value prompt, std::u16string_view ownPrompt, int honoured);

    /// True when the bit is set and counts for this input.
    bool has(int bit) const { return (rules_.bits & bit) != 0; }

    /// What an answer means: a value, or nothing, with `complaint` for the user.
    using Reader = std::function<std::optional<lisp::Value>(std::u16string_view text,
                                                            std::u16string& complaint)>;
    /// Asks until there is an answer: the value that `read` made of it, a keyword or other text
    /// that the rules allow as a string, or nil for Enter.
    lisp::Value ask(const Reader& read);

private:
    lisp::World& world_;
    InputRules rules_;
    std::u16string prompt_;
};

} // namespace orvald
