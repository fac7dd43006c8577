// SPDX-License-Identifier: LicenseRef-ORVALD
#include "command_stack.h"

#include "application.h"
#include "document.h"
#include "registries.h"
#include "text/letters.h"

#include <algorithm>
#include <optional>
#include <ranges>
#include <utility>

namespace orvald {
namespace {

/// Names the running command for a block.
class RunningCommand
{
public:
    RunningCommand(UserState& user, const std::u16string& name)
        : user_(user), before_(std::exchange(user.command, name))
    {
    }
    ~RunningCommand() { user_.command = before_; }
    RunningCommand(const RunningCommand&) = delete;
    RunningCommand& operator=(const RunningCommand&) = delete;

private:
    UserState& user_;
    std::u16string before_;
};

} // namespace

void runCommand(Document* document, CommandStack::Command command)
{
    std::optional<RunningCommand> running;
    std::optional<Document::RunLock> lock;
    std::optional<UndoGroup> group;
    if (document != nullptr) {
        running.emplace(document->user(), command.globalName);
        group.emplace(*document);
        if ((command.flags & ACRX_CMD_SESSION) == 0) lock.emplace(*document);
    }
    if (command.owner == nullptr) command.function();
    else command.owner->runCommand(command.function, command.globalName);
}

Acad::ErrorStatus CommandStack::addCommand(const ACHAR* group, const ACHAR* globalName,
                                           const ACHAR* localName, Adesk_Int32 flags,
                                           AcRxFunctionPtr function, AcEdUIContext*, int, void*,
                                           AcEdCommand** command)
{
    const auto empty = [](const ACHAR* text) { return text == nullptr || *text == 0; };
    if (empty(group) || empty(globalName) || empty(localName) || function == nullptr) {
        return Acad::eInvalidInput;
    }
    Command fresh{text::upperText(group),
                  text::upperText(globalName),
                  text::upperText(localName),
                  flags,
                  function,
                  Application::current()};
    const bool taken = std::ranges::any_of(commands_, [&](const Command& other) {
        return other.group == fresh.group &&
               (other.globalName == fresh.globalName || other.localName == fresh.localName);
    });
    if (taken) return Acad::eDuplicateKey;
    commands_.push_back(std::move(fresh));
    if (command != nullptr) *command = nullptr;
    return Acad::eOk;
}

Acad::ErrorStatus CommandStack::removeCmd(const ACHAR* group, const ACHAR* globalName)
{
    if (group == nullptr || globalName == nullptr) return Acad::eInvalidInput;
    const auto removed = std::erase_if(commands_, [&](const Command& command) {
        return command.group == text::upperText(group) &&
               command.globalName == text::upperText(globalName);
    });
    return removed != 0 ? Acad::eOk : Acad::eKeyNotFound;
}

Acad::ErrorStatus CommandStack::removeGroup(const ACHAR* group)
{
    if (group == nullptr) return Acad::eInvalidInput;
    const auto removed = std::erase_if(
        commands_, [&](const Command& command) { return command.group == text::upperText(group); });
    return removed != 0 ? Acad::eOk : Acad::eKeyNotFound;
}

void CommandStack::removeOf(const Application& owner)
{
    std::erase_if(commands_, [&](const Command& command) { return command.owner == &owner; });
}

const CommandStack::Command* CommandStack::find(std::u16string_view text) const
{
    if (text.starts_with(u'.')) text.remove_prefix(1);
    const std::u16string typed = text::upperText(text);
    const auto newest = [&](auto&& matches) -> const Command* {
        for (const Command& command : std::views::reverse(commands_)) {
            if (matches(command)) return &command;
        }
        return nullptr;
    };
    if (!typed.starts_with(u'_')) {
        return newest([&](const Command& command) { return command.localName == typed; });
    }
    const std::u16string bare = typed.substr(1);
    const Command* plain =
        newest([&](const Command& command) { return command.globalName == bare; });
    return plain != nullptr
               ? plain
               : newest([&](const Command& command) { return command.globalName == typed; });
}

} // namespace orvald
