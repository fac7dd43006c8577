// SPDX-License-Identifier: LicenseRef-ORVALD
// DIESEL, the language of macros in menus and of the status line: text in which $(name,arg,...)
// stands for a value. Programs reach it by (menucmd "M=...").
#pragma once

#include "lisp/world.h"

#include <string>
#include <string_view>

namespace orvald {

/// The text with every call replaced by its value. What is wrong shows in it, as in the host: "$?"
/// for a call that does not end, "$(name)??" for an unknown function, "$(name,??)" for wrong
/// arguments, "$(++)" for too much of everything.
std::u16string dieselText(lisp::World& world, std::u16string_view macro);

} // namespace orvald
