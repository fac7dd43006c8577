// SPDX-License-Identifier: LicenseRef-ORVALD
// Keyword prompts and status-bar progress.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

inline constexpr LispRow kPromptRows[] = {
    {KT("kex_dl_initget"), notBuilt,
     KT("str help, list of str keywords, [T or nil orflag = T], [int bits = 0]"), KT("str")},
    {KT("kex_dl_StatusBar"), notBuilt, KT("[str text]"), KT("nothing")},
    {KT("kex_dl_StatusBarSet"), notBuilt, KT("num fraction"), KT("nothing")},
    {KT("kex_dl_StatusBarRun"), notBuilt, KT("[str text], [int ms]"), KT("nothing")},
    {KT("kex_dl_StatusBarStop"), notBuilt, KT(""), KT("nil")},
    {KT("kex_dl_StatusBarRestore"), notBuilt, KT(""), KT("nil")},
};

} // namespace KEX
