// SPDX-License-Identifier: LicenseRef-ORVALD
// The AutoLISP functions that need a drawing, the user or the host: entities, selection sets,
// tables, system variables, prompts, commands, temporary graphics, modules.
#pragma once

#include "lisp/world.h"

#include <span>

namespace orvald {

/// Adds all of them to a document's world.
void defineDrawingFunctions(lisp::World& world);

// One table for each subject.
std::span<const lisp::Builtin> entityFunctions();     // entget, entmod, entmake ...
std::span<const lisp::Builtin> selectionFunctions();  // ssget, ssadd, sslength ...
std::span<const lisp::Builtin> tableFunctions();      // tblsearch, dictadd, regapp ...
std::span<const lisp::Builtin> systemFunctions();     // getvar, setvar, alert, arxload ...
std::span<const lisp::Builtin> commandFunctions();    // command, vl-cmdf ...
std::span<const lisp::Builtin> graphicsFunctions();   // grdraw, redraw, trans, textbox ...
std::span<const lisp::Builtin> curveFunctions();      // vlax-curve-getPointAtDist ...
std::span<const lisp::Builtin> automationFunctions(); // vlax-get-acad-object, undo marks
std::span<const lisp::Builtin> inputFunctions();      // initget, getpoint, getstring ...
std::span<const lisp::Builtin> pickFunctions();       // entsel, nentsel ...

/// True for a function of dialogs, automation objects or reactors that this host has not.
bool isFunctionElsewhere(std::u16string_view name);

} // namespace orvald
