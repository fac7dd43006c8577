// SPDX-License-Identifier: LicenseRef-ORVALD
// Selecting objects for a command.
#pragma once

#include "commands/command.h"
#include "commands/object_chooser.h"

#include <vector>

namespace orvald {

/// The entity of the current space that a token names or picks; nothing when it does neither.
std::optional<Picked> pickedBy(Command& command, const Token& token);

/// "Select objects" up to Enter.
class SelectionWait final : public Wait
{
public:
    /// `changeable`: leaves out what stands on locked layers. `once`: the first choice is all.
    SelectionWait(Command& command, bool changeable, bool once = false);
    Taken take(const Token& token) override;
    std::u16string_view wanted() const override { return u"an object"; }
    std::u16string_view prompt() const override { return chooser_.prompt(); }
    /// In the order of their selection; they are the previous selection now.
    std::vector<drawing::Index> await_resume();

private:
    bool changeable_, once_;
    ObjectChooser chooser_;
};

} // namespace orvald
