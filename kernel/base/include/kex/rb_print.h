// SPDX-License-Identifier: LicenseRef-ORVALD
// A chain as LISP text that a person can read and LISP can load again.
#pragma once

#include "kex/resbuf_chain.h"

namespace KEX {

/// One line for each value of the chain. Texts are quoted with \n \t \r \e \" \\ and \nnn, reals
/// read back to the same number, a pair has its dot whichever form the chain has it in. An entity
/// name becomes (handent "2F"), or nil and a comment when the host has no handle for it; so does
/// every other value that LISP cannot read. A group code stands before its value in a pair. An
/// unbalanced chain is printed as it stands, and a comment says what is missing.
KEX_BASE_API CKexString rbPrint(const resbuf* chain);

} // namespace KEX
