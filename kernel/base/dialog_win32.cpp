// SPDX-License-Identifier: LicenseRef-ORVALD
#include "dialog_platform.h"
#include "kex/dialog.h"
#include "kexos/desktop.h"

namespace KEX {

bool askOkCancel(TextView caption, TextView text)
{
    return kexos::askOkCancel(toUtf8(caption), toUtf8(text));
}

// A box of the host bars its main window.
bool platform::dialogActive() { return kexos::isBarred(DlgEnv_st::hWndApplic); }

void* platform::activeWindow() { return kexos::focusWindow(); }

} // namespace KEX
