// SPDX-License-Identifier: LicenseRef-ORVALD
// What the user sees outside the drawing: boxes, and the stack of dialog windows. A window handle
// is borrowed, and never looked into.
#pragma once

#include "kex/string.h"

namespace KEX {

/// A box with OK; without windows a line on the console.
KEX_BASE_API void alert(TextView text);
/// A question with OK and Cancel; true for OK.
KEX_BASE_API bool askOkCancel(TextView caption, TextView text);

KEX_BASE_API void dlgStackPush(void* window);
/// The handle pushed last; null when the stack is empty.
KEX_BASE_API void* dlgStackPop();
KEX_BASE_API bool dlgStackIsEmpty();

/// A box of the host's dialog language is open.
KEX_BASE_API bool dialogActive();
/// Window that has the focus; null when there is none.
KEX_BASE_API void* activeWindow();

/// Surroundings of all dialogs.
struct DlgEnv_st
{
    /// The host's main window, parent of every dialog; null where the host has none.
    KEX_BASE_API static void* hWndApplic;
};

/// Answers to the two questions above in place of the platform's; null for the platform's. A host
/// without windows has neither, so tests bring their own.
struct DialogSource
{
    bool (*isActive)();
    void* (*window)();
};
KEX_BASE_API void dialogSourceSet(const DialogSource* source);

} // namespace KEX
