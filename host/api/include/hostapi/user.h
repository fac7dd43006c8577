// SPDX-License-Identifier: LicenseRef-ORVALD
// What an application sets up for the user: the rules of the next input, and the progress meter of
// the status bar.
#pragma once

#include "hostapi/types.h"

extern "C" {
/// Control bits and keywords, apart by blanks, for the next input of the current document alone;
/// without a list null. RTNORM, or RTERROR when no document is open.
HOST_API int acedInitGet(int bits, const ACHAR* keywords);

// The meter may be moved and taken away from any thread. 0, or -1 when there is none to move.
HOST_API int acedSetStatusBarProgressMeter(const ACHAR* label, int low, int high);
HOST_API int acedSetStatusBarProgressMeterPos(int position);
HOST_API void acedRestoreStatusBar();
}
