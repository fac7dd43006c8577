// SPDX-License-Identifier: LicenseRef-ORVALD
// Handles of entities, which outlast the session, and their names, which do not.
#pragma once

#include "kex/ename.h"
#include "kex/string.h"

namespace KEX {

/// Handle of an entity or object, upper-case hexadecimal; "" when the name names nothing, or
/// something erased.
KEX_BASE_API CKexString entityHandle(const CAdsName& name);
/// The entity of the current drawing that has this handle, erased ones included; the null name when
/// there is none.
KEX_BASE_API CAdsName entityOfHandle(TextView handle);

} // namespace KEX
