// SPDX-License-Identifier: LicenseRef-ORVALD
// The host's own commands, a table for each family.
#pragma once

#include "commands/command.h"

#include <span>
#include <string_view>

namespace orvald {

struct Verb
{
    std::u16string_view name; // upper case
    Task<> (*run)(Command& command);
    bool ownSteps = false; // takes steps back itself, so that it is none
};

std::span<const Verb> curveVerbs();    // LINE, CIRCLE, ARC, POINT, RECTANG ...
std::span<const Verb> polylineVerbs(); // PLINE
std::span<const Verb> textVerbs();     // TEXT
std::span<const Verb> moveVerbs();     // ERASE, MOVE, COPY, ROTATE, SCALE, MIRROR, SELECT
std::span<const Verb> layerVerbs();    // LAYER
std::span<const Verb> settingVerbs();  // SETVAR, COLOR, LINETYPE, STYLE ...
std::span<const Verb> systemVerbs();   // UCS
std::span<const Verb> viewVerbs();     // REGEN, REDRAW
std::span<const Verb> blockVerbs();    // BLOCK, INSERT
std::span<const Verb> explodeVerbs();  // EXPLODE
std::span<const Verb> changeVerbs();   // CHANGE, CHPROP, PURGE
std::span<const Verb> cutVerbs();      // BREAK, TRIM, EXTEND
std::span<const Verb> offsetVerbs();   // OFFSET, FILLET, STRETCH
std::span<const Verb> peditVerbs();    // PEDIT
std::span<const Verb> undoVerbs();     // UNDO, U, REDO

/// Nothing when the host has no such command.
std::optional<Verb> findVerb(std::u16string_view name);
/// The names of all of them.
std::vector<std::u16string_view> verbNames();
/// True for a command that is known to programs and that this host does not have.
bool isVerbElsewhere(std::u16string_view name);

/// The command that asks for a new value of a variable and has the variable's name.
std::optional<Verb> variableVerb(std::u16string_view variable);

} // namespace orvald
