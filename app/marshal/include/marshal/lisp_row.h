// SPDX-License-Identifier: LicenseRef-ORVALD
// A row of the LISP function table, and what every handler needs to know about the running call.
#pragma once

#include "hostapi/resbuf.h"
#include "kex/text.h"

#include <span>

namespace KEX {

/// A handler reads its arguments (null when there are none), sets one result and gives RTNORM;
/// after argError it gives RTERROR.
using LispFn = int(const resbuf* args);

/// One LISP function. The position of a row in the table is its function code.
struct LispRow
{
    const ACHAR* name;
    LispFn* handler;
    const ACHAR* arguments; // as a LISP author reads them: "str s, int start, [int count]"
    const ACHAR* result;
};

/// The handler of every row whose function does not exist yet: says "<name>: nicht verfügbar" and
/// fails.
LispFn notBuilt;

/// Makes the table known that is defined, dispatched to and looked up. It must outlive every call.
void setLispTable(std::span<const LispRow> table);
std::span<const LispRow> lispTable();

/// Table name of the function that the host reports as running; "" when there is none.
const ACHAR* kexLispCurrentName();

/// Reports a wrong argument: "<function>: Argument <position> ist ungültig"; position 0 names none.
void argError(int position);

} // namespace KEX
