// SPDX-License-Identifier: LicenseRef-ORVALD
// Keyword prompts and status-bar progress.
#pragma once

#include "marshal/lisp_row.h"

namespace KEX {

LispFn dlInitget, dlStatusBar, dlStatusBarSet, dlStatusBarRun, dlStatusBarStop;

inline constexpr LispRow kPromptRows[] = {
    {KT("kex_dl_initget"), dlInitget,
     KT("str help, list of str keywords, [T or nil orflag = T], [int bits = 0]"), KT("str")},
    {KT("kex_dl_StatusBar"), dlStatusBar, KT("[str text]"), KT("nothing")},
    {KT("kex_dl_StatusBarSet"), dlStatusBarSet, KT("num fraction"), KT("nothing")},
    {KT("kex_dl_StatusBarRun"), dlStatusBarRun, KT("[str text], [int ms]"), KT("nothing")},
    {KT("kex_dl_StatusBarStop"), dlStatusBarStop, KT(""), KT("nil")},
    {KT("kex_dl_StatusBarRestore"), dlStatusBarStop, KT(""), KT("nil")},
};

} // namespace KEX
