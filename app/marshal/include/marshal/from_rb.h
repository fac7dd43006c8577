// SPDX-License-Identifier: LicenseRef-ORVALD
// Entity lists from an argument: a list of entity names or a selection set.
#pragma once

#include "hostapi/array.h"
#include "hostapi/database.h"
#include "kex/ename.h"

struct resbuf;

namespace KEX {

/// Reads one argument into `out` and moves `rb` past it; with a null `rb` both stay as they are.
/// A selection set gives all its members. A list gives its entity names up to the first node of
/// another type; `rb` then stands one node past that node, normally past the list's end. Anything
/// else is skipped and gives nothing, a single entity name included: callers pass a list or a set.
/// A list without any name gives nothing too.
CKexEnameArray& fromRb(CKexEnameArray& out, const resbuf*& rb);
/// The same as ids; a name that no open drawing has is left out.
AcArray<AcDbObjectId>& fromRb(AcArray<AcDbObjectId>& out, const resbuf*& rb);

} // namespace KEX
