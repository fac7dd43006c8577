// SPDX-License-Identifier: LicenseRef-ORVALD
// Label texts: a main text and variants of it, "Blech|44:sheet|KURZ:Bl", where "||" is a bar. A
// variant's context is the number of a country or any word without ":" and "|", without regard to
// case. A text that begins with "@" is a key of the message catalog; "@@" is a "@" of the text.
#pragma once

#include "kex/string.h"

#include <optional>

namespace KEX {

/// What a label says in a context: its first variant for it, else the main text; "||" as a bar, and
/// the catalog's text for a key. A key that no catalog has stands as it is, with its "@".
KEX_BASE_API CKexString label_get(TextView label, TextView context);
/// The same in the language that is set (msgLang).
KEX_BASE_API CKexString label_get(TextView label);

/// True for what may be a context: not empty, without ":" and "|".
KEX_BASE_API bool labelIsContext(TextView context);
/// The label with another text in a context, or none. The empty context is the main text, which is
/// only emptied. A new variant stands last, one of several for a context that is changed becomes
/// the only one. Bars of the text are doubled here; a leading "@" is not.
KEX_BASE_API CKexString label_set(TextView label, TextView context,
                                  const std::optional<CKexString>& text);

} // namespace KEX
