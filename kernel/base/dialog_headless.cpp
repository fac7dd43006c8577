// SPDX-License-Identifier: LicenseRef-ORVALD
// The headless host has no windows: its boxes are lines on the console, and a dialog is never open.
#include "dialog_platform.h"
#include "hostapi/headless.h"
#include "kex/dialog.h"

namespace KEX {

bool askOkCancel(TextView caption, TextView text)
{
    return hostAskOkCancel(CKexString(caption).c_str(), CKexString(text).c_str());
}

bool platform::dialogActive() { return false; }

void* platform::activeWindow() { return nullptr; }

} // namespace KEX
