// SPDX-License-Identifier: LicenseRef-ORVALD
#include "commands/command_line.h"

#include "commands/verbs.h"
#include "document.h"

namespace orvald {

/// The active command; the task goes before what its frame refers to.
struct CommandLine::Running
{
    Running(Document& document, const Verb& verb)
        : command(document, verb.name), task(verb.run(command))
    {
        if (!verb.ownSteps) group.emplace(document);
    }
    Command command;
    std::optional<UndoGroup> group;
    Task<> task;
};

CommandLine::CommandLine(Document& document) : document_(document) {}
CommandLine::~CommandLine() = default;

std::u16string_view CommandLine::name() const { return running_->command.name(); }
std::u16string_view CommandLine::prompt() const { return running_->command.waiting()->prompt(); }
std::u16string_view CommandLine::wanted() const { return running_->command.waiting()->wanted(); }

void CommandLine::start(const Verb& verb)
{
    running_ = std::make_unique<Running>(document_, verb);
    document_.user().command = verb.name;
    running_->task.start();
    proceed();
}

bool CommandLine::give(const Token& token)
{
    Wait& wait = *running_->command.waiting();
    try {
        switch (wait.take(token)) {
        case Taken::refused: return false;
        case Taken::more: return true;
        case Taken::done: break;
        }
    } catch (...) {
        end();
        throw;
    }
    wait.goOn();
    proceed();
    return true;
}

void CommandLine::cancel()
{
    if (running_ == nullptr) return;
    running_->command.waiting()->cancel();
    try {
        if (running_->task.done()) running_->task.take();
    } catch (const CommandCancelled&) {
    } catch (...) {
        end();
        throw;
    }
    end();
}

/// After the command has run on: it waits again, or has ended.
void CommandLine::proceed()
{
    if (running_->task.done()) {
        const std::unique_ptr<Running> ended = std::move(running_);
        end();
        ended->group.reset();
        ended->task.take();
    }
    document_.tellChanges();
}

void CommandLine::end()
{
    running_.reset();
    document_.user().command.clear();
    document_.tellChanges();
}

} // namespace orvald
