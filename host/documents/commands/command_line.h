// SPDX-License-Identifier: LicenseRef-ORVALD
// The command line of a document: the host's own commands by name, and the one that runs, which
// waits for its next input from one call to the next.
#pragma once

#include "commands/command.h"

#include <memory>
#include <string_view>

namespace orvald {

struct Verb;

class CommandLine
{
public:
    explicit CommandLine(Document& document);
    ~CommandLine();
    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;

    /// True while a command waits for input.
    bool isActive() const { return running_ != nullptr; }
    /// Name of the active command, upper case.
    std::u16string_view name() const;
    /// What the active command asks for, and what would be an answer.
    std::u16string_view prompt() const;
    std::u16string_view wanted() const;

    /// Starts a command, only while none is active. Throws as give does.
    void start(const Verb& verb);
    /// Gives the active command its next input; false, and nothing done, when it does not fit.
    /// Throws CommandRefusal when the command has ended because it cannot go on.
    bool give(const Token& token);
    /// Ends the active command, if any; what it has drawn stays.
    void cancel();

private:
    struct Running;
    void proceed();
    void end();

    Document& document_;
    std::unique_ptr<Running> running_;
};

} // namespace orvald
