// SPDX-License-Identifier: LicenseRef-ORVALD
// Selecting objects for a command: by name, by set, and by the words that a user types.
#pragma once

#include "commands/command.h"

#include <unordered_set>
#include <vector>

namespace orvald {

/// The entity of the current space that a token names or picks; nothing when it does neither.
std::optional<Picked> pickedBy(Command& command, const Token& token);

/// "Select objects" up to Enter.
class SelectionWait final : public Wait
{
public:
    /// `changeable`: leaves out what stands on locked layers. `once`: the first choice is all.
    SelectionWait(Command& command, bool changeable, bool once = false)
        : Wait(command, u"Select objects: "), changeable_(changeable), once_(once)
    {
    }
    Taken take(const Token& token) override;
    std::u16string_view wanted() const override { return u"an object"; }
    /// In the order of their selection.
    std::vector<drawing::Index> await_resume();

private:
    void put(drawing::Index entity);
    void putAll(const std::vector<drawing::ObjectId>& entities);
    Taken choose(const Token& token);
    Taken takeWord(const Token& token);

    bool changeable_, once_;
    bool removing_ = false;
    std::vector<drawing::Index> order_;
    std::unordered_set<drawing::Index> chosen_;
};

} // namespace orvald
