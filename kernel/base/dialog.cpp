// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/dialog.h"

#include "dialog_platform.h"
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

bool dialogActive()
{
    return dialogSource == nullptr ? platform::dialogActive() : dialogSource->isActive();
}

void* activeWindow()
{
    return dialogSource == nullptr ? platform::activeWindow() : dialogSource->window();
}

void dialogSourceSet(const DialogSource* source) { dialogSource = source; }

} // namespace KEX
