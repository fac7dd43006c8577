// SPDX-License-Identifier: LicenseRef-ORVALD
// The message catalog: texts by key and country, from .rsx files.
//
// A catalog is UTF-8 text. Its first line is "KEXRSX 1"; "[49]" opens the section of a country, ";"
// begins a comment line, "KEY=long|short|keyword" is an entry, whose short and keyword forms may be
// missing. In texts "||" is a bar, \n a line end, \t a tab, \s a blank at an end, \\ a backslash.
// Keys are equal without regard to case; of a repeated key the last one counts. A line that is none
// of these is skipped and counted.
#pragma once

#include "kex/string.h"

#include <optional>

namespace KEX {

enum class MsgForm
{
    full,
    abbreviated,
    keyword
};

/// Loads a catalog, before all that are loaded already; loading a file again replaces it. A key
/// that is not found as it stands is looked for with the prefix before it. False, and no change,
/// when the file cannot be read or its first line is another. `badLines` receives the number of
/// skipped lines.
KEX_BASE_API bool msgLoad(TextView file, TextView prefix, int* badLines = nullptr);
/// Drops the catalogs loaded under a prefix and says how many.
KEX_BASE_API int msgUnload(TextView prefix);
/// Countries whose texts are taken, in this order; "49" always comes last.
KEX_BASE_API void msgLangSet(TextView country, TextView second = KT(""), TextView third = KT(""));
/// The first country; "49" before it is set.
KEX_BASE_API CKexString msgLang();
/// Text of a key: what msgSet has put in its place, else the first hit by country, and within a
/// country by catalog, the newest first; `fallback` when there is none. A form that the text does
/// not have is its full one.
KEX_BASE_API CKexString msgGet(TextView key, TextView fallback = KT(""),
                               MsgForm form = MsgForm::full);
/// Puts a text in the place of what the catalogs say, until it is taken back with nothing.
KEX_BASE_API void msgSet(TextView key, const std::optional<CKexString>& text);

} // namespace KEX
