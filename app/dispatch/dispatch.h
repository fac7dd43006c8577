// SPDX-License-Identifier: LicenseRef-ORVALD
// Definition of the LISP functions in the current document, and the one way into every handler.
#pragma once

namespace KEX {

/// Defines every row of the table in the current document. RTNORM, or RTERROR as soon as the host
/// refuses one; what was defined before stays defined.
int kexLispDefineAll();
/// Takes every function out of the current document; always RTNORM.
int kexLispUndefineAll();
/// Both, for a document in which functions are missing; the command "kex_defun".
int kexLispRedefine();

/// Called by the host for every function code: RSRSLT or RSERR.
int kexLispDispatch();

/// Raises a fault after the running handler has returned, for code that must not throw by itself.
void kexPendFault(unsigned code);

} // namespace KEX
