// SPDX-License-Identifier: LicenseRef-ORVALD
// UNDO, U and REDO: the document's journal as a user drives it.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace orvald {

class Document;

/// What the user types next; nothing when there is no more.
using NextTyped = std::function<std::optional<std::u16string>()>;

/// Runs the command when `name` (upper case) is one of these, and takes its options. UNDO: a number
/// of steps, Mark, Back (without a mark it asks whether all is meant), Begin and End, which nest;
/// Auto and Control are taken and change nothing. While an object of the drawing is open they only
/// say so.
bool runUndoCommand(Document& document, std::u16string_view name, const NextTyped& next);

} // namespace orvald
