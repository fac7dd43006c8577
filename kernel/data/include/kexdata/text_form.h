// SPDX-License-Identifier: LicenseRef-ORVALD
// Data files as text that a person can read and edit, UTF-8, and back to the same bytes:
//
//   {                                ; a directory: key and value, one child after the other
//     "Name" "Blech 3 mm"            ; text: \" \\ \n \r \t, \u20AC for any unit
//     "PARM" { "TYPE" 2  7 T }       ; keys are texts or integers
//     "P" (1.0 2.0 3.0)              ; a point; reals have a point or an exponent
//     "L" (1 "a" (nil . 2))          ; a list
//     "E" #"2F"                      ; an entity by its handle
//     "X" #7FF8000000000000          ; a real that is not finite, by its bits
//   }
//
// Blanks and line ends stand where they like; ";" begins a comment.
#pragma once

#include "kexdata/export.h"

#include <string>
#include <string_view>

namespace KEX {

/// The text of a data file's bytes. False when they are damaged: `problem` says in which way, and
/// the text holds what could be read.
KEX_DATA_API bool dataToText(std::string_view bytes, std::string& text, std::string& problem);
/// The data file's bytes for a text. False, with the line and the reason in `problem`, for a text
/// that is none.
KEX_DATA_API bool dataFromText(std::string_view text, std::string& bytes, std::string& problem);

} // namespace KEX
