// SPDX-License-Identifier: LicenseRef-ORVALD
// Commands of the loaded applications, in groups; the newest group with a name wins.
#pragma once

#include "hostapi/commands.h"

#include <string>
#include <string_view>
#include <vector>

namespace orvald {

class Application;
class Document;

class CommandStack final : public AcEdCommandStack
{
public:
    struct Command
    {
        std::u16string group, globalName, localName;
        Adesk_Int32 flags = 0;
        AcRxFunctionPtr function = nullptr;
        Application* owner = nullptr;
    };

    Acad::ErrorStatus addCommand(const ACHAR* group, const ACHAR* globalName,
                                 const ACHAR* localName, Adesk_Int32 flags,
                                 AcRxFunctionPtr function, AcEdUIContext* context, int functionCode,
                                 void* resource, AcEdCommand** command) override;
    Acad::ErrorStatus removeCmd(const ACHAR* group, const ACHAR* globalName) override;
    Acad::ErrorStatus removeGroup(const ACHAR* group) override;

    /// Takes away what an application left behind when it was unloaded.
    void removeOf(const Application& owner);
    /// The command that a user means who types `text`: a leading "_" asks for the global name "x",
    /// then for the global name "_x" as it stands; else the local name. A leading "." is skipped.
    /// Null when there is none. The pointer holds until the stack changes.
    const Command* find(std::u16string_view text) const;

private:
    std::vector<Command> commands_; // oldest first
};

/// Runs a command of an application, or of the host when it has no owner. In a document it is the
/// running command, finds the document locked unless it is one of the session, and is one step to
/// take back. `document` may be null.
void runCommand(Document* document, CommandStack::Command command);

} // namespace orvald
