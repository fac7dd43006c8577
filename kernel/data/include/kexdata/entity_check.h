// SPDX-License-Identifier: LicenseRef-ORVALD
// Entity references that leave the data for LISP.
#pragma once

#include "hostapi/resbuf.h"
#include "kexdata/export.h"

namespace KEX {

/// Makes the entity references of a chain current. May change the nodes, not their number.
using RbValidate = void (*)(resbuf* chain);

/// A reference to what is erased, or to nothing in an open drawing, becomes RTNIL.
KEX_DATA_API void chk_ent(resbuf* chain);

} // namespace KEX
