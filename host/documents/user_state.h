// SPDX-License-Identifier: LicenseRef-ORVALD
// What a document remembers of its user between calls: the rules for the next input, selections,
// the command that runs.
#pragma once

#include "drawing/point.h"
#include "input_rules.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orvald {

/// What the display shows, in its own coordinates.
struct View
{
    drawing::Point centre;
    double height = 0.0;
};

struct UserState
{
    InputRules nextInput;                    // set by initget, taken by the next input
    std::vector<std::uint64_t> previous;     // entities of the last selection
    std::vector<std::uint64_t> picked;       // entities selected before a command (sssetfirst)
    std::u16string command;                  // name of the running command, empty for none
    std::vector<drawing::Transform> systems; // user coordinate systems before the present one
    std::vector<View> views;                 // of the model, before the present one
    std::u16string annotationScale = u"1:1";
};

} // namespace orvald
