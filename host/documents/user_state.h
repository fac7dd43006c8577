// SPDX-License-Identifier: LicenseRef-ORVALD
// What a document remembers of its user between calls: the rules for the next input, selections,
// the command that runs.
#pragma once

#include "input_rules.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orvald {

struct UserState
{
    InputRules nextInput;                // set by initget, taken by the next input
    std::vector<std::uint64_t> previous; // entities of the last selection
    std::vector<std::uint64_t> picked;   // entities selected before a command (sssetfirst)
    std::u16string command;              // name of the running command, empty for none
    std::u16string annotationScale = u"1:1";
};

} // namespace orvald
