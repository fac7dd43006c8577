// SPDX-License-Identifier: LicenseRef-ORVALD
// Names of symbols and of library parts.
#pragma once

#include "kex/string.h"

namespace KEX {

/// A text as a name that the host's symbol tables take: each of < > / \ " : ; ? * | , = ` and the
/// codes below 32 becomes `replacement`, blanks at the ends go, and the name is cut to 255 units.
KEX_BASE_API CKexString str_name(TextView text, ACHAR replacement);

/// "libtype:name"; with an empty type the name alone.
KEX_BASE_API CKexString str_lib(TextView libtype, TextView name);
/// What follows the first ":", the whole text where there is none.
KEX_BASE_API CKexString str_lib_name(TextView text);
/// What stands before the first ":", "" where there is none.
KEX_BASE_API CKexString str_lib_libtype(TextView text);

} // namespace KEX
