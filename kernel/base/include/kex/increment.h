// SPDX-License-Identifier: LicenseRef-ORVALD
// Trailing counters, by which positions, parts and labels are numbered: "P099" is followed by
// "P100", "AZ" by "BA", "Pos" by "Pos1".
//
// A text falls into parts: runs of digits, runs of letters, and delimiters, each a part of its own.
// Delimiters are the printable ASCII characters that are neither, the blank included; every other
// unit counts as a letter. A run of digits is a counter, and so is a run of one or two letters A-Z
// or a-z of one case; other letters are words.
#pragma once

#include "kex/array.h"
#include "kex/string.h"

namespace KEX {

KEX_BASE_API bool str_incr_delimit(ACHAR unit);
/// The type of counter that a unit belongs to: '0' for a digit, 'A' and 'a' for the letters A-Z and
/// a-z. False, and the type left alone, for any other.
KEX_BASE_API bool str_incr_type(ACHAR& type, ACHAR unit);
/// Cuts a text into its parts, appended in order; joined they are the text again. False for the
/// empty text.
KEX_BASE_API bool str_incr_parse(CKexArrayTempl<CKexString>& parts, TextView text);

/// Moves the counter of a text: n steps up, for 0 one, for a negative n so many down, but not below
/// 0 and A. The counter is the last one when only delimiters follow it; where there is none, "1" is
/// appended, whatever n.
///
/// Digits count without limit and keep their width where they begin with a zero ("099" "100", "010"
/// "009"). Letters count like the columns of a table: A to Z, AA to ZZ, AAA. A carry never leaves
/// its run: "A9" is followed by "A10".
KEX_BASE_API CKexString& str_increment(CKexString& text, int n);

} // namespace KEX
