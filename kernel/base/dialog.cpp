// SPDX-License-Identifier: LicenseRef-ORVALD
// Boxes and dialog windows under the headless host, which has no windows: its boxes are lines on
// the console, and a dialog is never open unless a test says so.
#include "kex/dialog.h"

#include "hostapi/headless.h"
#include "hostapi/lisp.h"

#include <vector>

namespace KEX {
namespace {

const DialogSource* dialogSource = nullptr;

std::vector<void*>& dialogStack()
{
    static std::vector<void*> stack;
    return stack;
}

} // namespace

void* DlgEnv_st::hWndApplic = nullptr;

void alert(TextView text) { acedAlert(CKexString(text).c_str()); }

bool askOkCancel(TextView caption, TextView text)
{
    return hostAskOkCancel(CKexString(caption).c_str(), CKexString(text).c_str());
}

void dlgStackPush(void* window) { dialogStack().push_back(window); }

void* dlgStackPop()
{
    std::vector<void*>& stack = dialogStack();
    if (stack.empty()) return nullptr;
    void* window = stack.back();
    stack.pop_back();
    return window;
}

bool dlgStackIsEmpty() { return dialogStack().empty(); }

bool dialogActive() { return dialogSource != nullptr && dialogSource->isActive(); }

void* activeWindow() { return dialogSource == nullptr ? nullptr : dialogSource->window(); }

void dialogSourceSet(const DialogSource* source) { dialogSource = source; }

} // namespace KEX
